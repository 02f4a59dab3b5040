// SPDX-License-Identifier: MIT
#include "data/data_file.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/eight_bytes.h"
#include "data/text_lines.h"
#include "data/text_number.h"
#include "data/utf8.h"

namespace quenlor::data {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kKeyLength = 4;
// As many columns as there can be, with long numbers in them, stay well below. A longer line is noise; whole,
// it would make every look at one of its cells a walk through all of it.
constexpr std::ptrdiff_t kLongestReading = 1 << 20;

constexpr std::ptrdiff_t kTold = 1 << 22;  // bytes between two words about how far a reading has come

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

AxisValues ReadAxis(const std::vector<std::string>& fields) {
  AxisValues axis;
  auto field = fields.begin();
  for (std::optional<double>* number :
       {&axis.ViscoColumn, &axis.TempColumn, &axis.TimeMin, &axis.TimeMax, &axis.ViscoMin, &axis.ViscoMax,
        &axis.TempMin, &axis.TempMax, &axis.ViscoLogMin, &axis.ViscoLogMax}) {
    if (field != fields.end()) *number = C_Val(*field++);
  }
  for (std::optional<std::string>* item : {&axis.TimeS, &axis.mLog, &axis.LW, &axis.MK}) {
    if (field != fields.end()) *item = *field++;
  }
  return axis;
}

// Where the memo lines begin; the end where there are none.
std::size_t MemoLines(std::string_view bytes) {
  std::size_t line = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  while (line < bytes.size()) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n", line), bytes.size());
    const std::size_t next = std::min(end + (bytes.substr(end).starts_with("\r\n") ? 2 : 1), bytes.size());
    if (bytes.substr(line, kKeyLength) == "Memo"sv) return next;
    line = next;
  }
  return bytes.size();
}

// Reads a data file block by block; the lines that are readings stay where they are in their block.
class Reader {
 public:
  // False when `progress` has left it.
  bool ReadBlock(std::string block, const Progress& progress) {
    std::vector<std::uint64_t> starts;
    starts.reserve(block.size() / 24 + 1);  // a short reading; memory that is not reached is never touched
    char* const begin = block.data();
    char* const end = begin + block.size();
    char* told = begin;
    for (char* at = begin; at < end;) {
      if (at - told >= kTold && progress) {
        told = at;
        if (!progress(static_cast<double>(at - begin) / static_cast<double>(end - begin))) return false;
      }
      if (IsLineEnd(*at) && !in_memo_) {
        ++at;
        continue;
      }
      if (!in_memo_ && !MayHoldAKey(*at) && separator_known_) {
        starts.push_back(static_cast<std::uint64_t>(at - begin));
        at = ReadReading(at, end);
        continue;
      }
      char* const line_end = std::find_if(at, end, IsLineEnd);
      if (ReadKeyLine({at, static_cast<std::size_t>(line_end - at)})) {
        at = line_end + (line_end + 1 < end && *line_end == '\r' && line_end[1] == '\n' ? 2 : 1);
      } else {
        starts.push_back(static_cast<std::uint64_t>(at - begin));
        at = ReadReading(at, end);
      }
    }
    if (contents_.separator == ';' && block.find(',') != std::string::npos) contents_.holds_commas = true;
    contents_.table.AdoptRows(std::move(block), std::move(starts));
    return true;
  }

  DataFileContents Take() { return std::move(contents_); }

 private:
  // Digits open nearly every line of a data file; the letters of the keys, a blank line's blanks do not.
  static bool MayHoldAKey(char c) { return !IsDigit(c); }

  // Divides the reading that starts at `at` into cells, in place; where to go on. Every line of a block has
  // an end.
  char* ReadReading(char* at, const char* block_end) {
    char* const line = at;
    int cells = 1;
    const std::string_view rest(line, static_cast<std::size_t>(block_end - line));
    char* const line_end = DivideLine(line, block_end, DividerOf(rest, contents_.separator), cells);
    at = line_end;
    if (line_end - line > kLongestReading) {
      at = line + kLongestReading;
      while ((*at & 0xC0) == 0x80) --at;  // not within a character
    }
    *at = MeasurementTable::kRowEnd;
    if (cells > MeasurementTable::kMaxCols) CutAfterTheLastColumn(line);
    if (!IsOfLastRun(line)) NoteRun(line);
    while (contents_.table.Cols() < cells && contents_.table.AddDataColumn()) {
    }
    return line_end + 1;  // the LF of a CR LF reads as a blank line
  }

