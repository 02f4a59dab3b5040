// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quenlor::graph {

// A 24-bit colour in blue-green-red order: red in the lowest byte.
struct Color {
  std::uint32_t value = 0;

  constexpr int Red() const { return static_cast<int>(value & 0xFF); }
  constexpr int Green() const { return static_cast<int>((value >> 8) & 0xFF); }
  constexpr int Blue() const { return static_cast<int>((value >> 16) & 0xFF); }

  friend constexpr bool operator==(Color, Color) = default;
};

inline constexpr Color kBlack{0x000000};
inline constexpr Color kWhite{0xFFFFFF};

// Black or white, whichever has the higher contrast on that background. The eye takes green as
// brightest and blue as darkest (Rec. 709 weights); squares stand in for the screen's gamma; at 0.18
// the contrasts are equal.
constexpr Color ReadableOn(Color background) {
  const auto square = [](int level) { return level * level; };
  const int light =
      2126 * square(background.Red()) + 7152 * square(background.Green()) + 722 * square(background.Blue());
  return light > 1800 * square(255) ? kBlack : kWhite;
}

// The colours of the runs: run n has entry n mod 10.
using ColorTable = std::array<Color, 10>;

inline constexpr ColorTable kDefaultColors = {{{0xFFCCFF},
                                               {0x0000FF},
                                               {0x00BB00},
                                               {0xFF9900},
                                               {0xFF00CC},
                                               {0x00BBFF},
                                               {0x0000CC},
                                               {0xFFFF00},
                                               {0x00FF99},
                                               {0x00EEEE}}};

// Of any run number, also of none and of negative ones.
constexpr Color RunColor(const ColorTable& colors, long long run) {
  return colors[static_cast<std::size_t>((run % 10 + 10) % 10)];
}

// The colours of a viscosity and a temperature curve. Those of a single series tell the quantities apart;
// from two series on, colours tell the series apart and say nothing about the quantity.
struct QuantityColors {
  Color visco;
  Color temp;
};

constexpr QuantityColors CurveColors(const ColorTable& colors, long long run, bool several_series) {
  const Color series = RunColor(colors, run);
  return {series, several_series ? series : colors[3]};
}

// Those of the samples beside the titles of the axes.
constexpr QuantityColors SampleColors(const ColorTable& colors, Color neutral, bool several_series) {
  return several_series ? QuantityColors{neutral, neutral} : QuantityColors{colors[1], colors[3]};
}

}  // namespace quenlor::graph
