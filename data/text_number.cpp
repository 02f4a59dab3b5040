// SPDX-License-Identifier: MIT
#include "data/text_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace quenlor::data {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

struct DecimalNumber {
  std::size_t begin = 0;  // after blanks and a "+"
  std::size_t end = 0;
  std::size_t comma = std::string_view::npos;  // where a decimal comma stands, if one does
};

// Where the decimal number at the start of the text stands; empty when there is none.
DecimalNumber FindNumber(std::string_view text) {
  DecimalNumber found;
  std::size_t at = text.find_first_not_of(" \t");
  if (at == std::string_view::npos) return found;
  found.begin = at;
  if (text[at] == '+')
    found.begin = ++at;
  else if (text[at] == '-')
    ++at;

  const std::size_t whole = at;
  at = SkipDigits(text, at);
  std::size_t digits = at - whole;
  if (at < text.size() && (text[at] == '.' || text[at] == ',')) {
    const std::size_t point = at;
    at = SkipDigits(text, point + 1);
    digits += at - point - 1;
    if (text[point] == ',') found.comma = point;
  }
  if (digits == 0) return {};

  if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t exponent_end = SkipDigits(text, exponent);
    if (exponent_end > exponent) at = exponent_end;
  }
  found.end = at;
  return found;
}

// std::from_chars leaves the value alone when it cannot be held; which way it missed shows in the power of
// ten of the first digit that is not zero.
double OutOfRange(std::string_view number) {
  const bool negative = number.front() == '-';
  const std::size_t digits_end = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, digits_end);
  const std::string_view exponent = number.substr(std::min(digits_end + 1, number.size()));
  const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
  const auto first_digit = static_cast<double>(digits.find_first_of("123456789"));
  const bool tiny = point - first_digit + C_Val(exponent) < 0;
  const double magnitude = tiny ? 0.0 : std::numeric_limits<double>::max();
  return negative ? -magnitude : magnitude;
}

double ReadDecimal(std::string_view number) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  return error == std::errc::result_out_of_range ? OutOfRange(number) : value;
}

// The nearest finite number, so that sums of numbers that are too large still are numbers.
double Bounded(double value) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  return std::clamp(value, -kLargest, kLargest);
}

}  // namespace

std::optional<double> LeadingNumber(std::string_view text) {
  const DecimalNumber found = FindNumber(text);
  if (found.end == 0) return std::nullopt;
  const std::string_view number = text.substr(found.begin, found.end - found.begin);
  if (found.comma == std::string_view::npos) return ReadDecimal(number);

  std::string with_point(number);
  with_point[found.comma - found.begin] = '.';
  return ReadDecimal(with_point);
}

double C_Val(std::string_view text) { return LeadingNumber(text).value_or(0.0); }

std::string GeneralText(double value) {
  if (value == 0) return "0";  // also for the negative zero
  char buffer[40];
  const auto [end, error] =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
  std::string text(buffer, end);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

std::string TenthsText(double value) {
  // Beyond this no tenths are left in a double, and the text would only grow.
  constexpr double kLimit = 1e14;
  const double bounded = std::isfinite(value) ? std::clamp(value, -kLimit, kLimit) : 0.0;
  const auto tenths = std::llround(std::fabs(bounded) * 10);
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%s%02lld.%lld", bounded < 0 && tenths != 0 ? "-" : "", tenths / 10,
                tenths % 10);
  return buffer;
}

std::string SecondsToTime(double seconds) {
  constexpr double kLimit = 1e15;
  const double bounded = std::isfinite(seconds) ? std::clamp(seconds, -kLimit, kLimit) : 0.0;
  const auto whole = static_cast<long long>(std::nearbyint(bounded));
  const auto part = [](long long value) {
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "%s%02lld", value < 0 ? "-" : "", std::llabs(value));
    return std::string(buffer);
  };
  return part(whole / 3600) + ":" + part(whole / 60 % 60) + ":" + part(whole % 60);
}

double TimeToSeconds(std::string_view text) {
  const std::size_t first = text.find(':');
  if (first == std::string_view::npos) return C_Val(text);
  const std::size_t second = text.find(':', first + 1);
  const double hours = Bounded(C_Val(text.substr(0, first)) * 3600);
  if (second == std::string_view::npos) return Bounded(hours + Bounded(C_Val(text.substr(first + 1)) * 60));
  const double minutes = Bounded(C_Val(text.substr(first + 1, second - first - 1)) * 60);
  return Bounded(Bounded(hours + minutes) + C_Val(text.substr(second + 1)));
}

}  // namespace quenlor::data
