#include "platform/qt/single_instance.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <signal.h>
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

TEST(SingleInstance, TheLockLiesInTheSessionFolderElseInThePrivateOne) {
  const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
  const QByteArray cache = qgetenv("XDG_CACHE_HOME");
  const QTemporaryDir folder;
  qputenv("XDG_CACHE_HOME", folder.filePath("cache").toUtf8());
  qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  EXPECT_TRUE(SingleInstance().Acquiert());
  EXPECT_TRUE(QFile::exists(folder.filePath("talpena.lock")));
  qputenv("XDG_RUNTIME_DIR", folder.filePath("gone").toUtf8());
  EXPECT_TRUE(SingleInstance().Acquiert());
  EXPECT_TRUE(QFile::exists(folder.filePath("cache/Talpena/talpena.lock")));
  qputenv("XDG_RUNTIME_DIR", session);
  qputenv("XDG_CACHE_HOME", cache);
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
