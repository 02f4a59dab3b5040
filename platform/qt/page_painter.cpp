// SPDX-License-Identifier: MIT
#include "platform/qt/page_painter.h"

#include <QImage>

#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::platform::qt {

void PaintPage(QPainter& painter, QSizeF size, const PixelRectangle& page,
               const std::function<void(DrawingSurface&)>& draw) {
  if (page.Empty() || !painter.isActive()) return;
  painter.save();
  painter.scale(size.width() / page.width, size.height() / page.height);
  {
    QtDrawingSurface surface(painter, {page.width, page.height}, kPageDotsPerPen);
    draw(surface);
  }
  painter.restore();
}

double MeasureText(std::string_view text, double height) {
  QImage nothing(1, 1, QImage::Format_RGB32);
  QPainter painter(&nothing);
  QtDrawingSurface surface(painter, {1, 1});
  return surface.TextWidth(text, height);
}

}  // namespace quenlor::platform::qt
