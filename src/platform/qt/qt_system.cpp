#include "platform/qt/qt_system.h"

#include <QApplication>
#include <QByteArray>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QTime>

#include "common/paths.h"
#include "platform/qt/private_folder.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace talpena {

int QtClock::AnneeCourante() { return QDate::currentDate().year(); }

CalendarDate QtClock::DateCourante() {
  const QDate today = QDate::currentDate();
  return {today.year(), today.month(), today.day()};
}

DayTime QtClock::HeureCourante() {
  const QTime now = QTime::currentTime();
  return {now.hour(), now.minute(), now.second()};
}

std::string QtEnvironment::Variable(std::string_view name) {
  return qEnvironmentVariable(std::string(name).c_str()).toStdString();
}

std::string QtEnvironment::DossierTemporaire() {
  for (const char* name : {"TEMP", "TMPDIR"}) {
    if (std::string folder = Variable(name); !folder.empty()) return folder;
  }
  return DossierPrive();
}

std::string QtEnvironment::DossierPrive() { return talpena::DossierPrive(); }

std::string QtEnvironment::LecteurCD() {
#ifdef Q_OS_WIN
  char roots[512] = {};
  GetLogicalDriveStringsA(sizeof roots - 2, roots);
  for (const char* root = roots; *root != '\0'; root += std::strlen(root) + 1) {
    if (GetDriveTypeA(root) == DRIVE_CDROM) return root;
  }
#endif
  return "D:\\";
}

bool QtEnvironment::ChangeDossier(const std::string& folder) {
  return QDir::setCurrent(QString::fromStdString(RendNatif(folder)));
}

// What the kernel could free at once counts as free: it tells that number in one place only.
std::optional<std::int64_t> QtEnvironment::MemoireLibre() {
  QFile file(QStringLiteral("/proc/meminfo"));
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (!line.startsWith("MemAvailable:")) continue;
    return line.simplified().split(' ').value(1).toLongLong() * 1024;
  }
  return std::nullopt;
}

std::optional<std::int64_t> QtEnvironment::PlaceLibre(const std::string& folder) {
  const QStorageInfo disk(QString::fromStdString(RendNatif(folder)));
  return disk.isValid() ? std::optional<std::int64_t>(disk.bytesAvailable()) : std::nullopt;
}

void QtSound::Bip() { QApplication::beep(); }

}  // namespace talpena
