// Several files in one, which is either whole or refused.
#pragma once
#include <QByteArray>
#include <QMap>
#include <QString>
#include <optional>

namespace talpena {

/// Contents by name; a name is a path with "/" in it.
using PackedFiles = QMap<QString, QByteArray>;

/// A mark of the format, a checksum of the rest, and the files.
QByteArray Emballe(const PackedFiles& files);

/// The files again; empty when the bytes are not what Emballe made, to the last bit.
std::optional<PackedFiles> Deballe(const QByteArray& bytes);

}  // namespace talpena
