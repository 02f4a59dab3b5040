// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <span>
#include <string_view>

namespace quenlor::platform {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Segment {
  Point from;
  Point to;
  bool operator==(const Segment&) const = default;
};

struct PixelRectangle {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool Empty() const { return width <= 0 || height <= 0; }
  bool operator==(const PixelRectangle&) const = default;
};

// A coordinate system by its left and top ends and its extents; y runs downwards.
struct Units {
  double left = 0;
  double top = 0;
  double width = 1;
  double height = 1;
  bool operator==(const Units&) const = default;
};

// A coordinate system laid over a rectangle of device pixels.
//
// Every position belongs to the pixel that holds it; pixels are counted on the device and may lie outside of
// the rectangle, at most kFarthest away from the device's corner. Both ways are monotone: a larger x is never
// in an earlier column.
class Viewport {
 public:
  static constexpr int kFarthest = 1 << 24;

  Viewport() = default;
  Viewport(const PixelRectangle& area, const Units& units)
      : area_(area),
        units_(units),
        x_factor_(area.width / units.width),
        y_factor_(area.height / units.height) {}

  const PixelRectangle& Area() const { return area_; }
  const Units& CoordinateSystem() const { return units_; }

  double DeviceX(double x) const { return area_.left + (x - units_.left) * x_factor_; }
  double DeviceY(double y) const { return area_.top + (y - units_.top) * y_factor_; }
  int Column(double x) const { return PixelOf(DeviceX(x)); }
  int Row(double y) const { return PixelOf(DeviceY(y)); }

  // A length in device pixels: across, down, and for what shall look round, whose area stays the same.
  double Across(double length) const { return length * x_factor_; }
  double Down(double length) const { return length * y_factor_; }
  double Round(double length) const { return length * std::sqrt(x_factor_ * y_factor_); }

  bool operator==(const Viewport&) const = default;

 private:
  static int PixelOf(double position) {
    if (!(position > -kFarthest)) return -kFarthest;  // not a number, too
    if (position > kFarthest) return kFarthest;
    const int pixel = static_cast<int>(position);
    return position < pixel ? pixel - 1 : pixel;
  }

  PixelRectangle area_;
  Units units_;
  double x_factor_ = 0;
  double y_factor_ = 0;
};

struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
  bool operator==(const Rgb&) const = default;
};

enum class LineStyle { kSolid, kDotted };

struct Pen {
  Rgb color;
  int width = 1;  // 1 or 2; how many device pixels that is, the surface knows
  LineStyle style = LineStyle::kSolid;
  bool smooth = false;  // antialiased, and not moved to whole pixels
  bool operator==(const Pen&) const = default;
};

enum class Across { kLeft, kCentre, kRight };  // which point of a text stands at the position given
enum class Down { kTop, kCentre, kBottom };

// Something to draw on: a picture on the screen, an image, a page. The adapter stands on a painter, the twin
// keeps a record for a test.
//
// Coordinates are those of the viewport; nothing outside of its area is touched. Without a smooth pen, lines
// run from middle to middle of the pixels that hold their ends (a line without length is a dot), and the
// middles of circles and crosses are middles of pixels: equal pixels, equal drawing. Coordinates may be as
// large as they like.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  virtual PixelRectangle Whole() const = 0;  // of the device, from 0, 0
  virtual double PenScale() const = 0;       // device pixels of a pen of width 1

  virtual void SetViewport(const Viewport& viewport) = 0;
  virtual const Viewport& CurrentViewport() const = 0;
  virtual void SetPen(const Pen& pen) = 0;  // for everything but Clear; a text takes its colour

  virtual void Clear(Rgb color) = 0;  // the viewport's area
  virtual void DrawLines(std::span<const Segment> lines) = 0;
  // An outline that looks round, whatever the units are; see Viewport::Round.
  virtual void DrawCircle(Point centre, double radius) = 0;
  // Two diagonals of a rectangle of twice the half sizes.
  virtual void DrawCross(Point centre, double half_width, double half_height) = 0;
  // One line of text in letters of the height given.
  virtual void DrawText(Point position, Across across, Down down, std::string_view text, double height) = 0;

  void DrawLine(Point from, Point to) {
    const Segment line{from, to};
    DrawLines({&line, 1});
  }
};

}  // namespace quenlor::platform
