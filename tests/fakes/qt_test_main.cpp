// The main of test programs with windows: offscreen unless the caller says otherwise, and with
// folders of their own in place of the user's.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", QByteArray(home.path().toUtf8() + "/config"));
  qputenv("XDG_CACHE_HOME", QByteArray(home.path().toUtf8() + "/cache"));
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
