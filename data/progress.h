// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace quenlor::data {

// Told every few milliseconds how far a long work has come, from 0 to 1. Where the work may be left, false
// leaves it. Empty where nobody asks.
using Progress = std::function<bool(double part)>;

// One part of a work that has several.
inline Progress PartOf(const Progress& whole, double from, double to) {
  if (!whole) return {};
  return [whole, from, to](double part) { return whole(from + (to - from) * part); };
}

}  // namespace quenlor::data
