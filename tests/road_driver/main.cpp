// SPDX-License-Identifier: MIT
//
// The real program with a hand on its Start button, for tests that kill it.
// Usage: quenlor-road-driver FOLDER DEVICE

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "app/program.h"

int main(int argc, char** argv) {
  using namespace quenlor;
  QApplication application(argc, argv);
  if (argc != 3) return 2;
  app::CommandLine line;
  line.folder = argv[1];
  line.ports = {{1, argv[2]}};
  app::Program program(line, {});
  program.Window().show();
  QTimer::singleShot(0,
                     [&] { program.Window().findChild<QPushButton*>(QStringLiteral("Command1"))->click(); });
  return program.Run();
}
