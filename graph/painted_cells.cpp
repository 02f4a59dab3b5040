// SPDX-License-Identifier: MIT
#include "graph/painted_cells.h"

#include <algorithm>
#include <cstdlib>

namespace quenlor::graph {

// The cells of a line one after the other: so many steps to the cell, at least, along its longer side.
class PaintedCells::Walk {
 public:
  Walk(const DotLine& line, int cell, int steps_to_the_cell = 1) {
    const auto place = [&](int dot) { return (2 * std::int64_t{dot} + 1) * kOne / (2 * std::int64_t{cell}); };
    x_ = place(line.from.x);
    y_ = place(line.from.y);
    const std::int64_t across = place(line.to.x) - x_;
    const std::int64_t down = place(line.to.y) - y_;
    const std::int64_t longer = std::max(std::abs(across), std::abs(down));
    steps_ = static_cast<int>((steps_to_the_cell * longer + kOne - 1) / kOne);
    if (steps_ > 0) {
      step_x_ = across / steps_;
      step_y_ = down / steps_;
    }
    lies_ = std::abs(across) >= std::abs(down);
    forwards_ = (lies_ ? across : down) >= 0;
  }

  int Steps() const { return steps_; }
  Cell At(int step) const {
    return {static_cast<int>((x_ + step * step_x_) >> kBits),
            static_cast<int>((y_ + step * step_y_) >> kBits)};
  }

  // The last step for which the walk has surely not left the columns (of a steep line: the rows) of the
  // square of 2 to the power `size` cells around this step's cell. The cells in between lie in the squares of
  // the two: the way across is no longer than a square.
  int LastIn(int step, Cell cell, int size) const {
    const int mask = (1 << size) - 1;
    const int place = (lies_ ? cell.x : cell.y) & mask;
    return std::min(steps_, step + (forwards_ ? mask - place : place));
  }

 private:
  static constexpr int kBits = 32;
  static constexpr std::int64_t kOne = std::int64_t{1} << kBits;

  std::int64_t x_;
  std::int64_t y_;
  std::int64_t step_x_ = 0;
  std::int64_t step_y_ = 0;
  int steps_;
  bool lies_;
  bool forwards_;
};

PaintedCells::PaintedCells(int width, int height, int cell)
    : cell_(std::max(cell, 1)),
      cells_(width / cell_ + 1, height / cell_ + 1),
      words_((width / cell_ >> 3) + 1, (height / cell_ >> 3) + 1),
      blocks_((width / cell_ >> 6) + 1, (height / cell_ >> 6) + 1) {}

bool PaintedCells::Contain(const DotLine& line) const {
  const Walk walk(line, cell_);
  const auto in = [](Cell cell, int size) { return Cell{cell.x >> size, cell.y >> size}; };
  for (int step = 0; step <= walk.Steps();) {
    const Cell cell = walk.At(step);
    if (!cells_.Has(cell)) return false;
    const auto pass = [&](const Level& full, int size) {
      if (!full.Has(in(cell, size))) return false;
      const int last = walk.LastIn(step, cell, size);
      if (!full.Has(in(walk.At(last), size))) return false;
      step = last + 1;
      return true;
    };
    if (!pass(blocks_, 6) && !pass(words_, 3)) ++step;
  }
  return true;
}

void PaintedCells::Add(const DotLine& line) {
  // Half steps find nearly all of the corners that whole ones cut.
  const Walk walk(line, cell_, 2);
  for (int step = 0; step <= walk.Steps(); ++step) {
    const Cell cell = walk.At(step);
    if (!cells_.Add(cell)) continue;
    const Cell word{cell.x >> 3, cell.y >> 3};
    if (words_.Add(word)) blocks_.Add({word.x >> 3, word.y >> 3});
  }
}

PaintedCells::Level::Level(int width, int height)
    : across_(static_cast<std::size_t>(std::max(width, 1) + 7) / 8),
      words_(across_ * (static_cast<std::size_t>(std::max(height, 1) + 7) / 8)) {}

bool PaintedCells::Level::Add(Cell cell) {
  std::uint64_t& word = words_[WordOf(cell)];
  const std::uint64_t before = word;
  word |= std::uint64_t{1} << BitOf(cell);
  return word == ~std::uint64_t{0} && before != word;
}

}  // namespace quenlor::graph
