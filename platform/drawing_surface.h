// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/viewport.h"

namespace quenlor::platform {

struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
  bool operator==(const Rgb&) const = default;
};

enum class LineStyle { kSolid, kDotted };

struct Pen {
  Rgb color;
  double width = 1;  // in pens; how many device pixels one is, the surface knows
  LineStyle style = LineStyle::kSolid;
  bool smooth = false;              // antialiased, and not moved to whole pixels
  std::optional<Rgb> outline = {};  // thin, round the letters of texts
  bool operator==(const Pen&) const = default;
};

enum class Across { kLeft, kCentre, kRight };  // which point of a text stands at the position given
enum class Down { kTop, kCentre, kBottom };

// Something to draw on: a picture on the screen, an image, a page. The adapter stands on a painter, the twin
// keeps a record for a test.
//
// Coordinates are those of the viewport; nothing outside of its area is touched. Without a smooth pen, lines
// run from middle to middle of the pixels that hold their ends (a line without length is a dot), and the
// middles of circles and crosses are middles of pixels: equal pixels, equal drawing. Where pixels are painted
// with a smooth pen, the lines of one call are one shape: they leave the same where they meet as where they
// do not. Coordinates may be as large as they like.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  virtual PixelRectangle Whole() const = 0;  // of the device, from 0, 0
  virtual double PenScale() const = 0;       // device pixels of a pen of width 1

  // Whether lines are kept as lines (on paper, in PDF and SVG files) and not as the pixels that they paint:
  // there, a line that others hide costs as much as they do.
  virtual bool KeepsLines() const = 0;

  // What has been painted so far, where the device is a picture that can be looked at: the pixels of a row
  // from left to right, as 0xFFRRGGBB. Empty elsewhere.
  virtual std::span<const std::uint32_t> PixelsOf(int /*row*/) const { return {}; }

  virtual void SetViewport(const Viewport& viewport) = 0;
  virtual const Viewport& CurrentViewport() const = 0;
  virtual void SetPen(const Pen& pen) = 0;  // for everything but Clear; a text takes its colours

  virtual void Clear(Rgb color) = 0;  // the viewport's area
  virtual void DrawLines(std::span<const Segment> lines) = 0;
  // An outline that looks round, whatever the units are; see Viewport::Round.
  virtual void DrawCircle(Point centre, double radius) = 0;
  // Two diagonals of a rectangle of twice the half sizes.
  virtual void DrawCross(Point centre, double half_width, double half_height) = 0;
  // One line of text in letters of the height given; control characters are blanks.
  virtual void DrawText(Point position, Across across, Down down, std::string_view text, double height) = 0;
  // How wide that line of text would be, in the viewport's units across.
  virtual double TextWidth(std::string_view text, double height) const = 0;

  void DrawLine(Point from, Point to) {
    const Segment line{from, to};
    DrawLines({&line, 1});
  }
};

}  // namespace quenlor::platform
