// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "data/axis_ranges.h"
#include "graph/axis_labels.h"

namespace quenlor::graph {

// The automatic choice of ranges: what the data span, rounded to ends that read well.
//
// Time follows a ladder of the lab's usual durations; viscosity and temperature are ten steps of 1, 2 or 5
// times a power of ten, no finer than ten times the resolution of the readings; the logarithmic axis is whole
// decades. Any doubles are taken; the ranges stay finite.

// What the readings in the table span. The numbers mean nothing while HasReadings is off.
struct DataExtremes {
  bool HasReadings = false;
  double LastTime = 0;  // seconds; the largest of all, which need not be the newest reading's
  double DataViscoMin = 0;
  double DataViscoMax = 0;
  double PosViscoMin = 0;  // among the positive ones; 0 while there is none
  double PosViscoMax = 0;
  double DataTempMin = 0;
  double DataTempMax = 0;
};

// The "Auto-Scaling" frame.
struct AutoScaling {
  bool Check2 = true;  // "Time"
  bool Check3 = true;  // "Viscosity"
  bool Check4 = true;  // "Temp"
  bool fine = true;    // Option2: "Fine", else "Standard", whose viscosity axis starts at zero where it can
};

// Each chooses one range afresh if its box is ticked, and says whether it has become another one: then
// everything has to be drawn again. `resolution_text` is the first reading's cell of the quantity, whose
// decimals show how finely it is measured.
bool AutoScale_Time(data::AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling);
bool AutoScale_Visco(data::AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling,
                     std::string_view resolution_text);
bool AutoScale_ViscoLog(data::AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling);
bool AutoScale_Temp(data::AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling,
                    std::string_view resolution_text);

// The numbers of one reading, time in seconds.
struct Reading {
  double time = 0;
  double visco = 0;
  double temp = 0;
};

// The first reading's cells.
struct ResolutionTexts {
  std::string_view visco;
  std::string_view temp;
};

// The same for a reading that has come to others, which the extremes contain already: only a range that it
// leaves is chosen afresh, so that the graph rests while the data stay in view. On the logarithmic axis
// readings that are not positive leave no range.
bool AutoScale_Reading(data::AxisRanges& ranges, const Reading& reading, const DataExtremes& extremes,
                       const AutoScaling& scaling, const ResolutionTexts& texts, ViscoAxis axis);

}  // namespace quenlor::graph
