// make_help ROOT OUTPUT FILE...: packs the user guide of one language, its style and its pictures
// into the file that the program shows. Names are kept from ROOT on.
#include <QDir>
#include <QFile>
#include <cstdio>
#include <span>

#include "platform/qt/packed_files.h"

namespace {

int Echoue(const QString& what) {
  std::fprintf(stderr, "make_help: %s\n", what.toLocal8Bit().constData());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
  if (argc < 4) return Echoue(QStringLiteral("usage: make_help ROOT OUTPUT FILE..."));
  const QDir root(QString::fromLocal8Bit(arguments[1]));
  talpena::PackedFiles files;
  for (const char* argument : arguments.subspan(3)) {
    const QString path = QString::fromLocal8Bit(argument);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Echoue(path + ": " + file.errorString());
    files.insert(root.relativeFilePath(path), file.readAll());
  }
  const QByteArray packed = talpena::Emballe(files);
  QFile output(QString::fromLocal8Bit(arguments[2]));
  if (!output.open(QIODevice::WriteOnly) || output.write(packed) != packed.size() ||
      !output.flush()) {
    return Echoue(output.fileName() + ": " + output.errorString());
  }
  return 0;
}
