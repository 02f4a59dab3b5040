// SPDX-License-Identifier: MIT
#include "graph/painted_area.h"

#include <QImage>
#include <QPainter>
#include <random>

#include <gtest/gtest.h>

#include "platform/memory/recording_surface.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::graph {
namespace {

using platform::PixelRectangle;

TEST(PaintedArea, TellsOfAnyRectangleWhetherAllOfItHasTheColour) {
  QImage image(37, 23, QImage::Format_RGB32);
  image.fill(Qt::white);
  std::mt19937 random(3);
  QPainter painter(&image);
  for (int i = 0; i < 12; ++i)
    painter.fillRect(static_cast<int>(random() % 37), static_cast<int>(random() % 23),
                     static_cast<int>(random() % 20), static_cast<int>(random() % 12), Qt::red);
  platform::qt::QtDrawingSurface surface(painter, image.size());
  const PixelRectangle area{3, -2, 40, 20};  // the viewport's, beyond the picture
  surface.SetViewport({area, {0, 0, 1, 1}});
  PaintedArea painted;
  painted.Look(surface, {255, 0, 0}, {-100, 100});
  int whole = 0;
  for (int i = 0; i < 4000; ++i) {
    const PixelRectangle part{static_cast<int>(random() % 50) - 6, static_cast<int>(random() % 40) - 8,
                              static_cast<int>(random() % 9) + 1, static_cast<int>(random() % 9) + 1};
    bool all = true;
    for (int y = part.top; y < part.top + part.height; ++y) {
      for (int x = part.left; x < part.left + part.width; ++x) {
        const bool seen = x >= 3 && x < 37 && y >= 0 && y < 18;
        all = all && (!seen || image.pixelColor(x, y) == QColor(Qt::red));
      }
    }
    ASSERT_EQ(painted.Contains(part), all)
        << part.left << ' ' << part.top << ' ' << part.width << ' ' << part.height;
    whole += all;
  }
  EXPECT_GT(whole, 100);
}

TEST(PaintedArea, LooksAtTheRowsThatAreAskedFor) {
  QImage image(20, 10, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const platform::qt::QtDrawingSurface surface(painter, image.size());
  PaintedArea painted;
  painted.Look(surface, {255, 0, 0}, {0, 9});
  painter.fillRect(0, 0, 20, 10, Qt::red);
  painted.Look(surface, {255, 0, 0}, {3, 5});
  EXPECT_TRUE(painted.Contains({0, 3, 20, 3}));
  EXPECT_FALSE(painted.Contains({0, 2, 20, 4}));
  EXPECT_FALSE(painted.Contains({0, 3, 20, 4}));
}

TEST(PaintedArea, OnlyAPictureTellsItsPixels) {
  QImage image(20, 10, QImage::Format_RGB32);
  QPainter painter(&image);
  EXPECT_EQ(platform::qt::QtDrawingSurface(painter, image.size()).PixelsOf(9).size(), 20u);
  EXPECT_TRUE(platform::qt::QtDrawingSurface(painter, image.size()).PixelsOf(10).empty());
  painter.scale(0.5, 0.5);
  EXPECT_TRUE(platform::qt::QtDrawingSurface(painter, image.size()).PixelsOf(0).empty()) << "they are others";
  EXPECT_TRUE(platform::memory::RecordingSurface().PixelsOf(0).empty());
}

}  // namespace
}  // namespace quenlor::graph
