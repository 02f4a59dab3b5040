// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quenlor::data {

// A point in time as a measurement sees it.
//
// `seconds` is the time base of elapsed times and requests: day number x 86400 + seconds since midnight, with
// the fraction of the clock, in the local time whose offset was in force when the program started. It never
// jumps when daylight saving time begins or ends, so a run over such a weekend stays whole. `local_second` is
// what a wall clock in the lab shows: whole seconds since 1970-01-01 00:00 local time.
struct Moment {
  double seconds = 0;
  std::int64_t local_second = 0;
};

// "yyyy/MM/dd", "HH:mm:ss", and both with one blank between, whatever the locale.
std::string DateText(std::int64_t local_second);
std::string TimeText(std::int64_t local_second);
std::string DateTimeText(std::int64_t local_second);

}  // namespace quenlor::data
