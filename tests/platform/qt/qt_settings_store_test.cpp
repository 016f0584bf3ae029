#include "platform/qt/qt_settings_store.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "common/talpena_error.h"

namespace talpena {
namespace {

/// A configuration folder of the test's own.
class QtSettingsStoreTest : public testing::Test {
 protected:
  QtSettingsStoreTest() : before_(qgetenv("XDG_CONFIG_HOME")) {
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  }
  ~QtSettingsStoreTest() override { qputenv("XDG_CONFIG_HOME", before_); }

  QStringList Fichiers() const {
    return QDir(folder.filePath("Talpena")).entryList(QDir::Files, QDir::Name);
  }
  void EcritIni(const QString& name, const QByteArray& content) const {
    ASSERT_TRUE(QDir(folder.path()).mkpath("Talpena"));
    QFile file(folder.filePath("Talpena/" + name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }

  QTemporaryDir folder;

 private:
  QByteArray before_;
};

TEST_F(QtSettingsStoreTest, AMissingKeyGivesTheDefault) {
  QtSettingsStore store;
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "UtmAjust", "0"), "0");
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "UtmAjust", ""), "");
  EXPECT_TRUE(Fichiers().isEmpty()) << "reading makes no file";
}

// clang-format off
const std::string texts[] = {
    "", " ", "  leading and trailing  ", "\ttab\t", ",", "a,b", ";", "#", "\"", "'", "\"quoted\"",
    "\\", "C:\\Temp\\new\\x41", "a=b", "100%", "%20", "@", "@@", "@Invalid()", "@ByteArray(x)", "@Rect(1 2 3 4)",
    "line 1\r\nline 2", "-2147483640", "0012", "1e5", "true", "\u00e9\u00e8\u00fc\u0153\u20ac",
    "\u0416\u4e2d\U0001F41D", "[section]", "key=value;comment", "/usr/share/Talpena/", "\\\\server\\share",
    std::string("nul\0inside", 10), "\x01\x02", std::string(5000, 'x')};
// clang-format on

TEST_F(QtSettingsStoreTest, EveryTextSurvivesTheRun) {
  int i = 0;
  {
    QtSettingsStore store;
    for (const std::string& text : texts) {
      store.Ecrit("TALPENA", "Texts", "Key" + std::to_string(i++), text);
    }
  }
  QtSettingsStore again;
  i = 0;
  for (const std::string& text : texts) {
    EXPECT_EQ(again.Lit("TALPENA", "Texts", "Key" + std::to_string(i++), "default"), text);
  }
}

TEST_F(QtSettingsStoreTest, EveryTextIsReadBackFromTheFileItself) {
  // The other test may be served from Qt's memory; this one reads the file under another name.
  {
    QtSettingsStore store;
    int i = 0;
    for (const std::string& text : texts) {
      store.Ecrit("TALPENA", "Texts", "Key" + std::to_string(i++), text);
    }
  }
  ASSERT_TRUE(
      QFile::copy(folder.filePath("Talpena/talpena.ini"), folder.filePath("Talpena/copy.ini")));
  QtSettingsStore store;
  int i = 0;
  for (const std::string& text : texts) {
    EXPECT_EQ(store.Lit("copy", "Texts", "Key" + std::to_string(i++), "default"), text);
  }
}

TEST_F(QtSettingsStoreTest, CaseOfTheThreeDoesNotMatter) {
  QtSettingsStore store;
  store.Ecrit("TALPENA", "Settings", "SaveInterval", "7");
  EXPECT_EQ(store.Lit("talpena", "SETTINGS", "saveinterval", ""), "7");
  store.Ecrit("Talpena", "settings", "SAVEINTERVAL", "8");
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "SaveInterval", ""), "8") << "one value, not two";
  EXPECT_EQ(Fichiers(), QStringList{"talpena.ini"});
}

TEST_F(QtSettingsStoreTest, TheTwoApplicationsOfOneNameDoNotMeet) {
  QtSettingsStore store;
  store.Ecrit("Talpena", "Config", "WorkingDir", "/tmp/a");
  store.Ecrit("TALPENA", "Paths", "LastDeg", "/home/b");
  EXPECT_EQ(store.Lit("Talpena", "Config", "WorkingDir", ""), "/tmp/a");
  EXPECT_EQ(store.Lit("TALPENA", "Paths", "LastDeg", ""), "/home/b");
  EXPECT_EQ(store.Lit("TALPENA", "Paths", "WorkingDir", "none"), "none");
}

