// SPDX-License-Identifier: MIT
#include "graph/missing_readings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/count_text.h"

namespace quenlor::graph {
namespace {

constexpr Index kStretch = 64;      // ways
constexpr Index kFewest = 4;        // ways that have an interval
constexpr double kHole = 3;         // intervals
constexpr double kReplyLost = 1.5;  // intervals, where they are regular
constexpr double kClockSet = 60;    // seconds

}  // namespace

void MissingReadings::Follow(const ValueArrays& values) {
  if (generation_ != values.Generation() || values.Size() < size_) {
    *this = {};
    generation_ = values.Generation();
  }
  if (size_ == values.Size()) return;
  size_ = values.Size();
  holes_.resize(kept_);
  while (begin_ < size_) {
    const std::size_t run = values.RunOf(begin_);
    const Index run_end = values.RunEnd(run);
    if (begin_ == values.Runs()[run].first) settled_ = {};
    while (begin_ < run_end) {
      const Stretch stretch{begin_, std::min(begin_ + kStretch + 1, run_end)};
      Judge(values.Time(), stretch);
      if (stretch.Ways() < kStretch) break;
      settled_ = stretch;
      begin_ = stretch.end - 1;  // where the next way begins
      kept_ = holes_.size();
    }
    if (run_end == size_) return;
    begin_ = run_end;
    kept_ = holes_.size();
  }
}

void MissingReadings::Judge(const ValueColumn& times, Stretch stretch) {
  if (stretch.Ways() < 1) return;
  double shortest = HUGE_VAL;
  double longest = -HUGE_VAL;
  bool whole = true;
  for (Index reading = stretch.begin + 1; reading < stretch.end; ++reading) {
    const double way = times[reading] - times[reading - 1];
    shortest = std::min(shortest, way);
    longest = std::max(longest, way);
    whole = whole && way == std::floor(way);
  }
  // Wherever the median is, no way is far beyond it: most stretches are told by that.
  const double off = whole ? 1 : 0;
  if (shortest >= 0 && longest <= std::min(kReplyLost * shortest + off, shortest + kClockSet)) return;
  const bool by_itself = stretch.Ways() >= kStretch / 2 || settled_.Ways() < kStretch;
  if (by_itself && stretch.Ways() < kFewest) return;
  const Interval interval = IntervalOf(times, by_itself ? stretch : settled_);
  for (Index reading = stretch.begin + 1; reading < stretch.end; ++reading)
    Note(times[reading] - times[reading - 1], reading, interval);
}

void MissingReadings::Note(double way, Index reading, const Interval& interval) {
  if (way >= -kClockSet && way <= interval.longest) return;
  Hole hole{reading, 0, 0, 0};
  if (way > 0) {
    const double fit = interval.usual > 0 ? std::nearbyint(way / interval.usual) - 1 : 1;
    const bool clock = interval.regular && fit < 1 && way > interval.usual + kClockSet;
    if (!clock) hole.missing = static_cast<Index>(std::clamp(fit, 1.0, 1e15));
  }
  if (!holes_.empty()) {
    hole.missing_so_far = holes_.back().missing_so_far;
    hole.clocks_so_far = holes_.back().clocks_so_far;
  }
  hole.missing_so_far += hole.missing;
  hole.clocks_so_far += hole.Clock() ? 1 : 0;
  holes_.push_back(hole);
}

MissingReadings::Interval MissingReadings::IntervalOf(const ValueColumn& times, Stretch stretch) {
  std::array<double, kStretch> room;
  std::size_t count = 0;
  bool whole = true;
  for (Index reading = stretch.begin + 1; reading < stretch.end; ++reading) {
    const double way = times[reading] - times[reading - 1];
    if (way < 0) continue;
    room[count++] = way;
    whole = whole && way == std::floor(way);
  }
  const std::span ways(room.data(), count);
  if (ways.empty()) return {0, HUGE_VAL, false};
  std::ranges::sort(ways);
  const auto part = [&](double of) {
    return ways[static_cast<std::size_t>(of * static_cast<double>(count - 1))];
  };
  const double off = whole ? 1 : 0;
  const double median = part(0.5);
  const bool regular = part(0.1) >= 0.75 * median - off && part(0.75) <= 1.25 * median + off;
  const double longest =
      regular ? std::min(kReplyLost * median + off, median + kClockSet) : kHole * median + off;
  // Several readings in a second differ by 0 or 1 there: what is no hole tells the interval better together.
  double sum = 0;
  double within = 0;
  for (const double way : ways) {
    if (way > longest) break;
    sum += way;
    ++within;
  }
  return {sum / std::max(within, 1.0), longest, regular};
}

std::span<const MissingReadings::Hole> MissingReadings::Within(Index begin, Index end) const {
  const auto from = [this](Index reading) {
    return std::lower_bound(holes_.begin(), holes_.end(), reading,
                            [](const Hole& hole, Index wanted) { return hole.after < wanted; });
  };
  // A hole that ends with the first reading lies before the stretch.
  const auto first = from(begin + 1);
  return {first, std::max(first, from(end))};
}

std::string HolesTold(std::span<const MissingReadings::Hole> holes) {
  if (holes.empty()) return {};
  const MissingReadings::Hole& first = holes.front();
  const MissingReadings::Hole& last = holes.back();
  const Index clocks = last.clocks_so_far - first.clocks_so_far + (first.Clock() ? 1 : 0);
  const Index missing = last.missing_so_far - first.missing_so_far + first.missing;
  const Index gaps = static_cast<Index>(holes.size()) - clocks;
  std::string told;
  if (gaps > 0)
    told = data::CountText(gaps, "gap", "gaps") + ", about " +
           data::CountText(missing, "reading missing", "readings missing");
  if (clocks > 0)
    told += (told.empty() ? "" : "; ") + data::CountText(clocks, "clock change", "clock changes");
  return told;
}

}  // namespace quenlor::graph
