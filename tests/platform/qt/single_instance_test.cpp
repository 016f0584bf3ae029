#include "platform/qt/single_instance.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace talpena {
namespace {

TEST(SingleInstance, ASecondStartSeesTheFirst) {
  const QTemporaryDir folder;
  const QString lock = folder.filePath("lock");
  {
    SingleInstance first(lock);
    EXPECT_TRUE(first.Acquiert());
    EXPECT_TRUE(first.Acquiert()) << "asked again by its holder";
    SingleInstance second(lock);
    EXPECT_FALSE(second.Acquiert());
  }
  SingleInstance third(lock);
  EXPECT_TRUE(third.Acquiert()) << "free again when the first has ended";
}

TEST(SingleInstance, WhatAnEndedRunLeftDoesNotBlock) {
  const QTemporaryDir folder;
  const QString lock = folder.filePath("lock");
  QFile left(lock);
  ASSERT_TRUE(left.open(QIODevice::WriteOnly));
  left.write("1\ntalpena\nhost\n");
  left.close();
  SingleInstance instance(lock);
  EXPECT_TRUE(instance.Acquiert());
}

#ifdef Q_OS_UNIX

TEST(SingleInstance, AProcessThatIsKilledLetsGo) {
  const QTemporaryDir folder;
  const QString lock = folder.filePath("lock");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    SingleInstance held(lock);
    const char answer = held.Acquiert() ? 'y' : 'n';
    if (write(ready[1], &answer, 1) == 1) pause();
    _exit(1);
  }
  char answer = 0;
  ASSERT_EQ(read(ready[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  SingleInstance instance(lock);
  EXPECT_FALSE(instance.Acquiert());
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(instance.Acquiert());
  close(ready[0]);
  close(ready[1]);
}

/// Two variables of the environment, put back at the end.
class Environnement {
 public:
  Environnement() : session_(qgetenv("XDG_RUNTIME_DIR")), cache_(qgetenv("XDG_CACHE_HOME")) {}
  Environnement(const Environnement&) = delete;
  Environnement& operator=(const Environnement&) = delete;
  ~Environnement() {
    qputenv("XDG_RUNTIME_DIR", session_);
    qputenv("XDG_CACHE_HOME", cache_);
  }

 private:
  QByteArray session_;
  QByteArray cache_;
};

TEST(SingleInstance, ItIsTheUsersWhateverTheSession) {
  const Environnement restored;
  const QTemporaryDir folder;
  const QTemporaryDir otherSession;
  qputenv("XDG_CACHE_HOME", folder.filePath("cache").toUtf8());
  qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  SingleInstance first;
  EXPECT_TRUE(first.Acquiert());
  EXPECT_FALSE(SingleInstance().Acquiert()) << "the same session";
  qputenv("XDG_RUNTIME_DIR", otherSession.path().toUtf8());
  EXPECT_FALSE(SingleInstance().Acquiert()) << "another";
  qputenv("XDG_RUNTIME_DIR", folder.filePath("gone").toUtf8());
  EXPECT_FALSE(SingleInstance().Acquiert()) << "one whose folder is gone";
  qunsetenv("XDG_RUNTIME_DIR");
  EXPECT_FALSE(SingleInstance().Acquiert()) << "none";
}

TEST(SingleInstance, WithoutAPrivateFolderTheSessionHasTheLock) {
  const Environnement restored;
  const QTemporaryDir folder;
  qputenv("XDG_CACHE_HOME", "/proc/no/such/folder");
  qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  SingleInstance first;
  EXPECT_TRUE(first.Acquiert());
  EXPECT_FALSE(SingleInstance().Acquiert());
}

TEST(SingleInstance, WhatIsNoFileIsNotWaitedFor) {
  const QTemporaryDir folder;
  const QString pipe = folder.filePath("pipe");
  ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
  EXPECT_TRUE(SingleInstance(pipe).Acquiert());
  EXPECT_TRUE(SingleInstance(folder.path()).Acquiert());
  EXPECT_TRUE(SingleInstance("/dev/zero").Acquiert());
}

#endif

TEST(SingleInstance, WithoutAPlaceForALockTheProgramStarts) {
  SingleInstance nowhere("/nowhere/at/all/lock");
  EXPECT_TRUE(nowhere.Acquiert());
  SingleInstance none((QString()));
  EXPECT_TRUE(none.Acquiert());
}

}  // namespace
}  // namespace talpena