TEST_F(QtSettingsStoreTest, ApplicationsHaveFilesOfTheirOwn) {
  QtSettingsStore store;
  for (const char* application : {"TALPENA", "TLP", "TLPMENU.INI", "DLV"}) {
    store.Ecrit(application, "Section", "Key", application);
  }
  for (const char* application : {"TALPENA", "TLP", "TLPMENU.INI", "DLV"}) {
    EXPECT_EQ(store.Lit(application, "Section", "Key", ""), application);
  }
  EXPECT_EQ(Fichiers(), (QStringList{"dlv.ini", "talpena.ini", "tlp.ini", "tlpmenu.ini"}));
}

TEST_F(QtSettingsStoreTest, OddNamesNeitherEscapeNorMeet) {
  const std::string names[] = {"../../etc/x", "a/b",      "a\\b",  "a%002fb",
                               "General",     "%General", "\u00e9"};
  QtSettingsStore store;
  for (const std::string& name : names) {
    store.Ecrit(name, "S", "K", name);
    store.Ecrit("TALPENA", name, "K", name);
    store.Ecrit("TALPENA", "S", name, name);
  }
  for (const std::string& name : names) {
    EXPECT_EQ(store.Lit(name, "S", "K", ""), name);
    EXPECT_EQ(store.Lit("TALPENA", name, "K", ""), name);
    EXPECT_EQ(store.Lit("TALPENA", "S", name, ""), name);
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList{"Talpena"});
}

TEST_F(QtSettingsStoreTest, AFileTypedByHandIsRead) {
  EcritIni("TLPMENU.INI", "[tlpmenu]\r\nworkingdir=/home/bees\r\nlist=a,b,c\r\n");
  QtSettingsStore store;
  EXPECT_EQ(store.Lit("TLPMENU.INI", "TLPMENU", "WorkingDir", ""), "/home/bees");
  EXPECT_EQ(store.Lit("TLPMENU.INI", "TLPMENU", "List", ""), "a,b,c");
}

TEST_F(QtSettingsStoreTest, ADamagedFileGivesWhatItHolds) {
  EcritIni("talpena.ini",
           QByteArrayLiteral("\x00\xff\xfe garbage\n[Settings\nUtmAjust=3\n[Grid]\nTop=5\n"));
  QtSettingsStore store;
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "SaveInterval", "5"), "5");
  EXPECT_EQ(store.Lit("TALPENA", "Grid", "Top", "0"), "5");
  store.Ecrit("TALPENA", "Settings", "SaveInterval", "9");
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "SaveInterval", "5"), "9");
}

TEST_F(QtSettingsStoreTest, SeveralTextsAreWrittenAtOnce) {
  QtSettingsStore store;
  const std::vector<SettingEntry> entries = {{"A", "x", "1"}, {"B", "y", "2"}, {"a", "X", "3"}};
  store.EcritTout("TALPENA", entries);
  EXPECT_EQ(store.Lit("TALPENA", "A", "x", ""), "3");
  EXPECT_EQ(store.Lit("TALPENA", "B", "y", ""), "2");
}

TEST_F(QtSettingsStoreTest, WhatStandsThereIsNotWrittenAnew) {
  QtSettingsStore store;
  store.Ecrit("TALPENA", "Carto", "LastMap", "europe.dsw");
  const QString path = folder.filePath("Talpena/talpena.ini");
  const QDateTime longAgo(QDate(2001, 2, 3), QTime(4, 5));
  {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
  }
  store.Ecrit("TALPENA", "Carto", "LastMap", "europe.dsw");
  const std::array same = {SettingEntry{"carto", "LASTMAP", "europe.dsw"}};
  store.EcritTout("TALPENA", same);
  EXPECT_EQ(QFileInfo(path).lastModified(), longAgo);
  store.Ecrit("TALPENA", "Carto", "LastMap", "asia.dsw");
  EXPECT_GT(QFileInfo(path).lastModified(), longAgo);
}

TEST_F(QtSettingsStoreTest, WhatAnotherProgramWroteMeanwhileIsWrittenOver) {
  QtSettingsStore store;
  store.Ecrit("TALPENA", "Carto", "LastMap", "europe.dsw");
  EcritIni("talpena.ini", "[Carto]\nLastMap=mediterranean.dsw\n");
  store.Ecrit("TALPENA", "Carto", "LastMap", "europe.dsw");
  EXPECT_EQ(QtSettingsStore().Lit("TALPENA", "Carto", "LastMap", ""), "europe.dsw");
}

