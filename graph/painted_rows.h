// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

namespace quenlor::graph {

// Pixels of one column, from the first to the last row, both included.
struct PixelRows {
  int first = 0;
  int last = 0;
};

// Which pixels of a column have been painted, between two rows; beyond them all count as painted, for nobody
// sees them. Asking and adding cost next to nothing, however long the stretch.
class PaintedRows {
 public:
  PaintedRows(int first, int last)
      : first_(first), next_(static_cast<std::size_t>(std::max(0, last - first + 1)) + 1) {}

  void Reset() { std::iota(next_.begin(), next_.end(), std::size_t{0}); }

  bool Contain(PixelRows rows) {
    return rows.last < first_ || NextUnpainted(Place(rows.first)) >= Place(rows.last + 1);
  }

  void Add(PixelRows rows) {
    const std::size_t end = Place(rows.last + 1);
    for (std::size_t at = NextUnpainted(Place(rows.first)); at < end; at = NextUnpainted(at))
      next_[at] = at + 1;
  }

 private:
  std::size_t Place(int row) const {
    const std::size_t bottom = next_.size() - 1;
    return row <= first_ ? 0 : std::min(bottom, static_cast<std::size_t>(row - first_));
  }

  // next_ leads from a painted pixel towards the next one that is not; every walk shortens the way
  // for later ones.
  std::size_t NextUnpainted(std::size_t at) {
    while (next_[at] != at) {
      next_[at] = next_[next_[at]];
      at = next_[at];
    }
    return at;
  }

  int first_;
  std::vector<std::size_t> next_;  // the last one, below the column, is never painted
};

}  // namespace quenlor::graph
