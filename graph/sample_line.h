// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "graph/color_table.h"

namespace quenlor::graph {

// A piece of a run's line as the graph would draw it: its colour and width, on the graph's background.
class SampleLine : public QWidget {
  Q_OBJECT

 public:
  explicit SampleLine(QWidget* parent);

  Color LineColor() const { return color_; }
  void SetLineColor(Color color);
  void SetLineWidth(int width);
  void SetBackColor(Color color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Color color_;
  Color back_;
  int width_ = 1;
};

}  // namespace quenlor::graph
