// SPDX-License-Identifier: MIT
#include "data/text_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace quenlor::data {
namespace {

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

// The same, and the digits are added to a whole number, which means nothing when they are too many for it.
std::size_t TakeDigits(std::string_view text, std::size_t at, std::uint64_t& number) {
  for (; at < text.size() && IsDigit(text[at]); ++at)
    number = number * 10 + static_cast<std::uint64_t>(text[at] - '0');
  return at;
}

constexpr std::array kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The number of a short plain text ("12.5", "-7"), as an instrument sends them; nothing for any other text.
// Its digits and its power of ten are doubles without an error, so one division gives the nearest double.
std::optional<double> PlainNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  const std::size_t whole = negative ? 1 : 0;
  std::uint64_t number = 0;
  std::size_t at = TakeDigits(text, whole, number);
  std::size_t digits = at - whole;
  std::size_t decimals = 0;
  if (at < text.size() && (text[at] == '.' || text[at] == ',')) {
    const std::size_t point = at;
    at = TakeDigits(text, point + 1, number);
    decimals = at - point - 1;
    digits += decimals;
  }
  if (at < text.size() || digits == 0 || digits >= kPowersOfTen.size()) return std::nullopt;
  const double value = static_cast<double>(number) / kPowersOfTen[decimals];
  return negative ? -value : value;
}

// The seconds of "hh:mm:ss" in plain digits; nothing for any other text.
std::optional<double> ClockTime(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  std::uint64_t seconds = 0;
  std::size_t at = 0;
  for (int part = 0; part < 3; ++part) {
    if (part > 0 && (at == text.size() || text[at++] != ':')) return std::nullopt;
    std::uint64_t number = 0;
    const std::size_t end = TakeDigits(text, at, number);
    if (end == at || end - at > kMostDigits) return std::nullopt;
    seconds = seconds * 60 + number;
    at = end;
  }
  if (at < text.size()) return std::nullopt;
  return static_cast<double>(seconds);
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

// At least two.
void AppendTwoDigits(std::string& text, long long number) {
  if (number < 0) text += '-';
  const std::string digits = std::to_string(std::llabs(number));
  if (digits.size() < 2) text += '0';
  text += digits;
}

}  // namespace

double Bounded(double x) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  return std::isnan(x) ? 0.0 : std::clamp(x, -kLargest, kLargest);
}

std::optional<double> LeadingNumber(std::string_view text) {
  if (const auto plain = PlainNumber(text)) return *plain;
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
  std::string text(bounded < 0 && tenths != 0 ? "-" : "");
  AppendTwoDigits(text, tenths / 10);
  text += '.';
  return text += static_cast<char>('0' + tenths % 10);
}

std::string SecondsToTime(double seconds) {
  constexpr double kLimit = 1e15;
  const double bounded = std::isfinite(seconds) ? std::clamp(seconds, -kLimit, kLimit) : 0.0;
  const auto whole = static_cast<long long>(std::nearbyint(bounded));
  std::string text;
  AppendTwoDigits(text, whole / 3600);
  text += ':';
  AppendTwoDigits(text, whole / 60 % 60);
  text += ':';
  AppendTwoDigits(text, whole % 60);
  return text;
}

double TimeToSeconds(std::string_view text) {
  if (const auto seconds = ClockTime(text)) return *seconds;
  const std::size_t first = text.find(':');
  if (first == std::string_view::npos) return C_Val(text);
  const std::size_t second = text.find(':', first + 1);
  const double hours = Bounded(C_Val(text.substr(0, first)) * 3600);
  if (second == std::string_view::npos) return Bounded(hours + Bounded(C_Val(text.substr(first + 1)) * 60));
  const double minutes = Bounded(C_Val(text.substr(first + 1, second - first - 1)) * 60);
  return Bounded(Bounded(hours + minutes) + C_Val(text.substr(second + 1)));
}

}  // namespace quenlor::data
