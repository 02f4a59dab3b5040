// SPDX-License-Identifier: MIT
#include "instrument/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace quenlor::instrument {
namespace {

constexpr double kLargestNumber = 1e9;

template <class T>
std::optional<T> ParseWhole(std::string_view text) {
  T value{};
  const char* const end = text.data() + text.size();
  const auto [stopped_at, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stopped_at != end) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
  const auto number = ParseWhole<double>(text);
  // Written so that "nan", which compares with nothing, is refused too.
  if (!number || !(std::abs(*number) <= kLargestNumber)) return std::nullopt;
  return number;
}

std::optional<std::int64_t> ParseCount(std::string_view text) {
  const auto count = ParseWhole<std::int64_t>(text);
  if (!count || *count < 0) return std::nullopt;
  return count;
}

std::string OneDecimal(double value) {
  std::array<char, 320> buffer;  // the largest double has 309 digits before the point
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 1).ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  return std::string(text == "-0.0" ? "0.0" : text);
}

}  // namespace quenlor::instrument
