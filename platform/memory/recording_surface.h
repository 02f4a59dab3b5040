// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing_surface.h"

namespace quenlor::platform::memory {

// A drawing surface that keeps a record of what is drawn, every line of a batch on its own.
class RecordingSurface : public DrawingSurface {
 public:
  struct Call {
    enum class Kind { kClear, kLine, kCircle, kCross, kText };
    Kind kind = Kind::kClear;
    Viewport viewport;  // it was drawn on
    Pen pen;            // it was drawn with; of Clear only the colour counts
    Segment line;       // the position of everything but a line is its first point
    double across = 0;  // a circle's radius, a cross's half width
    double down = 0;    // a cross's half height, a text's height
    std::string text;
    Across text_across = Across::kLeft;
    Down text_down = Down::kTop;

    bool operator==(const Call&) const = default;
  };

  explicit RecordingSurface(int width = 1000, int height = 1000, double pen_scale = 1)
      : whole_{0, 0, width, height}, pen_scale_(pen_scale) {}

  PixelRectangle Whole() const override { return whole_; }
  double PenScale() const override { return pen_scale_; }
  bool KeepsLines() const override { return keeps_lines_; }
  void SetKeepsLines() { keeps_lines_ = true; }  // it counts as a surface of pixels otherwise
  void SetViewport(const Viewport& viewport) override { viewport_ = viewport; }
  const Viewport& CurrentViewport() const override { return viewport_; }
  void SetPen(const Pen& pen) override { pen_ = pen; }
  void Clear(Rgb color) override;
  void DrawLines(std::span<const Segment> lines) override;
  void DrawCircle(Point centre, double radius) override;
  void DrawCross(Point centre, double half_width, double half_height) override;
  void DrawText(Point position, Across across, Down down, std::string_view text, double height) override;
  // Every character is half as wide as the letters are high, counted in device pixels.
  double TextWidth(std::string_view text, double height) const override;

  const std::vector<Call>& Calls() const { return calls_; }
  std::vector<Call> Calls(Call::Kind kind) const;
  int LineBatches() const { return line_batches_; }  // calls of DrawLines
  void Forget() { calls_.clear(); }

 private:
  Call& Record(Call::Kind kind);

  PixelRectangle whole_;
  double pen_scale_;
  bool keeps_lines_ = false;
  Viewport viewport_;
  Pen pen_;
  std::vector<Call> calls_;
  int line_batches_ = 0;
};

void PrintTo(const RecordingSurface::Call& call, std::ostream* out);

}  // namespace quenlor::platform::memory
