// SPDX-License-Identifier: MIT
// Test programs that need Qt run on the offscreen platform unless the caller chose another one.

#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include "platform/qt/system_reasons.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  QApplication application(argc, argv);
  quenlor::platform::qt::SystemReasonsInEnglish();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
