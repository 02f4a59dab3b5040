// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstring>

#include "data/text_number.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"

namespace quenlor::fuzz {
namespace {

void CheckText(std::string_view text) {
  const auto number = data::LeadingNumber(text);
  const double value = data::C_Val(text);
  Check(value == number.value_or(0), "a text without a number is 0");
  Check(std::isfinite(value), "every number is finite");
  Check(std::isfinite(data::TimeToSeconds(text)), "every time is finite");

  Check(data::LeadingNumber("\t " + std::string(text)) == number, "blanks before a number are skipped");
  Check(data::LeadingNumber(std::string(text) + " ") == number, "a blank behind a number ends it");
  if (text.starts_with('.') || text.find_first_of("0123456789") == 0) {
    Check(data::LeadingNumber("+" + std::string(text)) == number, "a plus changes nothing");
    Check(data::C_Val("-" + std::string(text)) == -value, "a minus changes the sign");
  }
  std::string with_points(text);
  std::replace(with_points.begin(), with_points.end(), ',', '.');
  Check(data::LeadingNumber(with_points) == number, "a decimal comma is a decimal point");
}

void CheckGeneralText(double value) {
  const std::string text = data::GeneralText(value);
  const double again = data::C_Val(text);
  Check(std::fabs(again - value) <= std::fabs(value) * 1e-14, "15 digits of a number come back");
  Check(data::GeneralText(again) == text, "a number's text stays as it is");
  Check(text.find_first_not_of("0123456789.-+E") == text.npos, "a number's text is a number");
}

void CheckTenthsText(double value) {
  constexpr double kLimit = 1e14;
  const double bounded = std::clamp(value, -kLimit, kLimit);
  const double again = data::C_Val(data::TenthsText(value));
  Check(std::fabs(again - bounded) <= 0.05 + std::fabs(bounded) * 1e-15, "a tenth is the nearest one");
}

void CheckTime(double seconds) {
  constexpr double kLimit = 1e15;
  const double whole = std::nearbyint(std::clamp(seconds, -kLimit, kLimit));
  Check(data::TimeToSeconds(data::SecondsToTime(seconds)) == whole, "whole seconds of a time come back");
}

void CheckNumber(double value) {
  CheckGeneralText(value);
  CheckTenthsText(value);
  CheckTime(value);
}

}  // namespace

// The input is a text, and the first bytes of it are a number as the machine stores one.
void TextNumber(std::string_view input) {
  CheckText(input);
  CheckNumber(data::C_Val(input));
  CheckNumber(data::TimeToSeconds(input));

  double stored = 0;
  if (input.size() < sizeof stored) return;
  std::memcpy(&stored, input.data(), sizeof stored);
  if (std::isfinite(stored))
    CheckNumber(stored);
  else
    Check(data::TenthsText(stored) == "00.0" && data::SecondsToTime(stored) == "00:00:00",
          "what is no number shows as 0");
}

}  // namespace quenlor::fuzz
