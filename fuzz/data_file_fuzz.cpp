// SPDX-License-Identifier: MIT
#include "data/data_file.h"
#include "data/data_file_writer.h"
#include "data/document.h"
#include "data/settings_list.h"
#include "data/text_number.h"
#include "data/utf8.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"

namespace quenlor::fuzz {
namespace {

using data::Document;
using Row = Document::Row;

// Few bytes can mean a large table: one long line makes every row as wide. Writing it back finds nothing new.
constexpr std::int64_t kMostCells = 20'000;

bool IsSmall(const data::DataFileContents& contents) {
  return contents.table.Rows() * contents.table.Cols() <= kMostCells &&
         std::int64_t{contents.runs.Rows()} * contents.runs.Cols() <= kMostCells;
}

// A document as the program has it open after reading these bytes.
struct Opened {
  Opened(data::DataFileContents contents, bool decimal_comma) {
    settings.SetDefaults(decimal_comma);
    document.Load(std::move(contents), "file.csv", "2024/03/15 12:00:00");
  }

  std::string Written() const {
    std::string bytes;
    data::WriteDataFile(document, settings, [&](std::string_view piece) { bytes += piece; });
    return bytes;
  }

  data::SettingsList settings;
  Document document{settings};
};

template <class Visit>
void VisitCells(const Document& document, Visit visit) {
  for (Row row = 0; row < document.Grid1().EntryRow(); ++row) {
    for (int col = 0; col < document.Grid1().Cols(); ++col) visit(document.Grid1().TextMatrix(row, col));
  }
  const data::RunTable& runs = document.Grid4();
  for (int row = 0; runs.Rows() > 1 && row < runs.Rows(); ++row) {  // without runs its titles are not written
    for (int col = 0; col < runs.Cols(); ++col) visit(runs.TextMatrix(row, col));
  }
}

void CheckTexts(const Document& document) {
  const auto check = [](std::string_view text) {
    Check(text.find_first_of("\r\n") == text.npos, "a text has no line end");
    Check(data::IsUtf8(text), "a text is UTF-8");
  };
  VisitCells(document, check);
  for (const std::string& line : document.List2())
    Check(line.find_first_of("\r\n") == line.npos, "a memo line has no line end");
  check(document.Date());
  check(document.Remarks());
}

// A separator inside a text divides it when it is written and read again: nothing is quoted. The other
// separator does so behind a run number.
bool HoldsItsSeparator(const Document& document) {
  const char separator = document.FieldSeparator();
  bool holds = document.Remarks().find(separator) != std::string::npos;
  VisitCells(document, [&](std::string_view cell) { holds |= cell.find(separator) != cell.npos; });
  for (Row row = 1; row < document.Grid1().EntryRow(); ++row)
    holds |= document.Grid1().TextMatrix(row, 0).find_first_of(",;") != std::string_view::npos;
  return holds;
}

bool Same(const data::AxisRanges& a, const data::AxisRanges& b) {
  const auto texts = [](const data::AxisRanges& ranges) {
    std::string text;
    for (const double limit :
         {ranges.TimeMin, ranges.TimeMax, ranges.ViscoMin, ranges.ViscoMax, ranges.TempMin, ranges.TempMax}) {
      text += data::GeneralText(limit) + " ";
    }
    return text;
  };
  return texts(a) == texts(b) && a.ViscoLogMin == b.ViscoLogMin && a.ViscoLogMax == b.ViscoLogMax;
}

bool SameCells(const Document& a, const Document& b) {
  std::vector<std::string_view> cells;
  VisitCells(a, [&](std::string_view cell) { cells.push_back(cell); });
  std::size_t next = 0;
  bool same = a.Grid1().Rows() == b.Grid1().Rows() && a.Grid1().Cols() == b.Grid1().Cols() &&
              a.Grid4().Rows() == b.Grid4().Rows();
  VisitCells(b, [&](std::string_view cell) { same = same && next < cells.size() && cells[next++] == cell; });
  return same && next == cells.size();
}

void CheckWritingAndReading(const Opened& first, bool decimal_comma) {
  const std::string bytes = first.Written();
  auto contents = data::ParseDataFile(bytes);
  if (!IsSmall(contents)) return;
  const Opened second(std::move(contents), decimal_comma);
  const Document& before = first.document;
  const Document& after = second.document;
  CheckTexts(after);
  if (HoldsItsSeparator(before)) return;
  Check(SameCells(before, after), "all cells come back");
  Check(before.List2() == after.List2(), "the memo lines come back");
  Check(before.Date() == after.Date(), "the date comes back");
  Check(before.Remarks() == after.Remarks(), "the remarks come back");
  Check(before.RunCount() == after.RunCount() && before.MultiRun() == after.MultiRun(), "the runs come back");
  Check(before.ViscoColumn() == after.ViscoColumn() && before.TempColumn() == after.TempColumn(),
        "the columns that are shown come back");
  Check(Same(before.Ranges(), after.Ranges()), "the ranges come back");
  Check(second.Written() == bytes, "a document that was saved and opened is saved as the same file");
}

void CheckAxisSettings(const data::AxisValues& axis) {
  data::SettingsList settings;
  data::ApplyAxisSettings(axis, settings);
  data::SettingsList read_back;
  read_back.Parse(settings.Text(), false);
  Check(read_back.Text() == settings.Text(), "whatever an Axis line says, the settings file holds it");
}

}  // namespace

void DataFile(std::string_view input) {
  for (const bool decimal_comma : {false, true}) {
    auto contents = data::ParseDataFile(std::string(input));
    CheckAxisSettings(contents.axis);
    if (!IsSmall(contents)) continue;
    const Opened opened(std::move(contents), decimal_comma);
    CheckTexts(opened.document);
    CheckWritingAndReading(opened, decimal_comma);
  }
}

}  // namespace quenlor::fuzz
