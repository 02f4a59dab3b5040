// SPDX-License-Identifier: MIT
#include <QApplication>

#include "app/program.h"
#include "bench/first_paint.h"

// The program as its own main starts it, with its files in a folder given.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  quenlor::app::CommandLine line;
  line.folder = argc > 1 ? argv[1] : ".";
  quenlor::app::Program program(line, {});
  const quenlor::bench::FirstPaint first_paint(program.Window());
  program.Window().show();
  return QApplication::exec();
}
