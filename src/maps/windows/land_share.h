// How much of a map's picture is land.
#pragma once
#include <QString>
#include <optional>

namespace talpena {

/// 0 to 1. Land has the colour that it has on the maps that ship; empty for a picture that has
/// hardly any of that colour, as one of the user's own, and for one that cannot be read.
std::optional<double> PartDeTerre(const QString& path);

}  // namespace talpena
