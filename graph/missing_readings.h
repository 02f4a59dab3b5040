// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "graph/value_arrays.h"

namespace quenlor::graph {

// Where readings are missing, and where the clock was set, reckoned from the times alone.
//
// A way is the time from a reading of a run to the next one; the interval of a stretch of 64 ways is their
// median, so that a run may change its pace. A hole is a way longer than three intervals; where ways are as
// regular as repeated requests make them, one half as long again already holds a request without a reply, and
// one that is longer by more than a minute, but by no whole interval, tells of a clock that was set. So does
// a way back of more than a minute anywhere. Times without decimals may be a second off.
//
// Until there are 32, the newest ways are judged by the stretch before them, or among themselves from four on
// where there is none. What is found depends on the readings alone, not on how many were looked at a time.
class MissingReadings {
 public:
  struct Hole {
    Index after = 0;    // the reading with which it ends
    Index missing = 0;  // readings that would have fit in; 0 where the clock was set
    Index missing_so_far = 0;
    Index clocks_so_far = 0;  // this one counts, too
    bool Clock() const { return missing == 0; }
  };

  // Takes in what has come to the values since the last call, in time that goes with that alone.
  void Follow(const ValueArrays& values);

  // In the order of the readings. `Within` are those between readings of the stretch up to, not including,
  // `end`.
  const std::vector<Hole>& Holes() const { return holes_; }
  std::span<const Hole> Within(Index begin, Index end) const;

 private:
  struct Interval {
    double usual = 0;
    double longest = 0;  // that is no hole
    bool regular = false;
  };
  struct Stretch {  // of readings; the ways among them
    Index begin = 0;
    Index end = 0;
    Index Ways() const { return end - begin - 1; }
  };
  static Interval IntervalOf(const ValueColumn& times, Stretch stretch);
  void Judge(const ValueColumn& times, Stretch stretch);
  void Note(double way, Index reading, const Interval& interval);

  std::vector<Hole> holes_;
  std::uint64_t generation_ = 0;
  Index size_ = 0;        // readings that were looked at
  Stretch settled_;       // the last whole stretch of the newest run; empty before there is one
  Index begin_ = 0;       // of the readings that will be judged again
  std::size_t kept_ = 0;  // holes before them
};

// "3 gaps, about 7 readings missing; 1 clock change"; empty where there are none.
std::string HolesTold(std::span<const MissingReadings::Hole> holes);

}  // namespace quenlor::graph
