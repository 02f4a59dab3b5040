// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTableWidget>
#include <QToolBar>

#include "bench/first_paint.h"

// The least that a program like ours could be: a window with a menu, a tool bar and a table.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Quit"));
  window.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Start"));
  window.setCentralWidget(new QTableWidget(20, 6));
  window.resize(1000, 700);
  const quenlor::bench::FirstPaint first_paint(window);
  window.show();
  return QApplication::exec();
}
