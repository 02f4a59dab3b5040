// SPDX-License-Identifier: MIT
#include "graph/axis_labels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "data/text_number.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

constexpr std::int16_t kTimeDecimals = 3;
constexpr std::int16_t kValueDecimals = 10;
constexpr int kTimeDivisions = 6;
constexpr int kValueDivisions = 10;

std::string RoundedText(double value, std::int16_t decimals) {
  return data::GeneralText(Round(Bounded(value), decimals));
}

// The value at division i of n. Ends so far apart that no double holds their distance are weighed against
// each other.
double Division(double min, double max, int i, int n) {
  const double distance = max - min;
  if (std::isfinite(distance)) return distance / n * i + min;
  return max / n * i + min / n * (n - i);
}

double PowerOfTen(int exponent) { return Bounded(std::pow(10.0, exponent)); }

void WriteDivisions(double min, double max, std::span<TickLabel> labels) {
  for (int i = 1; i < kValueDivisions; ++i) {
    labels[static_cast<std::size_t>(i)] = {
        RoundedText(Division(min, max, i, kValueDivisions), kValueDecimals),
        static_cast<double>(i) / kValueDivisions};
  }
}

// The multiples of the lower end that have a label, for axes of one to four decades.
std::span<const int> LabelledMultiples(int decades) {
  static constexpr int kOne[] = {2, 3, 4, 5, 6, 7, 8, 9};
  static constexpr int kTwo[] = {2, 4, 6, 8, 10, 20, 40, 60, 80};
  static constexpr int kThree[] = {2, 5, 10, 20, 50, 100, 200, 500};
  static constexpr int kFour[] = {5, 10, 50, 100, 500, 1000, 5000};
  switch (decades) {
    case 1:
      return kOne;
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 4:
      return kFour;
    default:
      return {};
  }
}

// Where there are no numbers there are no labels.
void WriteDecades(int lowest, int decades, AxisLabels& labels) {
  const auto add = [&](double value, double decade) {
    if (value <= 0 || !std::isfinite(value)) return;
    labels.Label8[static_cast<std::size_t>(++labels.Label8Count)] = {data::GeneralText(value),
                                                                     decade / decades};
  };
  for (const int multiple : LabelledMultiples(decades)) {
    add(std::pow(10.0, lowest) * multiple, std::log10(multiple));
  }
  if (decades <= 4) return;
  // One for each inner decade, and where there are more of them than labels, the labels spread.
  constexpr int kMost = 9;
  const int parts = std::min(decades, kMost + 1);
  for (int i = 1; i < parts; ++i) {
    const int decade = (2 * i * decades + parts) / (2 * parts);
    add(std::pow(10.0, lowest + decade), decade);
  }
}

std::string& TextOf(Limit limit, AxisLabels& labels) {
  return labels.Label5[static_cast<std::size_t>(limit)];
}

}  // namespace

TimeUnit TimeUnitOfItem(int item) {
  if (item == 0) return TimeUnit::Second;
  return item == 1 ? TimeUnit::Minute : TimeUnit::Hour;
}

ViscoAxis ViscoAxisOfItem(int item) { return item == 1 ? ViscoAxis::Log : ViscoAxis::Linear; }

double SecondsOf(TimeUnit unit) {
  if (unit == TimeUnit::Second) return 1;
  return unit == TimeUnit::Minute ? 60 : 3600;
}

void Change_Time(const AxisRanges& ranges, TimeUnit unit, AxisLabels& labels) {
  const double divisor = SecondsOf(unit);
  TextOf(Limit::TimeMini, labels) = RoundedText(ranges.TimeMin / divisor, kTimeDecimals);
  TextOf(Limit::TimeMax, labels) = RoundedText(ranges.TimeMax / divisor, kTimeDecimals);
  for (int i = 1; i < kTimeDivisions; ++i) {
    const double seconds = Division(ranges.TimeMin, ranges.TimeMax, i, kTimeDivisions);
    labels.Label7[static_cast<std::size_t>(i)] = {RoundedText(seconds / divisor, kTimeDecimals),
                                                  static_cast<double>(i) / kTimeDivisions};
  }
  constexpr std::string_view kUnitTexts[] = {"(sec)", "(min)", "(hour)"};
  labels.TimeUnitText = kUnitTexts[static_cast<std::size_t>(unit)];
}

void Change_Visco(const AxisRanges& ranges, ViscoAxis axis, AxisLabels& labels) {
  labels.Label8 = {};
  labels.Label8Count = 0;
  if (axis == ViscoAxis::Log) {
    TextOf(Limit::ViscoMini, labels) = data::GeneralText(PowerOfTen(ranges.ViscoLogMin));
    TextOf(Limit::ViscoMax, labels) = data::GeneralText(PowerOfTen(ranges.ViscoLogMax));
    WriteDecades(ranges.ViscoLogMin, ranges.ViscoLogMax - ranges.ViscoLogMin, labels);
    return;
  }
  TextOf(Limit::ViscoMini, labels) = RoundedText(ranges.ViscoMin, kValueDecimals);
  TextOf(Limit::ViscoMax, labels) = RoundedText(ranges.ViscoMax, kValueDecimals);
  WriteDivisions(ranges.ViscoMin, ranges.ViscoMax, labels.Label8);
  labels.Label8Count = kValueDivisions - 1;
}

void Change_Temp(const AxisRanges& ranges, AxisLabels& labels) {
  TextOf(Limit::TempMini, labels) = RoundedText(ranges.TempMin, kValueDecimals);
  TextOf(Limit::TempMax, labels) = RoundedText(ranges.TempMax, kValueDecimals);
  WriteDivisions(ranges.TempMin, ranges.TempMax, labels.Label9);
}

AxisLabels LabelsOf(const AxisRanges& ranges, const AxisView& view) {
  AxisLabels labels;
  Change_Time(ranges, view.time_unit, labels);
  Change_Visco(ranges, view.visco_axis, labels);
  Change_Temp(ranges, labels);
  return labels;
}

std::string LimitText(Limit limit, const AxisRanges& ranges, const AxisView& view) {
  return LabelsOf(ranges, view).Label5[static_cast<std::size_t>(limit)];
}

}  // namespace quenlor::graph
