// SPDX-License-Identifier: MIT
#include "instrument/reading_line.h"

#include <algorithm>

#include "instrument/number_text.h"

namespace quenlor::instrument {
namespace {

std::string WithDecimalComma(std::string number) {
  std::replace(number.begin(), number.end(), '.', ',');
  return number;
}

}  // namespace

std::string ReadingLine(LineForm form, std::int64_t number, double viscosity, double temperature) {
  const std::string v = OneDecimal(viscosity);
  const std::string t = OneDecimal(temperature);
  switch (form) {
    case LineForm::kVisco:
      return v + " mPa.s," + t + " C";
    case LineForm::kBare:
      return v + "," + t;
    case LineForm::kComma:
      return WithDecimalComma(v) + ";" + WithDecimalComma(t);
    case LineForm::kSemicolon:
      return v + ";" + t;
    case LineForm::kNumbered:
      return std::to_string(number) + "," + v + "," + t;
  }
  return {};
}

}  // namespace quenlor::instrument
