// SPDX-License-Identifier: MIT
#include "graph/reading_told.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "data/count_text.h"
#include "data/text_number.h"
#include "data/unit_beside.h"
#include "data/utf8.h"

namespace quenlor::graph {
namespace {

constexpr std::size_t kLongestName = 60;  // bytes of a text on the plate
constexpr std::size_t kWholeName = 1000;  // nobody reads more of a tip

std::string Short(std::string_view text) {
  const std::string_view start = data::Utf8Prefix(text, kLongestName);
  return std::string(start) + (start.size() < text.size() ? "…" : "");
}

// As the table shows it, with its unit.
std::string ValueTold(const data::Document& document, data::Document::Row row, int column) {
  const std::string value = Short(document.Grid1().TextMatrix(row, column));
  const std::string unit = value.empty() ? "" : Short(data::UnitBeside(document, row, column));
  return unit.empty() ? value : value + " " + unit;
}

// Four digits are more than an eye reads off a curve.
std::string Rounded(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  const int digits = 3 - static_cast<int>(std::floor(std::log10(std::fabs(value))));
  const double scale = std::pow(10.0, std::abs(digits));
  if (!std::isfinite(scale)) return data::GeneralText(value);
  const double rounded =
      digits < 0 ? std::nearbyint(value / scale) * scale : std::nearbyint(value * scale) / scale;
  return data::GeneralText(rounded);
}

std::string Signed(double value) { return (value > 0 ? "+" : "") + data::GeneralText(data::Bounded(value)); }

// As exact as the two numbers were: the difference of 1000.3 and 1000.1 is 0.2.
double Difference(double a, double b) {
  const double largest = std::max(std::fabs(a), std::fabs(b));
  const double unit = std::pow(10.0, std::ceil(std::log10(largest)) - 13);
  const double difference = std::nearbyint((b - a) / unit) * unit;
  return largest > 0 && std::isfinite(difference) ? difference : data::Bounded(b - a);
}

}  // namespace

std::vector<std::string> ReadingTold(const data::Document& document, const ValueArrays& values, Index index) {
  const data::MeasurementTable& table = document.Grid1();
  const data::MeasurementTable::Row row = index + 1;
  const int run = values.Runs()[values.RunOf(index)].number;
  std::vector<std::string> lines;
  const std::string number = "No." + Short(table.TextMatrix(row, 0));
  const std::string name = run > 0 ? Short(document.Grid4().TextMatrix(run, 1)) : "";
  lines.push_back(name.empty() || name == number ? number : number + "  " + name);
  lines.push_back("Time  " + Short(table.TextMatrix(row, 1)));
  const auto add = [&](int column) {
    const std::string value = ValueTold(document, row, column);
    if (!value.empty()) lines.push_back(Short(table.TextMatrix(0, column)) + "  " + value);
  };
  add(document.ViscoColumn());
  if (document.TempColumn() != document.ViscoColumn()) add(document.TempColumn());
  const std::string date = run > 0 ? Short(document.Grid4().TextMatrix(run, 3)) : "";
  if (!date.empty()) lines.push_back(date);
  return lines;
}

std::string RunTold(const data::Document& document, const ValueArrays& values, int number) {
  Index first = -1;
  Index last = -1;
  Index count = 0;
  for (std::size_t run = 0; run < values.Runs().size(); ++run) {
    if (values.Runs()[run].number != number) continue;
    if (count == 0) first = values.Runs()[run].first;
    last = values.RunEnd(run) - 1;
    count += last + 1 - values.Runs()[run].first;
  }
  if (count == 0) return {};
  const auto told = [&](const char* which, Index index) {
    std::string line = which + Short(document.Grid1().TextMatrix(index + 1, 1));
    for (const int column : {document.ViscoColumn(), document.TempColumn()}) {
      const std::string value = ValueTold(document, index + 1, column);
      if (!value.empty()) line += ", " + value;
    }
    return line + '\n';
  };
  return std::string(data::Utf8Prefix(document.Grid4().TextMatrix(number, 1), kWholeName)) + '\n' +
         told("First: ", first) + told("Last: ", last) + data::CountText(count, "reading", "readings");
}

std::vector<std::string> BetweenTold(const ValueArrays& values, Index a, Index b, const AxisView& view,
                                     GraphKind kind) {
  constexpr std::string_view kUnits[] = {"s", "min", "h"};
  const std::string_view time_unit = kUnits[static_cast<std::size_t>(view.time_unit)];
  const double time = Difference(values.Time()[a], values.Time()[b]);
  const double visco = Difference(values.Visco()[a], values.Visco()[b]);
  const double temp = Difference(values.Temp()[a], values.Temp()[b]);
  const bool over_temp = kind == GraphKind::ViscoTemp;
  const double way = over_temp ? temp : time / SecondsOf(view.time_unit);
  std::vector<std::string> lines;
  lines.push_back("A to B");
  lines.push_back("Time  " + Signed(data::C_Val(Rounded(time / SecondsOf(view.time_unit)))) + " " +
                  std::string(time_unit));
  lines.push_back("Viscosity  " + Signed(visco));
  lines.push_back("Temp  " + Signed(temp));
  if (way != 0)
    lines.push_back("Slope  " + Signed(data::C_Val(Rounded(visco / way))) + " / " +
                    (over_temp ? "degree" : std::string(time_unit)));
  return lines;
}

}  // namespace quenlor::graph
