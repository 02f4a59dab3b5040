// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QSize>
#include <vector>

#include "platform/drawing_surface.h"

namespace quenlor::platform::qt {

// A drawing surface on a painter: an image, a PDF page, an SVG picture.
//
// The painter's coordinates count as the device's pixels; `size` is how many there are. For a page they are
// made fine (QPdfWriter's resolution, a scaled painter for SVG) and `pen_scale` says how many of them make a
// thin line; on a screen it is the device pixel ratio. The painter's pen, clip and render hints are the
// surface's while it lives. An inactive painter draws nothing.
class QtDrawingSurface final : public DrawingSurface {
 public:
  QtDrawingSurface(QPainter& painter, QSize size, double pen_scale = 1);

  PixelRectangle Whole() const override { return {0, 0, size_.width(), size_.height()}; }
  double PenScale() const override { return pen_scale_; }
  bool KeepsLines() const override { return painter_.isActive() && !PaintsPixels(); }
  std::span<const std::uint32_t> PixelsOf(int row) const override;
  void SetViewport(const Viewport& viewport) override;
  const Viewport& CurrentViewport() const override { return viewport_; }
  void SetPen(const Pen& pen) override;
  void Clear(Rgb color) override;
  void DrawLines(std::span<const Segment> lines) override;
  void DrawCircle(Point centre, double radius) override;
  void DrawCross(Point centre, double half_width, double half_height) override;
  void DrawText(Point position, Across across, Down down, std::string_view text, double height) override;
  double TextWidth(std::string_view text, double height) const override;

  // How wide DrawText makes a text in letters of so many pixels, with a painter of that font; in pixels.
  static double TextWidthIn(const QFont& font, std::string_view text, double pixels);

 private:
  // A marker as drawn once, to be laid wherever it is needed again.
  struct Stamp {
    Pen pen;
    QSize half;
    bool circle;
    QImage picture;
  };

  QFont FontOf(double height) const { return FontOf(painter_.font(), viewport_.Down(height)); }
  static QFont FontOf(QFont font, double pixels);
  QPoint PixelAt(Point point) const { return {viewport_.Column(point.x), viewport_.Row(point.y)}; }
  QPointF PlaceOf(Point point) const;
  bool PaintsPixels() const;
  const QImage* Picture() const;
  void DrawPixelLines(std::span<const Segment> lines);
  void DrawCoverage(std::span<const Segment> lines);
  void DrawOutline(const QRectF& place, const QString& text);
  void DrawMarker(QPoint centre, QSize half, bool circle);
  const QImage& StampOf(QSize half, bool circle);
  bool OutOfSight(Point centre, double half_width, double half_height) const;

  QPainter& painter_;
  QSize size_;
  double pen_scale_;
  const QImage* picture_;  // whose pixels are the device's; nothing where there is no such picture
  Viewport viewport_;
  Pen pen_;
  std::vector<QLine> pixel_lines_;  // kept from call to call, for their memory
  std::vector<QLineF> smooth_lines_;
  std::vector<Stamp> stamps_;
};

}  // namespace quenlor::platform::qt
