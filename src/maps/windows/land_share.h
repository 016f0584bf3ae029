// How much of a map's picture is land.
#pragma once
#include <QString>

namespace talpena {

/// 0 to 1. Land has the colour that it has on the maps that ship; a picture without that colour,
/// and one that cannot be read, counts as land as a whole.
double PartDeTerre(const QString& path);

}  // namespace talpena
