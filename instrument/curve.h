// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <variant>

namespace quenlor::instrument {

// How a measured quantity goes over the time of a run, without its noise. Times are in seconds since
// the run began.
struct Constant {
  double value = 0;
};
struct Ramp {
  double start = 0;
  double per_second = 0;
};
struct Approach {  // exponential: after one time constant 63 % of the way is done
  double start = 0;
  double end = 0;
  double time_constant = 1;  // seconds, above 0
};
using Curve = std::variant<Constant, Ramp, Approach>;

double ValueAt(const Curve& curve, double seconds);

// Reads "const:25", "ramp:20:0.05" (start, change per second) or "exp:1200:300:60" (start, end, time
// constant). Nothing for any other text.
std::optional<Curve> ParseCurve(std::string_view text);

}  // namespace quenlor::instrument
