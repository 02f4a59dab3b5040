// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <cstdint>

#include "graph/plot.h"

namespace quenlor::graph {

// Which runs the window shows how: one may be in front of others that are pale, and the others of one may be
// hidden. Runs of one number are one here. Nothing of it is in pictures, reports or files.
class RunsShown {
 public:
  RunsShown(const Plot& plot, const ValueArrays& values) : plot_(plot), values_(values) {}

  bool BringToFront(int run);  // 0: none; false when it is so already
  void ShowAlone(int run);     // 0: all are shown

  // The run whose others are hidden; 0 when all are shown. So they are again as soon as readings go or are
  // edited, or another run begins, since that one is to be seen.
  int Alone();

  // Makes it the picture of the runs as they are to be shown, from one that has all of them on that ground.
  // False when they are all alike; then it stays.
  bool Draw(QImage& picture, const QColor& ground);

 private:
  void DrawRun(platform::DrawingSurface& surface, int run) const;

  const Plot& plot_;
  const ValueArrays& values_;
  int front_ = 0;
  int alone_ = 0;
  std::uint64_t alone_generation_ = 0;  // of the values when it was chosen
  std::size_t alone_runs_ = 0;
};

}  // namespace quenlor::graph
