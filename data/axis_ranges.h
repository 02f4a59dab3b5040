// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quenlor::data {

// The limits of the graph's axes; time in seconds, the logarithmic viscosity axis in decade exponents.
struct AxisRanges {
  double TimeMin = 0;
  double TimeMax = 180;
  double ViscoMin = 0;
  double ViscoMax = 100;
  double TempMin = 0;
  double TempMax = 100;
  std::int16_t ViscoLogMin = 0;
  std::int16_t ViscoLogMax = 2;
};

}  // namespace quenlor::data
