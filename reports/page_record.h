// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/printer.h"

namespace quenlor::reports {

// A page drawn once, to be shown and printed as often as wanted: the preview and the paper get the same
// calls, whatever becomes of the readings in between.
//
// It is replayed onto surfaces of its own size. Texts
// are measured by `measure`: the width of a text in letters of a height, both in dots.
class PageRecord : public platform::DrawingSurface {
 public:
  using Measure = std::function<double(std::string_view text, double height)>;

  PageRecord() : PageRecord(0, 0, {}) {}
  PageRecord(double width_twips, double height_twips, Measure measure);

  void Replay(platform::DrawingSurface& surface) const;

  platform::PixelRectangle Whole() const override { return whole_; }
  double PenScale() const override { return platform::kPageDotsPerPen; }
  bool KeepsLines() const override { return true; }
  void SetViewport(const platform::Viewport& viewport) override;
  const platform::Viewport& CurrentViewport() const override { return viewport_; }
  void SetPen(const platform::Pen& pen) override;
  void Clear(platform::Rgb color) override;
  void DrawLines(std::span<const platform::Segment> lines) override;
  void DrawCircle(platform::Point centre, double radius) override;
  void DrawCross(platform::Point centre, double half_width, double half_height) override;
  void DrawText(platform::Point position, platform::Across across, platform::Down down, std::string_view text,
                double height) override;
  double TextWidth(std::string_view text, double height) const override;

 private:
  struct Lines {
    std::vector<platform::Segment> lines;
  };
  struct Circle {
    platform::Point centre;
    double radius;
  };
  struct Cross {
    platform::Point centre;
    double half_width;
    double half_height;
  };
  struct Text {
    platform::Point position;
    platform::Across across;
    platform::Down down;
    std::string text;
    double height;
  };
  using Call = std::variant<platform::Viewport, platform::Pen, platform::Rgb, Lines, Circle, Cross, Text>;

  platform::PixelRectangle whole_;
  platform::Viewport viewport_;
  Measure measure_;
  std::vector<Call> calls_;
};

}  // namespace quenlor::reports
