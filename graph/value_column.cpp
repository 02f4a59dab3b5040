// SPDX-License-Identifier: MIT
#include "graph/value_column.h"

namespace quenlor::graph {

void ValueColumn::Clear() {
  values_.clear();
  for (std::vector<Extremes>& level : summaries_) level.clear();
}

void ValueColumn::Reserve(Index size) {
  values_.reserve(static_cast<std::size_t>(size));
  for (int level = 0; level < kLevels; ++level) {
    summaries_[static_cast<std::size_t>(level)].reserve(static_cast<std::size_t>(size / BlockSize(level)));
  }
}

// Each block that is full now is summed up from the blocks one level below.
void ValueColumn::SumUp() {
  for (int level = 0; level < kLevels && IsAtBlock(level, Size()); ++level) {
    Extremes block;
    for (Index part = Size() - BlockSize(level); part < Size(); part += BlockSize(level - 1)) {
      block.Add(level == 0 ? Of(part) : Summary(level - 1, part));
    }
    summaries_[static_cast<std::size_t>(level)].push_back(block);
  }
}

ValueColumn::Extremes ValueColumn::ExtremesOf(Index begin, Index end) const {
  Extremes all;
  while (begin < end) {
    const int level = LargestBlock(begin, end);
    const Index next = level < 0 ? std::min(end, NextBlock(begin)) : begin + BlockSize(level);
    all.Add(level < 0 ? OfEach(begin, next) : Summary(level, begin));
    begin = next;
  }
  return all;
}

// In four parts, since each comparison waits for the one before it.
ValueColumn::Extremes ValueColumn::OfEach(Index begin, Index end) const {
  std::array<Extremes, 4> parts;
  for (; end - begin >= 4; begin += 4) {
    for (std::size_t part = 0; part < 4; ++part) parts[part].Add(Of(begin + static_cast<Index>(part)));
  }
  for (; begin < end; ++begin) parts[0].Add(Of(begin));
  parts[0].Add(parts[1]);
  parts[2].Add(parts[3]);
  parts[0].Add(parts[2]);
  return parts[0];
}

}  // namespace quenlor::graph
