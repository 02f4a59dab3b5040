// SPDX-License-Identifier: MIT
#include "app/desk/reading_text.h"

#include "data/script_text.h"
#include "data/text_number.h"

namespace quenlor::app {
namespace {

using data::MeasurementTable;

std::string CsvLine(const MeasurementTable& table, MeasurementTable::Row row) {
  std::string line;
  for (int col = 0; col < table.Cols(); ++col) {
    if (col > 0) line.push_back(',');
    data::AppendCsvField(table.TextMatrix(row, col), line);
  }
  return line += '\n';
}

std::string JsonLine(const data::Document& document, MeasurementTable::Row row) {
  const MeasurementTable& table = document.Grid1();
  std::string json = "{\"run\": " + std::to_string(document.RunCount());
  const auto number = [&](const char* name, std::optional<double> value) {
    json.append(", \"").append(name).append("\": ");
    data::AppendJsonNumber(value, json);
  };
  number("time", data::TimeToSeconds(table.TextMatrix(row, 1)));
  number("viscosity", data::LeadingNumber(table.TextMatrix(row, document.ViscoColumn())));
  number("temperature", data::LeadingNumber(table.TextMatrix(row, document.TempColumn())));
  json += ", \"date\": ";
  data::AppendJsonString(document.Date(), json);
  json += ", \"cells\": [";
  for (int col = 0; col < table.Cols(); ++col) {
    if (col > 0) json += ", ";
    data::AppendJsonString(table.TextMatrix(row, col), json);
  }
  return json += "]}\n";
}

}  // namespace

std::string ReadingText(OutputFormat format, const data::Document& document) {
  const MeasurementTable& table = document.Grid1();
  const MeasurementTable::Row row = table.EntryRow() - 1;
  if (format == OutputFormat::kJson) return JsonLine(document, row);
  if (format == OutputFormat::kCsv)
    return (row == 1 ? CsvLine(table, 0) : std::string()) + CsvLine(table, row);
  std::string line;
  table.AppendLine(row, '\t', line);
  return line += '\n';
}

}  // namespace quenlor::app
