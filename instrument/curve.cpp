// SPDX-License-Identifier: MIT
#include "instrument/curve.h"

#include <cmath>
#include <vector>

#include "instrument/number_text.h"

namespace quenlor::instrument {
namespace {

struct Value {
  double seconds;

  double operator()(const Constant& curve) const { return curve.value; }
  double operator()(const Ramp& curve) const { return curve.start + curve.per_second * seconds; }
  double operator()(const Approach& curve) const {
    return curve.end + (curve.start - curve.end) * std::exp(-seconds / curve.time_constant);
  }
};

// The numbers of "a:b:c"; nothing when one of them is not a number.
std::optional<std::vector<double>> Numbers(std::string_view text) {
  std::vector<double> numbers;
  while (true) {
    const auto colon = text.find(':');
    const auto number = ParseNumber(text.substr(0, colon));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    if (colon == std::string_view::npos) return numbers;
    text.remove_prefix(colon + 1);
  }
}

}  // namespace

double ValueAt(const Curve& curve, double seconds) { return std::visit(Value{seconds}, curve); }

std::optional<Curve> ParseCurve(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto family = text.substr(0, colon);
  const auto numbers = Numbers(text.substr(colon + 1));
  if (!numbers) return std::nullopt;

  const auto& n = *numbers;
  if (family == "const" && n.size() == 1) return Constant{n[0]};
  if (family == "ramp" && n.size() == 2) return Ramp{n[0], n[1]};
  if (family == "exp" && n.size() == 3 && n[2] > 0) return Approach{n[0], n[1], n[2]};
  return std::nullopt;
}

}  // namespace quenlor::instrument
