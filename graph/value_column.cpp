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
    all.Add(level < 0 ? Of(begin) : Summary(level, begin));
    begin += BlockSize(level);
  }
  return all;
}

}  // namespace quenlor::graph
