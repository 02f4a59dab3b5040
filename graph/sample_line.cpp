// SPDX-License-Identifier: MIT
#include "graph/sample_line.h"

#include <QFontMetrics>
#include <QPainter>

#include "graph/screen_color.h"

namespace quenlor::graph {

SampleLine::SampleLine(QWidget* parent) : QWidget(parent) {
  setMinimumWidth(fontMetrics().averageCharWidth() * 20);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void SampleLine::SetLineColor(Color color) {
  color_ = color;
  update();
}

void SampleLine::SetLineWidth(int width) {
  width_ = width;
  update();
}

void SampleLine::SetBackColor(Color color) {
  back_ = color;
  update();
}

void SampleLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(back_));
  const int margin = fontMetrics().averageCharWidth();
  painter.fillRect(margin, (height() - width_) / 2, width() - 2 * margin, width_, ToQColor(color_));
}

}  // namespace quenlor::graph
