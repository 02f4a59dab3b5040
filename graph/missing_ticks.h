// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "graph/missing_readings.h"
#include "graph/readout.h"

namespace quenlor::graph {

// Where ticks stand under a time axis: where the first of missing readings would have stood, and where the
// clock was set. Kept until something has changed; those of one pixel are one.
class MissingTicks {
 public:
  // Of the runs of that number; 0: of all.
  void Follow(const MissingReadings& missing, const ValueArrays& values, const PlotPixels& pixels, int only);

  const std::vector<double>& Places() const { return places_; }  // in pixels from the left

 private:
  struct Inputs {
    PlotAxes axes;
    double width = 0;
    int only = 0;
    std::uint64_t generation = 0;
    std::size_t holes = 0;
    Index newest = 0;  // hole
    bool operator==(const Inputs&) const = default;
  };

  std::optional<Inputs> followed_;
  std::vector<double> places_;
};

}  // namespace quenlor::graph