  static void CutAfterTheLastColumn(char* reading) {
    for (int cells = 0; *reading != MeasurementTable::kRowEnd; ++reading) {
      if (*reading == MeasurementTable::kCellEnd && ++cells == MeasurementTable::kMaxCols) break;
    }
    *reading = MeasurementTable::kRowEnd;
  }

  // Makes the line's separators cell ends and counts them; where the line ends.
  static char* DivideLine(char* at, const char* block_end, char separator, int& cells) {
    for (; EightBytes::kFirstIsLowest && block_end - at >= EightBytes::kSize; at += EightBytes::kSize) {
      const EightBytes bytes(at);
      const std::uint64_t line_ends = bytes.Equal('\r') | bytes.Equal('\n');
      std::uint64_t separators = bytes.Equal(separator);
      if (line_ends != 0) separators &= EightBytes::BeforeFirst(line_ends);
      bytes.StoreWith(MeasurementTable::kCellEnd, separators, at);
      cells += EightBytes::Count(separators);
      if (line_ends != 0) return at + EightBytes::First(line_ends);
    }
    for (; !IsLineEnd(*at); ++at) {
      if (*at != separator) continue;
      *at = MeasurementTable::kCellEnd;
      ++cells;
    }
    return at;
  }

  // Readings of one run follow each other, so the text of the last number is nearly always met again.
  bool IsOfLastRun(const char* reading) const {
    for (const char c : last_run_) {
      if (*reading++ != c) return false;
    }
    return true;
  }

  void NoteRun(const char* reading) {
    const char* end = reading;
    while (*end != MeasurementTable::kCellEnd && *end != MeasurementTable::kRowEnd) ++end;
    last_run_.assign(reading, end + 1);
    RaiseRunCount(RunNumber({reading, static_cast<std::size_t>(end - reading)}));
  }

  void RaiseRunCount(int number) {
    if (number <= contents_.run_count) return;
    contents_.run_count = number;
    contents_.runs.AddRunsUpTo(number);
  }

  // True when the line is not a reading, and has been dealt with.
  bool ReadKeyLine(std::string_view line) {
    if (in_memo_) {
      contents_.List2.emplace_back(line);
      return true;
    }
    if (Trimmed(line).empty()) return true;
    const std::string_view key = line.substr(0, kKeyLength);
    if (key == "No.,"sv || key == "No.;"sv || line == "No."sv) {
      if (key.size() == kKeyLength) SetSeparator(key.back());
      ReadTitles(line);
      return true;
    }
    const bool keyed =
        key == "Date"sv || key == "Memo"sv || key == "Info"sv || key == "Axis"sv || key == "Temp"sv;
    if (!separator_known_) GuessSeparator(keyed ? line.substr(kKeyLength, 1) : line);
    if (!keyed) return false;

    const std::string_view rest = WithoutKey(line);
    if (key == "Date"sv) contents_.date = rest;
    if (key == "Memo"sv) ReadRemarks(rest);
    if (key == "Info"sv) ReadInfo(rest);
    if (key == "Axis"sv) contents_.axis = ReadAxis(SplitFields(rest, contents_.separator));
    return true;
  }

  // Without a title row the first line that has a separator shows which one it is.
  void GuessSeparator(std::string_view text) {
    const bool semicolon = text.find(';') != text.npos;
    if (semicolon || text.find(',') != text.npos) SetSeparator(semicolon ? ';' : ',');
  }

  // The key and one character behind it are no content; in noise that character may be longer
  // than a separator.
  static std::string_view WithoutKey(std::string_view line) {
    line.remove_prefix(std::min(kKeyLength + 1, line.size()));
    while (!line.empty() && (line.front() & 0xC0) == 0x80) line.remove_prefix(1);
    return line;
  }

