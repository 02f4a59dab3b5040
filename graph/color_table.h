// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace quenlor::graph {

// A 24-bit colour in blue-green-red order: red in the lowest byte.
struct Color {
  std::uint32_t value = 0;

  constexpr int Red() const { return static_cast<int>(value & 0xFF); }
  constexpr int Green() const { return static_cast<int>((value >> 8) & 0xFF); }
  constexpr int Blue() const { return static_cast<int>((value >> 16) & 0xFF); }
};

// The colours of the runs: run n has entry n mod 10.
using ColorTable = std::array<Color, 10>;

inline constexpr ColorTable kDefaultColors = {{{0xFFCCFF}, {0x0000FF}, {0x00BB00}, {0xFF9900}, {0xFF00CC},
                                               {0x00BBFF}, {0x0000CC}, {0xFFFF00}, {0x00FF99}, {0x00EEEE}}};

constexpr Color RunColor(const ColorTable& colors, long long run) {
  return colors[static_cast<std::size_t>((run % 10 + 10) % 10)];
}

}  // namespace quenlor::graph
