// SPDX-License-Identifier: MIT
#include "reports/pattern_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quenlor::reports {
namespace {

constexpr int kSignificantDigits = 15;
constexpr int kMostDecimals = 9;

// One more in the last place of a row of digits; a 1 goes before them when all were nines.
void CountUp(std::string& digits) {
  for (std::size_t at = digits.size(); at-- > 0;) {
    if (digits[at] != '9') {
      ++digits[at];
      return;
    }
    digits[at] = '0';
  }
  digits.insert(digits.begin(), '1');
}

// The digits of a number that is not negative, times 10^decimals, rounded to a whole number.
std::string DigitsOf(double value, int decimals) {
  char buffer[40];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                          std::chars_format::scientific, kSignificantDigits - 1);
  const char* const mark = std::find(buffer, end, 'e');
  int exponent = 0;
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, exponent);
  std::string digits(1, buffer[0]);
  digits.append(buffer + 2, std::size_t{kSignificantDigits - 1});

  const int kept = exponent + 1 + decimals;
  if (kept < 0) return "0";
  const auto size = static_cast<std::size_t>(kept);
  const bool up = size < digits.size() && digits[size] >= '5';
  digits.resize(size, '0');
  if (up) CountUp(digits);
  return digits;
}

}  // namespace

std::string PatternText(double value, int decimals) {
  decimals = std::clamp(decimals, 0, kMostDecimals);
  std::string text = DigitsOf(std::fabs(value), decimals);
  const auto behind_point = static_cast<std::size_t>(decimals);
  if (text.size() <= behind_point) text.insert(0, behind_point + 1 - text.size(), '0');
  const bool is_zero = text.find_first_not_of('0') == std::string::npos;
  text.insert(text.size() - behind_point, 1, '.');
  return value < 0 && !is_zero ? "-" + text : text;
}

}  // namespace quenlor::reports