  void SetSeparator(char separator) {
    contents_.separator = separator;
    separator_known_ = true;
  }

  void ReadTitles(std::string_view line) {
    int col = 0;
    for (const std::string& title : SplitFields(line, contents_.separator)) {
      if (col == contents_.table.Cols() && !contents_.table.AddDataColumn()) return;
      contents_.table.SetTextMatrix(0, col++, title);
    }
  }

  void ReadRemarks(std::string_view rest) {
    std::string remarks(rest);
    std::replace(remarks.begin(), remarks.end(), contents_.separator, ' ');
    contents_.remarks = std::move(remarks);
    in_memo_ = true;
  }

  void ReadInfo(std::string_view rest) {
    int col = 0;
    for (const std::string& field : SplitFields(rest, contents_.separator)) {
      if (col == 0)
        RaiseRunCount(RunNumber(std::string_view(field).substr(std::min<std::size_t>(3, field.size()))));
      contents_.runs.SetTextMatrix(info_row_, col++, field);
    }
    ++info_row_;
  }

  DataFileContents contents_;
  bool separator_known_ = false;
  bool in_memo_ = false;
  int info_row_ = 0;
  std::string last_run_{MeasurementTable::kCellEnd};  // the number of the last reading, with the cell's end
};

}  // namespace

DataFileContents ParseDataFile(std::string bytes) { return *ParseDataFile(std::move(bytes), {}); }

std::optional<DataFileContents> ParseDataFile(std::string bytes, const Progress& progress) {
  TextEncoding encoding =
      bytes.starts_with(kByteOrderMark) ? TextEncoding::kUtf8WithMark : TextEncoding::kUtf8;
  if (!IsUtf8(bytes)) {
    const std::string memo = bytes.substr(MemoLines(bytes));
    bytes.resize(bytes.size() - memo.size());
    encoding = EncodingOf(bytes);
    bytes = ToUtf8(std::move(bytes)) + memo;
  }
  Reader reader;
  // A last line without an end gets one in a block of its own, so that the large one is not copied
  // for a byte.
  const std::size_t last_end = bytes.find_last_of("\r\n");
  const std::size_t whole = last_end == std::string::npos ? 0 : last_end + 1;
  std::string last_line = bytes.substr(whole);
  bytes.resize(whole);
  if (bytes.starts_with(kByteOrderMark)) bytes.replace(0, kByteOrderMark.size(), "\n\n\n");
  if (whole == 0 && last_line.starts_with(kByteOrderMark)) last_line.erase(0, kByteOrderMark.size());
  if (!bytes.empty() && !reader.ReadBlock(std::move(bytes), progress)) return std::nullopt;
  if (!last_line.empty()) reader.ReadBlock(last_line + "\n", {});
  DataFileContents contents = reader.Take();
  contents.encoding = encoding;
  return contents;
}

void ApplyAxisSettings(const AxisValues& axis, SettingsList& settings) {
  struct Choice {
    const std::optional<std::string>& item;
    int element;
    int first;
    int last;
  };
  const Choice choices[] = {{axis.TimeS, setting::kTimeS, 0, 2},
                            {axis.mLog, setting::kLog, 0, 1},
                            {axis.LW, setting::kLW, 1, 2},
                            {axis.MK, setting::kMK, 0, 4}};
  for (const Choice& choice : choices) {
    if (!choice.item) continue;
    const auto item = LeadingNumber(*choice.item);
    if (item && *item >= choice.first && *item <= choice.last && *item == std::floor(*item)) {
      settings.Set(choice.element, static_cast<int>(*item));
    } else {
      settings.Set(choice.element, *choice.item);
    }
  }
}

std::string NewTemplate(bool visco_view, int field_count) {
  std::string line =
      visco_view ? "No.,Time,Viscosity,Unit1,Temp,Unit2" : "No.,Time,Data 1,Data 2,Data 3,Data 4";
  const int columns = std::min(field_count, MeasurementTable::kMaxCols);
  for (int k = 6; k < columns; ++k) line += ",Data" + std::to_string(k - 1);
  return line + "\r\n";
}

}  // namespace quenlor::data
