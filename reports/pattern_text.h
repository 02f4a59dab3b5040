// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quenlor::reports {

// Number to text with the first decimals + 2 characters of the pattern "0.000000000", so with nine decimals
// at most: 3 decimals give "2.250", none "2." - the pattern ends with its point.
//
// What is rounded is the number in 15 significant digits, halves away from zero: the average of 1.25 and 1.26
// is 1.26, as everybody reckons who sees these digits. A zero has no sign.
std::string PatternText(double value, int decimals);

}  // namespace quenlor::reports
