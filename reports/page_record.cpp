// SPDX-License-Identifier: MIT
#include "reports/page_record.h"

#include <algorithm>

namespace quenlor::reports {
namespace {

template <class... Replays>
struct Overloaded : Replays... {
  using Replays::operator()...;
};
template <class... Replays>
Overloaded(Replays...) -> Overloaded<Replays...>;  // clang 14 does not find it by itself

}  // namespace

PageRecord::PageRecord(double width_twips, double height_twips, Measure measure)
    : whole_(platform::DotsOf({width_twips, height_twips})),
      viewport_(whole_, {0, 0, std::max(1.0, 1.0 * whole_.width), std::max(1.0, 1.0 * whole_.height)}),
      measure_(std::move(measure)) {}

void PageRecord::Replay(DrawingSurface& surface) const {
  const Overloaded replay{
      [&](const platform::Viewport& viewport) { surface.SetViewport(viewport); },
      [&](const platform::Pen& pen) { surface.SetPen(pen); },
      [&](const platform::Rgb& color) { surface.Clear(color); },
      [&](const Lines& call) { surface.DrawLines(call.lines); },
      [&](const Circle& call) { surface.DrawCircle(call.centre, call.radius); },
      [&](const Cross& call) { surface.DrawCross(call.centre, call.half_width, call.half_height); },
      [&](const Text& call) {
        surface.DrawText(call.position, call.across, call.down, call.text, call.height);
      }};
  for (const Call& call : calls_) std::visit(replay, call);
}

void PageRecord::SetViewport(const platform::Viewport& viewport) {
  viewport_ = viewport;
  calls_.emplace_back(viewport);
}

void PageRecord::SetPen(const platform::Pen& pen) { calls_.emplace_back(pen); }

void PageRecord::Clear(platform::Rgb color) { calls_.emplace_back(color); }

void PageRecord::DrawLines(std::span<const platform::Segment> lines) {
  calls_.emplace_back(Lines{{lines.begin(), lines.end()}});
}

void PageRecord::DrawCircle(platform::Point centre, double radius) {
  calls_.emplace_back(Circle{centre, radius});
}

void PageRecord::DrawCross(platform::Point centre, double half_width, double half_height) {
  calls_.emplace_back(Cross{centre, half_width, half_height});
}

void PageRecord::DrawText(platform::Point position, platform::Across across, platform::Down down,
                          std::string_view text, double height) {
  calls_.emplace_back(Text{position, across, down, std::string(text), height});
}

double PageRecord::TextWidth(std::string_view text, double height) const {
  const double across = viewport_.Across(1);
  return measure_ && across > 0 ? measure_(text, viewport_.Down(height)) / across : 0;
}

}  // namespace quenlor::reports
