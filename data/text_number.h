// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quenlor::data {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// x as a finite number, so that sums of numbers that are too large still are numbers: the largest one of its
// sign for an infinity, 0 for NaN.
double Bounded(double x);

// The number at the start of a text: leading blanks are skipped, then the longest decimal number counts (a
// sign, digits with at most one "." or ",", an exponent with E). Nothing when the text does not start with a
// number. Numbers too large for a double become the largest one. Never looks at the locale.
std::optional<double> LeadingNumber(std::string_view text);

// Text to number, the way every cell and every file of a document is read: LeadingNumber, else
// 0. Never fails.
double C_Val(std::string_view text);

// Number to text in general form: up to 15 significant digits, as few as needed, "." as the decimal point, no
// leading blank ("0", "12.5", "-3", "1E+20").
std::string GeneralText(double value);

// Number to text with the pattern "00.0": one decimal, at least two digits before it, halves away from zero.
std::string TenthsText(double value);

// Seconds to "hh:mm:ss", rounded to whole seconds (halves to even); hours grow beyond two digits. Each part
// of a negative time carries its own sign, so that TimeToSeconds gives the same time back.
std::string SecondsToTime(double seconds);

// Seconds of a time text: "90" (seconds), "1:30" (hours:minutes) and "0:01:30" are understood.
double TimeToSeconds(std::string_view text);

}  // namespace quenlor::data
