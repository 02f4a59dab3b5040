// SPDX-License-Identifier: MIT
#include "graph/color_button.h"

#include <QPainter>
#include <QStyle>

#include "graph/screen_color.h"

namespace quenlor::graph {

ColorButton::ColorButton(const QString& caption, const QString& name, QWidget* parent)
    : QPushButton(caption, parent), name_(name) {
  setAttribute(Qt::WA_Hover);
  SetBackColor({});
}

void ColorButton::SetBackColor(Color color) {
  back_ = color;
  setAccessibleName(
      tr("%1, colour %2, %3, %4").arg(name_).arg(color.Red()).arg(color.Green()).arg(color.Blue()));
  update();
}

QSize ColorButton::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 10, fontMetrics().height() * 2};
}

void ColorButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto frame = [&](int inset, int width, const QColor& color) {
    const auto inner = [this](int by) { return QRegion(rect().adjusted(by, by, -by, -by)); };
    for (const QRect& side : inner(inset) - inner(inset + width)) painter.fillRect(side, color);
  };
  const QColor ink = ToQColor(ReadableOn(back_));
  painter.fillRect(rect(), ToQColor(back_));

  // The edge tells the patch from a window of the same colour; it is strong under the pointer.
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlphaF(underMouse() ? 1.0F : 0.5F);
  frame(0, 1, edge);
  if (isDown()) frame(1, 2, edge);
  if (hasFocus()) frame(3, 2, ink);

  painter.setPen(ink);
  const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
  painter.drawText(rect().translated(0, isDown() ? 1 : 0),
                   Qt::AlignCenter | (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic), text());
}

}  // namespace quenlor::graph
