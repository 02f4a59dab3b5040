// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace quenlor::platform {

// Windows and pages are measured in twips. A pixel is a 96th of an inch, whatever the screen, and so is a pen
// of width 1.
inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPixel = kTwipsPerInch / 96;
inline int PixelsOf(double twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }

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
  double XAt(double device_x) const { return units_.left + (device_x - area_.left) / x_factor_; }
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

}  // namespace quenlor::platform
