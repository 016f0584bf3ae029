#include "platform/qt/packed_files.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace talpena {
namespace {

constexpr auto mark = "TALPENA PACKED FILES 1\n";
constexpr auto method = QCryptographicHash::Sha256;
constexpr auto version = QDataStream::Qt_6_0;

}  // namespace

QByteArray Emballe(const PackedFiles& files) {
  QByteArray payload;
  QDataStream stream(&payload, QIODevice::WriteOnly);
  stream.setVersion(version);
  stream << files;
  return mark + QCryptographicHash::hash(payload, method) + payload;
}

std::optional<PackedFiles> Deballe(const QByteArray& bytes) {
  if (!bytes.startsWith(mark)) return std::nullopt;
  const QByteArray rest = bytes.mid(static_cast<qsizetype>(qstrlen(mark)));
  const qsizetype hashLength = QCryptographicHash::hashLength(method);
  const QByteArray payload = rest.mid(hashLength);
  if (rest.left(hashLength) != QCryptographicHash::hash(payload, method)) return std::nullopt;
  QDataStream stream(payload);
  stream.setVersion(version);
  PackedFiles files;
  stream >> files;
  if (stream.status() != QDataStream::Ok || !stream.atEnd()) return std::nullopt;
  return files;
}

}  // namespace talpena
