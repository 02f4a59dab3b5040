// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>

#include "graph/graph_pane.h"

namespace quenlor::graph {

// Where the bar between table and graph may stand. Lengths in twips.
namespace posi {

inline constexpr int kWidth = 100;
inline constexpr int kRightOfGraph = 200;  // free

// Whether the bar may be dragged to that left edge: the table keeps 3600, the graph 2000.
bool MayMoveTo(double left, double window_width);

// Where the bar stands after the window has become that wide: inside it, 50 from its edge at most, as long as
// the window is wide enough for that.
double AfterResize(double left, double window_width);

}  // namespace posi

// The table on the left, the graph on the right, and between them Posi, the bar that shares the width.
class TableAndGraph : public QWidget {
  Q_OBJECT

 public:
  TableAndGraph(QWidget* tables, GraphPane* Picture1, QWidget* parent);

  double PosiLeft() const { return left_; }  // twips
  void Nudge(int steps);                     // to the right, or the left, as far as the bar may go
  void SetPosiLeft(double left);
  // Where the bar is to stand in a window that has not its size yet: it may be made larger while it comes to
  // the screen. From its first picture on the bar is only pulled in.
  void RestorePosiLeft(double left);

 protected:
  void resizeEvent(QResizeEvent* event) override;  // Form_Resize
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Posi_MouseDown(double X);
  void Posi_MouseMove(double X);
  void Posi_MouseUp();
  void Posi_Resize();
  double ScaleWidth() const;

  QWidget* tables_;
  GraphPane* Picture1;
  QWidget* const Posi;
  double left_ = 7500;
  std::optional<double> wished_;  // until the first picture
  bool Dragging = false;
  double DragStartX = 0;  // of the pointer inside Posi
};

}  // namespace quenlor::graph
