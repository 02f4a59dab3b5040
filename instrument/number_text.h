// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quenlor::instrument {

// Numbers as the options and the lines of the instrument write them: with a decimal point,
// whatever the locale.

// The whole text as a number between -1e9 and 1e9; nothing for any other text. The bounds keep
// every curve finite.
std::optional<double> ParseNumber(std::string_view text);

// The whole text as a whole number of 0 or more; nothing for any other text.
std::optional<std::int64_t> ParseCount(std::string_view text);

// With one decimal: "1234.5". A value that rounds to zero has no sign.
std::string OneDecimal(double value);

}  // namespace quenlor::instrument
