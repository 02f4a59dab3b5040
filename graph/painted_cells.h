// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace quenlor::graph {

// A place on the plot in whole dots, from its top left corner.
struct Dot {
  int x = 0;
  int y = 0;
  bool operator==(const Dot&) const = default;
};

struct DotLine {
  Dot from;
  Dot to;
};

// Which parts of a plot have been painted, in square cells of some dots: those that the middle of a line
// runs through. Everything asked and added lies between 0, 0 and the size given.
//
// Asking costs little where little or where nearly everything is painted: a walk ends at its first cell that
// is not painted, and 64 words of 64 cells that are all painted are passed in one step.
class PaintedCells {
 public:
  PaintedCells(int width, int height, int cell);

  bool Contain(const DotLine& line) const;  // every cell on the way
  void Add(const DotLine& line);

 private:
  struct Cell {
    int x;
    int y;
  };
  class Walk;

  // Squares of 8 by 8, one in the other: a bit for each cell in a word, for each word that is full in a word
  // of the level above.
  class Level {
   public:
    Level(int width, int height);
    bool Has(Cell cell) const { return (words_[WordOf(cell)] >> BitOf(cell) & 1) != 0; }
    bool Add(Cell cell);  // true when that filled its word

   private:
    std::size_t WordOf(Cell cell) const {
      return static_cast<std::size_t>(cell.y >> 3) * across_ + static_cast<std::size_t>(cell.x >> 3);
    }
    static int BitOf(Cell cell) { return (cell.y & 7) * 8 + (cell.x & 7); }

    std::size_t across_;  // words
    std::vector<std::uint64_t> words_;
  };

  int cell_;
  Level cells_;
  Level words_;   // full ones of cells_
  Level blocks_;  // full ones of words_
};

}  // namespace quenlor::graph
