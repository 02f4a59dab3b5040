// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>

#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::graph {

// Calls drawing(surface) for the image as its device's pixels, so many of them to one of a widget's.
template <class Drawing>
void DrawOnImage(QImage& image, double ratio, const Drawing& drawing) {
  image.setDevicePixelRatio(1);
  {
    QPainter painter(&image);
    platform::qt::QtDrawingSurface surface(painter, image.size(), ratio);
    drawing(surface);
  }
  image.setDevicePixelRatio(ratio);
}

}  // namespace quenlor::graph