TEST_F(QtSettingsStoreTest, AStoreThatCannotBeWrittenIsNamed) {
  QFile blocker(folder.filePath("Talpena"));  // a file where the folder should be
  ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
  blocker.close();
  QtSettingsStore store;
  EXPECT_EQ(store.Lit("TALPENA", "Settings", "SaveInterval", "5"), "5");
  const std::vector<SettingEntry> entries = {{"Settings", "SaveInterval", "9"}};
  for (const bool together : {false, true}) {
    try {
      if (together) {
        store.EcritTout("TALPENA", entries);
      } else {
        store.Ecrit("TALPENA", "Settings", "SaveInterval", "9");
      }
      ADD_FAILURE() << "written where nothing can be";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::PathFileAccess);
      EXPECT_NE(e.description().find("talpena.ini"), std::string::npos) << e.description();
    }
  }
}

#ifdef Q_OS_UNIX

/// What the store says of a text that it cannot keep, and how long that takes; "" when it kept it.
std::string RefusDEcrire(QtSettingsStore& store, const char* text) {
  const auto start = std::chrono::steady_clock::now();
  std::string refusal;
  try {
    store.Ecrit("TALPENA", "Settings", "SaveInterval", text);
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::PathFileAccess);
    refusal = e.description();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  return refusal;
}

TEST_F(QtSettingsStoreTest, WhatIsNoFileIsAnErrorAndNotWaitedFor) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("Talpena"));
  const QByteArray ini = folder.filePath("Talpena/talpena.ini").toUtf8();
  const auto pipe = [&] { return mkfifo(ini.constData(), 0600); };
  const auto device = [&] { return symlink("/dev/zero", ini.constData()); };
  const auto directory = [&] { return mkdir(ini.constData(), 0700); };
  for (const std::function<int()>& put : {std::function<int()>(pipe), {device}, {directory}}) {
    ASSERT_EQ(put(), 0);
    {
      QtSettingsStore store;
      EXPECT_EQ(store.Lit("TALPENA", "Settings", "SaveInterval", "5"), "5");
      EXPECT_NE(RefusDEcrire(store, "9").find("talpena.ini"), std::string::npos);
      EXPECT_EQ(std::remove(ini.constData()), 0);
      EXPECT_EQ(RefusDEcrire(store, "9"), "") << "once the place is free";
    }
    EXPECT_EQ(std::remove(ini.constData()), 0);
  }
}

TEST_F(QtSettingsStoreTest, ALockThatIsNoFileIsAnErrorAndNotWaitedFor) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("Talpena"));
  const QByteArray lock = folder.filePath("Talpena/talpena.ini.lock").toUtf8();
  QtSettingsStore store;
  ASSERT_EQ(mkfifo(lock.constData(), 0600), 0);
  EXPECT_NE(RefusDEcrire(store, "9").find("talpena.ini.lock"), std::string::npos);
  ASSERT_EQ(std::remove(lock.constData()), 0);
  ASSERT_EQ(mkdir(lock.constData(), 0700), 0);
  EXPECT_NE(RefusDEcrire(store, "9").find("talpena.ini.lock"), std::string::npos);
}

TEST_F(QtSettingsStoreTest, TheLockOfAProcessThatIsGoneDoesNotBlock) {
  for (const char* left : {"", "1\ntalpena\nthis-host\n", "999999\ntalpena\nanother-host\n"}) {
    SCOPED_TRACE(left);
    QtSettingsStore store;
    EcritIni("talpena.ini.lock", left);
    EXPECT_EQ(RefusDEcrire(store, "9"), "");
    EXPECT_FALSE(Fichiers().contains("talpena.ini.lock"));
  }
}

TEST_F(QtSettingsStoreTest, TheLockOfARunningProcessIsAnErrorInTheEnd) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("Talpena"));
  QtSettingsStore store;
  {
    QLockFile held(folder.filePath("Talpena/talpena.ini.lock"));
    ASSERT_TRUE(held.lock());
    EXPECT_NE(RefusDEcrire(store, "9").find("talpena.ini.lock"), std::string::npos);
  }
  EXPECT_EQ(RefusDEcrire(store, "9"), "");
}

#endif

}  // namespace
}  // namespace talpena
