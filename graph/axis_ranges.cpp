// SPDX-License-Identifier: MIT
#include "graph/axis_ranges.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <type_traits>

#include "data/text_number.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

constexpr int kSteps = 10;  // of a viscosity or temperature axis

struct Window {
  double lower = 0;
  double upper = 100;  // what is shown before the first reading
};

struct Span {
  double min;
  double max;
};

Span OrderedSpan(double one, double other) {
  const auto [min, max] = std::minmax({Bounded(one), Bounded(other)});
  return {min, max};
}

// Ten times the resolution that a reading's text shows: "25.3" is read to tenths, so the finest step is 1.
double StartingUnit(std::string_view text) {
  // Beyond this many characters behind the point the unit would be no normal double.
  constexpr int kMostDecimals = 300;
  const auto starts_character = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  std::size_t point = text.find('.');
  if (point == std::string_view::npos) point = text.find(',');
  if (point == std::string_view::npos) return kSteps;
  const std::string_view decimals = text.substr(point + 1);
  const auto count = std::count_if(decimals.begin(), decimals.end(), starts_character);
  return data::C_Val("1E" + std::to_string(1 - std::min<std::ptrdiff_t>(count, kMostDecimals)));
}

// A multiple of a step as the decimal number that it is, so that a range end equals the reading that shows
// the same.
double Multiple(double count, double step) { return data::C_Val(data::GeneralText(Bounded(count * step))); }

Window StepWindow(double first_step, double step) {
  return {Multiple(first_step, step), Multiple(first_step + kSteps, step)};
}

// How far a window of ten steps from `first_step` moves down: half the steps that are free above the data.
double HalfOfFreeSteps(double first_step, double max, double step) {
  return std::floor((first_step + kSteps - StepsIn(max, step)) / 2 + 0.5);
}

Window TempWindow(const Span& data, double unit) {
  const double step = NiceStep(data.max, data.min, unit);
  const double first = std::floor(StepsIn(data.min, step));
  return StepWindow(first - HalfOfFreeSteps(first, data.max, step), step);
}

// More than three steps of empty room below the data are not given to a viscosity curve.
constexpr double kMostFreeSteps = 3;

Window FineViscoWindow(const Span& data, double unit) {
  const double step = NiceStep(data.max, data.min, unit);
  const double first = std::floor(StepsIn(data.min, step));
  return StepWindow(first - std::min(HalfOfFreeSteps(first, data.max, step), kMostFreeSteps), step);
}

// From zero on, with the first step at which the data are in view: one that suits data far from zero and
// close together need not reach them from there. Readings below zero are left out by choice.
Window StandardViscoWindow(const Span& data, double unit) {
  StepCycle steps = NiceSteps(data.max, data.min, unit);
  while (StepsIn(data.max, steps.Step()) > kSteps) steps.Next();
  return StepWindow(0, steps.Step());
}

// The first duration of the ladder that holds the time: 3 minutes to 72 hours, then steps of six days.
double LadderTime(double last_time) {
  constexpr double kLadder[] = {180,   360,   720,   1080,  1800,   3600,   7200,  10800,
                                21600, 43200, 64800, 86400, 129600, 172800, 259200};
  constexpr double kSixDays = 518400;
  const auto* const found = std::lower_bound(std::begin(kLadder), std::end(kLadder), last_time);
  if (found != std::end(kLadder)) return *found;
  // Where doubles are farther apart than six days, the multiple may come out below the time itself.
  return std::max(Bounded(std::ceil(last_time / kSixDays) * kSixDays), last_time);
}

// Assigns the two ends of a range; says whether one of them was another number before.
template <class Number>
bool Assign(Number& min, Number& max, std::type_identity_t<Number> new_min,
            std::type_identity_t<Number> new_max) {
  const bool changed = min != new_min || max != new_max;
  min = new_min;
  max = new_max;
  return changed;
}

bool Outside(double value, double min, double max) { return value < min || value > max; }

}  // namespace

bool AutoScale_Time(AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling) {
  if (!scaling.Check2) return false;
  const double last_time = extremes.HasReadings ? Bounded(extremes.LastTime) : 0.0;
  return Assign(ranges.TimeMin, ranges.TimeMax, 0, LadderTime(last_time));
}

bool AutoScale_Visco(AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling,
                     std::string_view resolution_text) {
  if (!scaling.Check3) return false;
  Window window;
  if (extremes.HasReadings) {
    const Span data = OrderedSpan(extremes.DataViscoMin, extremes.DataViscoMax);
    const double unit = StartingUnit(resolution_text);
    window = scaling.fine ? FineViscoWindow(data, unit) : StandardViscoWindow(data, unit);
  }
  return Assign(ranges.ViscoMin, ranges.ViscoMax, window.lower, window.upper);
}

bool AutoScale_ViscoLog(AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling) {
  if (!scaling.Check3) return false;
  int lower = 0;
  int upper = 2;
  if (extremes.HasReadings && extremes.PosViscoMin > 0) {
    lower = static_cast<int>(std::floor(Log10(extremes.PosViscoMin)));
    upper = static_cast<int>(std::ceil(Log10(extremes.PosViscoMax)));
    if (upper == lower) ++upper;
  }
  if (!scaling.fine) lower = -1;
  upper = std::max(upper, lower + 1);
  return Assign(ranges.ViscoLogMin, ranges.ViscoLogMax, static_cast<std::int16_t>(lower),
                static_cast<std::int16_t>(upper));
}

bool AutoScale_Temp(AxisRanges& ranges, const DataExtremes& extremes, const AutoScaling& scaling,
                    std::string_view resolution_text) {
  if (!scaling.Check4) return false;
  Window window;
  if (extremes.HasReadings) {
    window =
        TempWindow(OrderedSpan(extremes.DataTempMin, extremes.DataTempMax), StartingUnit(resolution_text));
  }
  return Assign(ranges.TempMin, ranges.TempMax, window.lower, window.upper);
}

bool AutoScale_Reading(AxisRanges& ranges, const Reading& reading, const DataExtremes& extremes,
                       const AutoScaling& scaling, const ResolutionTexts& texts, ViscoAxis axis) {
  bool changed = false;
  if (Outside(reading.time, ranges.TimeMin, ranges.TimeMax))
    changed |= AutoScale_Time(ranges, extremes, scaling);
  if (axis == ViscoAxis::Linear) {
    if (Outside(reading.visco, ranges.ViscoMin, ranges.ViscoMax)) {
      changed |= AutoScale_Visco(ranges, extremes, scaling, texts.visco);
    }
  } else if (reading.visco > 0 && Outside(Log10(reading.visco), ranges.ViscoLogMin, ranges.ViscoLogMax)) {
    changed |= AutoScale_ViscoLog(ranges, extremes, scaling);
  }
  if (Outside(reading.temp, ranges.TempMin, ranges.TempMax)) {
    changed |= AutoScale_Temp(ranges, extremes, scaling, texts.temp);
  }
  return changed;
}

}  // namespace quenlor::graph
