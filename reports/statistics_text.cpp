// SPDX-License-Identifier: MIT
#include "reports/statistics_text.h"

#include "data/script_text.h"
#include "data/utf8.h"

namespace quenlor::reports {
namespace {

using Row = StatisticsTable::Row;
using data::AppendCsvField;
using data::AppendJsonNumber;
using data::AppendJsonString;

// The row's cells from that column on, each a JSON string.
void AppendJsonCells(const StatisticsTable& table, Row row, int first_col, std::string& json) {
  json.push_back('[');
  for (int col = first_col; col < table.Cols(); ++col) {
    if (col > first_col) json.append(", ");
    AppendJsonString(table.TextMatrix(row, col), json);
  }
  json.push_back(']');
}

void AppendJsonStatistics(std::string_view name, const StatisticsTable::Column& column, std::string& json) {
  const auto append = [&](std::string_view what, std::optional<double> number) {
    json.append(", \"").append(what).append("\": ");
    AppendJsonNumber(number, json);
  };
  json.append("\"").append(name).append("\": {\"column\": ").append(std::to_string(column.column));
  const auto& values = column.values;
  append("maximum", values ? std::optional(values->maximum) : std::nullopt);
  append("minimum", values ? std::optional(values->minimum) : std::nullopt);
  append("average", values ? std::optional(values->average) : std::nullopt);
  append("standard_deviation", values ? values->standard_deviation : std::nullopt);
  json.push_back('}');
}

void AppendJsonObject(const StatisticsSheet& sheet, std::string& json) {
  const StatisticsTable& table = sheet.table;
  json.append("{\"file\": ");
  AppendJsonString(data::ToUtf8(std::string(sheet.file_name)), json);
  json.append(", \"date\": ");
  AppendJsonString(data::ToUtf8(std::string(sheet.date)), json);
  json.append(",\n \"columns\": ");
  AppendJsonCells(table, 0, 0, json);
  json.append(",\n \"runs\": [");
  for (Row row = 1; row <= table.Runs(); ++row) {
    json.append(row > 1 ? ",\n  {\"label\": " : "\n  {\"label\": ");
    AppendJsonString(table.TextMatrix(row, 0), json);
    json.append(", \"cells\": ");
    AppendJsonCells(table, row, 1, json);
    json.push_back('}');
  }
  json.append("],\n \"statistics\": {");
  AppendJsonStatistics("time", table.Time(), json);
  json.append(",\n  ");
  AppendJsonStatistics("viscosity", table.Viscosity(), json);
  json.append(",\n  ");
  AppendJsonStatistics("temperature", table.Temperature(), json);
  json.append("}}");
}

bool IsFigure(std::string_view text) {
  return text.find_first_of("0123456789") != text.npos &&
         text.find_first_not_of("0123456789.,:+-eE ") == text.npos;
}

}  // namespace

bool StandsRight(const StatisticsTable& table, StatisticsTable::Row row, int col) {
  if (col == 0) return false;
  return IsFigure(table.TextMatrix(row == 0 ? 1 : row, col));
}

std::string ClipboardText(const StatisticsSheet& sheet) {
  std::string text;
  text.append(sheet.file_name).append("\r\n").append(sheet.date).append("\r\n");
  for (Row row = 0; row < sheet.table.Rows(); ++row) {
    text.push_back('\t');
    sheet.table.AppendLine(row, '\t', text);
    text.append("\r\n");
  }
  return text;
}

void AppendCsv(const StatisticsSheet& sheet, std::string& text) {
  std::string captions;
  AppendCsvField(data::ToUtf8(std::string(sheet.file_name)), captions);
  captions.push_back(',');
  AppendCsvField(data::ToUtf8(std::string(sheet.date)), captions);
  for (Row row = 0; row < sheet.table.Rows(); ++row) {
    text.append(row == 0 ? "File,Date" : captions);
    for (int col = 0; col < sheet.table.Cols(); ++col) {
      text.push_back(',');
      AppendCsvField(sheet.table.TextMatrix(row, col), text);
    }
    text.push_back('\n');
  }
}

std::string JsonText(std::span<const StatisticsSheet> sheets) {
  std::string json = "[";
  for (const StatisticsSheet& sheet : sheets) {
    json.append(&sheet == sheets.data() ? "\n" : ",\n");
    AppendJsonObject(sheet, json);
  }
  json.append("\n]\n");
  return json;
}

}  // namespace quenlor::reports
