// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace quenlor::platform {

enum class StopBits { kOne, kOneAndHalf, kTwo };

// The joined settings text of a line, taken apart: "9600N81" is 9600 bits/s, no parity, 8 data bits,
// 1 stop bit.
struct LineSettings {
  int speed = 0;      // bits per second, above 0
  char parity = 0;    // 'E', 'O' or 'N'
  int data_bits = 0;  // 7 or 8
  StopBits stop_bits = StopBits::kOne;
};

// Empty when the text is anything else than speed, parity, data bits and stop bits without separators.
inline std::optional<LineSettings> ParseLineSettings(std::string_view text) {
  const auto first_letter = text.find_first_not_of("0123456789");
  if (first_letter == text.npos || text.size() - first_letter < 3) return std::nullopt;
  LineSettings settings;
  const auto speed = std::from_chars(text.data(), text.data() + first_letter, settings.speed);
  if (speed.ec != std::errc() || settings.speed <= 0) return std::nullopt;

  settings.parity = text[first_letter];
  settings.data_bits = text[first_letter + 1] - '0';
  const auto stop_bits = text.substr(first_letter + 2);
  if (std::string_view("EON").find(settings.parity) == std::string_view::npos) return std::nullopt;
  if (settings.data_bits != 7 && settings.data_bits != 8) return std::nullopt;
  if (stop_bits == "1") {
    settings.stop_bits = StopBits::kOne;
  } else if (stop_bits == "1.5") {
    settings.stop_bits = StopBits::kOneAndHalf;
  } else if (stop_bits == "2") {
    settings.stop_bits = StopBits::kTwo;
  } else {
    return std::nullopt;
  }
  return settings;
}

}  // namespace quenlor::platform
