// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "graph/graph_math.h"

namespace quenlor::graph {

using Index = std::int64_t;  // of a reading, from 0

// Numbers of readings side by side, with summaries of their blocks.
//
// Appending is O(1). Every full block of 32, 256, 2048 and 16384 numbers has its extremes kept, so what lies
// in a stretch of readings is told from a few entries, whether it has a hundred of them or ten million.
class ValueColumn {
 public:
  static constexpr int kLevels = 4;
  // The largest blocks have the last level; level -1 are the numbers themselves.
  static constexpr Index BlockSize(int level) { return Index{1} << BlockBits(level); }
  static constexpr bool IsAtBlock(int level, Index index) { return (index & (BlockSize(level) - 1)) == 0; }

  struct Extremes {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();
    double positive_min = std::numeric_limits<double>::infinity();  // of the numbers above zero

    void Add(const Extremes& other) {
      min = std::min(min, other.min);
      max = std::max(max, other.max);
      positive_min = std::min(positive_min, other.positive_min);
    }
  };

  Index Size() const { return static_cast<Index>(values_.size()); }
  double operator[](Index index) const { return values_[static_cast<std::size_t>(index)]; }

  // Number `index`, if there is one, will be asked for soon.
  void Expect(Index index) const {
    if (index < Size()) __builtin_prefetch(&values_[static_cast<std::size_t>(index)]);
  }

  void Clear();
  void Reserve(Index size);
  void Append(double value) {  // infinities become the largest number of their sign, NaN becomes 0
    values_.push_back(std::isfinite(value) ? value : Bounded(value));
    if (IsAtBlock(0, Size())) SumUp();
  }

  // Of the readings from `begin` up to, not including, `end`.
  Extremes ExtremesOf(Index begin, Index end) const;

  // How far from `begin`, at most to `end`, all numbers are `inside`: a function of Extremes that is true
  // when it holds for every number between them.
  template <class Inside>
  Index StretchEnd(Index begin, Index end, const Inside& inside) const {
    while (begin < end) {
      int level = LargestBlock(begin, end);
      while (level >= 0 && !inside(Summary(level, begin))) --level;
      if (level >= 0) {
        begin += BlockSize(level);
        continue;
      }
      const Index next = std::min(end, NextBlock(begin));
      while (begin < next && inside(Of(begin))) ++begin;
      if (begin < next) break;
    }
    return begin;
  }

 private:
  static constexpr Index NextBlock(Index index) { return (index / BlockSize(0) + 1) * BlockSize(0); }
  static constexpr int BlockBits(int level) { return level < 0 ? 0 : 5 + 3 * level; }
  void SumUp();
  Extremes Of(Index index) const {
    const double value = (*this)[index];
    return {value, value, value > 0 ? value : std::numeric_limits<double>::infinity()};
  }
  Extremes OfEach(Index begin, Index end) const;
  const Extremes& Summary(int level, Index begin) const {
    return summaries_[static_cast<std::size_t>(level)][static_cast<std::size_t>(begin >> BlockBits(level))];
  }
  // The level of the largest block that begins at `begin` and ends no later than `end`.
  static int LargestBlock(Index begin, Index end) {
    int level = -1;
    while (level + 1 < kLevels && IsAtBlock(level + 1, begin) && begin + BlockSize(level + 1) <= end) ++level;
    return level;
  }

  std::vector<double> values_;
  std::array<std::vector<Extremes>, kLevels> summaries_;  // by level
};

// Visits the readings from `end` back to `begin` in blocks, the largest first. A block for which visit(begin,
// end) is false is visited again in smaller blocks, at last reading by reading.
template <class Visit>
void VisitBackwards(Index begin, Index end, int level, const Visit& visit) {
  while (end > begin) {
    int here = level;
    while (here >= 0 && (!ValueColumn::IsAtBlock(here, end) || end - ValueColumn::BlockSize(here) < begin)) {
      --here;
    }
    const Index block = end - ValueColumn::BlockSize(here);
    if (!visit(block, end) && here >= 0) VisitBackwards(block, end, here - 1, visit);
    end = block;
  }
}

}  // namespace quenlor::graph
