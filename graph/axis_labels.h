// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "data/axis_ranges.h"

namespace quenlor::graph {

// The texts at the axes of the graph, and where each stands.
//
// They are made from the ranges alone: three decimals for times, ten for viscosity and temperature, whole
// decades and their round multiples on the logarithmic viscosity axis. Any ranges are understood; those that
// span nothing have labels, too.

enum class TimeUnit { Second, Minute, Hour };
enum class ViscoAxis { Linear, Log };

// How the axes are shown. The ranges do not depend on it: times stay in seconds.
struct AxisView {
  TimeUnit time_unit = TimeUnit::Minute;
  ViscoAxis visco_axis = ViscoAxis::Linear;
};

TimeUnit TimeUnitOfItem(int item);    // of the Time Scale menu; whatever is neither 0 nor 1 is hours
ViscoAxis ViscoAxisOfItem(int item);  // of the Visco Axis menu; whatever is not 1 is linear
double SecondsOf(TimeUnit unit);

// The range ends, in the order of the Range menu and of Label5.
enum class Limit { TimeMini, TimeMax, ViscoMini, ViscoMax, TempMini, TempMax };
inline constexpr std::array<std::string_view, 6> kLimitNames = {"Time mini", "Time max",  "Visco mini",
                                                                "Visco max", "Temp mini", "Temp max"};

// An inner label of an axis.
struct TickLabel {
  std::string text;
  double place = 0;  // along the axis: 0 at its lower end, 1 at its upper one
};

// The elements of each array stand at the system's own indices, so the three of ticks begin with element 1.
struct AxisLabels {
  std::array<std::string, 6> Label5;  // the range ends, by Limit
  std::string TimeUnitText;           // Label6[5]: "(sec)", "(min)" or "(hour)"
  std::array<TickLabel, 6> Label7;    // time
  std::array<TickLabel, 10> Label8;   // viscosity
  std::array<TickLabel, 10> Label9;   // temperature
  int Label8Count = 0;                // elements 1 to this one are in use, the others are empty
};

// Each rewrites the labels of one axis.
void Change_Time(const data::AxisRanges& ranges, TimeUnit unit, AxisLabels& labels);
void Change_Visco(const data::AxisRanges& ranges, ViscoAxis axis, AxisLabels& labels);
void Change_Temp(const data::AxisRanges& ranges, AxisLabels& labels);

AxisLabels LabelsOf(const data::AxisRanges& ranges, const AxisView& view);

// One range end as Label5 shows it.
std::string LimitText(Limit limit, const data::AxisRanges& ranges, const AxisView& view);

}  // namespace quenlor::graph
