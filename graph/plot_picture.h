// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include "graph/color_settings.h"
#include "graph/live_graph.h"
#include "graph/plot.h"
#include "graph/plot_overlay.h"
#include "graph/runs_shown.h"
#include "graph/view_hand.h"

class QGestureEvent;
class QNativeGestureEvent;

namespace quenlor::graph {

// Picture2: the plot as it was drawn last, kept from paint to paint, and the hand on it.
//
// The wheel zooms at the pointer (with Shift across only, with Ctrl upwards only), two fingers do, too; the
// left button draws a rectangle that then fills the plot; the middle button, or Space and the left one, shove
// it; a double click or Esc shows the whole again. Plus, minus and the arrows do it without a mouse.
class PlotPicture : public QWidget {
  Q_OBJECT

 public:
  PlotPicture(const Plot& plot, const data::Document& document, LiveGraph& graph, const ColorSettings& colors,
              QWidget* parent);

  void DrawWhole();                           // everything is to be drawn, which may take a while
  void DrawNew();                             // what has changed is drawn at the next paint
  void Hold(bool hold);                       // while held, what is shown stays as it is
  void Turn(QWheelEvent* event, QPointF at);  // a wheel, there, also at the numbers around the plot
  void MarkRows(data::Document::Row first, data::Document::Row last);  // rows of the table; none before 1
  void BringToFront(int run);  // and pale the others, until told of another one; 0: all are alike
  void ShowAlone(int run);     // and hide the others; 0: all are shown
  int Alone() { return runs_.Alone(); }
  QString Told() const;  // what stands on the plates over the plot

 signals:
  void ReadingChosen(data::Document::Row row);
  void ViewMoved();  // other ranges or boxes are the graph's now

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Drag { None, Press, Box, Shove };

  void Draw();
  void DrawRuns();
  void PaintHand(QPainter& painter) const;

  PlotPlace PlaceOf(QPointF at) const;
  PlotPlace ShoveTo(QPointF at) const;
  PlotPlace Steady() const;
  void PointAt(std::optional<QPointF> pointer);
  void ClickOn(QPointF at, bool compare);
  bool Pinch(QGestureEvent* event);
  bool Spread(const QNativeGestureEvent& event);
  void BeginDrag(Drag drag, QPointF at);
  void EndDrag();
  void BeginUnlessGoingOn();
  void ShowCursor();
  void ShowWhole();

  LiveGraph& graph_;
  const ColorSettings& colors_;
  KeptPlot kept_;
  QImage image_;  // what is kept
  QImage shown_;
  RunsShown runs_;
  QImage runs_image_;  // shown instead while the runs are not alike
  bool whole_ = true;
  bool stale_ = true;  // something may have changed since it was drawn
  bool held_ = false;

  PlotOverlay overlay_;
  ViewHand hand_;
  QElapsedTimer since_turn_;
  Drag drag_ = Drag::None;
  Qt::MouseButton dragging_ = Qt::NoButton;
  QPointF pressed_;  // where
  QPointF pointer_;
  bool space_ = false;
};

}  // namespace quenlor::graph
