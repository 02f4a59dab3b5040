// SPDX-License-Identifier: MIT
#pragma once

#include <QWheelEvent>
#include <cmath>
#include <string>

#include "graph/plot_picture.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {

// A window with two runs in its graph, and a mouse on the plot.
class PlotHandTest : public WindowTest {
 protected:
  void OpenTwoRuns() {
    Open();
    files.Put("/d/x.csv",
              "No.,Time,Viscosity,Unit1,Temp\r\n1,0,20,mPa.s,20\r\n1,170,80,mPa.s,30\r\n"
              "2,0,30,mPa.s,20\r\n2,150,40,mPa.s,25\r\n");
    window->OpenFile("/d/x.csv");
    ASSERT_TRUE(Becomes("Label10[2]", "No.2\n40"));
    window->resize(1200, 760);
    QApplication::processEvents();
  }

  QWidget* Plot() { return Find<QWidget>("Picture2"); }
  const data::AxisRanges& Ranges() { return window->Document().Ranges(); }
  bool Ticked(const char* box) { return Find<QCheckBox>(box)->isChecked(); }
  std::string Boxes() {
    std::string boxes;
    for (const char* box : {"Check2", "Check3", "Check4"}) boxes += Ticked(box) ? 'x' : '.';
    return boxes;
  }

  // The pixel at those parts of the axes.
  QPoint At(double across, double up) {
    return {static_cast<int>(std::lround((across + 0.01) / 1.02 * Plot()->width())),
            static_cast<int>(std::lround((1.01 - up) / 1.02 * Plot()->height()))};
  }
  void Wheel(QPoint at, int notches, Qt::KeyboardModifiers keys = {}) {
    const QPoint in_window = Plot()->mapTo(window.get(), at);
    QWidget* under = window->childAt(in_window);
    ASSERT_NE(under, nullptr);
    QWheelEvent event(under->mapFrom(window.get(), in_window), window->mapToGlobal(in_window), {},
                      {0, 120 * notches}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // one that no widget takes goes on to its parent
    qApp->notify(under, &event);
  }
  void Press(Qt::MouseButton button, QPoint at) { QTest::mousePress(Plot(), button, {}, at); }
  // QTest's own moves have no button pressed.
  void Move(Qt::MouseButton button, QPoint at) {
    QMouseEvent event(QEvent::MouseMove, at, Plot()->mapToGlobal(at), Qt::NoButton, button, {});
    QApplication::sendEvent(Plot(), &event);
  }
  void Release(Qt::MouseButton button, QPoint at) { QTest::mouseRelease(Plot(), button, {}, at); }
  void Drag(Qt::MouseButton button, QPoint from, QPoint to) {
    Press(button, from);
    Move(button, (from + to) / 2);
    Move(button, to);
    Release(button, to);
  }
};

}  // namespace quenlor::app
