#include "platform/qt/qt_system.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "common/talpena_error.h"

namespace talpena {
namespace {

/// Sets environment variables for the length of a test.
class Variables {
 public:
  Variables(std::initializer_list<std::pair<const char*, QByteArray>> values) {
    for (const auto& [name, value] : values) {
      before_.emplace_back(name, qgetenv(name), qEnvironmentVariableIsSet(name));
      if (value.isNull()) {
        qunsetenv(name);
      } else {
        qputenv(name, value);
      }
    }
  }
  Variables(const Variables&) = delete;
  Variables& operator=(const Variables&) = delete;
  ~Variables() {
    for (const auto& [name, value, set] : before_) {
      if (set) {
        qputenv(name, value);
      } else {
        qunsetenv(name);
      }
    }
  }

 private:
  std::vector<std::tuple<const char*, QByteArray, bool>> before_;
};

TEST(QtClock, TellsTheDay) {
  const QDate before = QDate::currentDate();
  const CalendarDate today = QtClock().DateCourante();
  const QDate told(today.year, today.month, today.day);
  EXPECT_GE(told, before);
  EXPECT_LE(told, QDate::currentDate());
}

TEST(QtClock, TellsTheYear) { EXPECT_EQ(QtClock().AnneeCourante(), QDate::currentDate().year()); }

TEST(QtEnvironment, ReadsVariables) {
  const Variables set{{"TALPENA_TEST", "\u00e9t\u00e9"}, {"TALPENA_NONE", {}}};
  QtEnvironment environment;
  EXPECT_EQ(environment.Variable("TALPENA_TEST"), "\u00e9t\u00e9");
  EXPECT_EQ(environment.Variable("TALPENA_NONE"), "");
}

TEST(QtEnvironment, WorkingFilesGoToTempThenTmpdir) {
  QtEnvironment environment;
  {
    const Variables set{{"TEMP", "/a"}, {"TMPDIR", "/b"}};
    EXPECT_EQ(environment.DossierTemporaire(), "/a");
  }
  for (const QByteArray& unset : {QByteArray(), QByteArray("")}) {
    const Variables set{{"TEMP", unset}, {"TMPDIR", "/b"}};
    EXPECT_EQ(environment.DossierTemporaire(), "/b");
  }
}

#ifdef Q_OS_UNIX

constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;

TEST(QtEnvironment, ElseToAFolderThatNobodyElseCanEnter) {
  const QTemporaryDir home;
  const Variables set{
      {"TEMP", {}}, {"TMPDIR", {}}, {"XDG_CACHE_HOME", home.filePath("new/cache").toUtf8()}};
  QtEnvironment environment;
  const QString folder = QString::fromStdString(environment.DossierTemporaire());
  EXPECT_EQ(folder, home.filePath("new/cache/Talpena"));
  EXPECT_TRUE(QFileInfo(folder).isDir());
  EXPECT_FALSE(QFileInfo(folder).permissions() & others);

  QFile::setPermissions(folder, QFileInfo(folder).permissions() | others);
  environment.DossierTemporaire();
  EXPECT_FALSE(QFileInfo(folder).permissions() & others) << "an open folder is closed";
}

TEST(QtEnvironment, AFolderOfAnotherIsRefused) {
  const QTemporaryDir home;
  const QTemporaryDir elsewhere;
  const Variables set{{"TEMP", {}}, {"TMPDIR", {}}, {"XDG_CACHE_HOME", home.path().toUtf8()}};
  ASSERT_TRUE(QFile::link(elsewhere.path(), home.filePath("Talpena")));
  try {
    QtEnvironment().DossierTemporaire();
    ADD_FAILURE() << "a link was followed";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::PathFileAccess);
    EXPECT_NE(e.description().find("Talpena"), std::string::npos);
  }
}

TEST(QtEnvironment, ASystemWithoutCdDrivesAnswersDriveD) {
  EXPECT_EQ(QtEnvironment().LecteurCD(), "D:\\");
}

#endif

TEST(QtEnvironment, ChangesTheFolderOfTheProcess) {
  const QString before = QDir::currentPath();
  const QTemporaryDir folder;
  ASSERT_TRUE(QDir(folder.path()).mkdir("Bees"));
  QtEnvironment environment;
  EXPECT_TRUE(environment.ChangeDossier(folder.path().toStdString() + "\\BEES"));
  EXPECT_EQ(QDir(QDir::currentPath()), QDir(folder.filePath("Bees")));
  EXPECT_FALSE(environment.ChangeDossier(folder.path().toStdString() + "/gone"));
  EXPECT_EQ(QDir(QDir::currentPath()), QDir(folder.filePath("Bees")));
  QDir::setCurrent(before);
}

}  // namespace
}  // namespace talpena
