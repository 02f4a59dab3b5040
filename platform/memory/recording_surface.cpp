// SPDX-License-Identifier: MIT
#include "platform/memory/recording_surface.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <ostream>

namespace quenlor::platform::memory {

void RecordingSurface::Clear(Rgb color) { Record(Call::Kind::kClear).pen = {color}; }

void RecordingSurface::DrawLines(std::span<const Segment> lines) {
  ++line_batches_;
  for (const Segment& line : lines) Record(Call::Kind::kLine).line = line;
}

void RecordingSurface::DrawCircle(Point centre, double radius) {
  Call& call = Record(Call::Kind::kCircle);
  call.line.from = centre;
  call.across = radius;
}

void RecordingSurface::DrawCross(Point centre, double half_width, double half_height) {
  Call& call = Record(Call::Kind::kCross);
  call.line.from = centre;
  call.across = half_width;
  call.down = half_height;
}

void RecordingSurface::DrawText(Point position, Across across, Down down, std::string_view text,
                                double height) {
  Call& call = Record(Call::Kind::kText);
  call.line.from = position;
  call.text_across = across;
  call.text_down = down;
  call.text = text;
  call.down = height;
}

double RecordingSurface::TextWidth(std::string_view text, double height) const {
  const auto characters = std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; });
  const double across = viewport_.Across(1);
  return across > 0 ? static_cast<double>(characters) * viewport_.Down(height) / 2 / across : 0;
}

std::vector<RecordingSurface::Call> RecordingSurface::Calls(Call::Kind kind) const {
  std::vector<Call> calls;
  std::ranges::copy_if(calls_, std::back_inserter(calls),
                       [&](const Call& call) { return call.kind == kind; });
  return calls;
}

RecordingSurface::Call& RecordingSurface::Record(Call::Kind kind) {
  Call& call = calls_.emplace_back();
  call.kind = kind;
  call.viewport = viewport_;
  call.pen = pen_;
  return call;
}

void PrintTo(const RecordingSurface::Call& call, std::ostream* out) {
  constexpr std::array kNames = {"clear", "line", "circle", "cross", "text"};
  const auto [from, to] = call.line;
  *out << kNames[static_cast<std::size_t>(call.kind)] << " (" << from.x << ", " << from.y << ")";
  if (call.kind == RecordingSurface::Call::Kind::kLine) *out << " to (" << to.x << ", " << to.y << ")";
  *out << " size " << call.across << " x " << call.down << " \"" << call.text << "\" colour "
       << call.pen.color.red << "," << call.pen.color.green << "," << call.pen.color.blue << " width "
       << call.pen.width << (call.pen.style == LineStyle::kDotted ? " dotted" : " solid")
       << (call.pen.smooth ? " smooth" : "");
}

}  // namespace quenlor::platform::memory
