// SPDX-License-Identifier: MIT
// The machine of all tests that need Qt: an empty home and a screen that nobody sees, large enough for every
// window. Fonts, language, time zone and scale are those of the machine they run on; what a test says holds
// with any.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/qt/system_reasons.h"

namespace {

constexpr char kScreen[] = R"({
  "synchronousWindowSystemEvents": false,
  "windowFrameMargins": true,
  "screens": [{ "name": "screen", "x": 0, "y": 0, "width": 5120, "height": 3840,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 }]
})";

bool UseScreen(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(kScreen) < 0) return false;
#ifdef Q_OS_WIN
  // A colon divides the words here, so the path goes without its drive, and the program to that drive.
  if (!QDir::setCurrent(QFileInfo(path).path())) return false;
  qputenv("QT_QPA_FONTDIR",
          QStandardPaths::standardLocations(QStandardPaths::FontsLocation).value(0).toLocal8Bit());
  return qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + path.mid(2).toLocal8Bit());
#else
  return qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + path.toLocal8Bit());
#endif
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir home;
  for (const char* folder : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(folder, home.path().toLocal8Bit());
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                           "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"})
    qunsetenv(name);
  if (!home.isValid() || !UseScreen(home.filePath(QStringLiteral("screen.json")))) return 1;

  QApplication application(argc, argv);
  quenlor::platform::qt::SystemReasonsInEnglish();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
