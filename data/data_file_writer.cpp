// SPDX-License-Identifier: MIT
#include "data/data_file_writer.h"

#include <algorithm>
#include <string>

#include "data/text_number.h"
#include "data/utf8.h"

namespace quenlor::data {
namespace {

using Sink = std::function<void(std::string_view)>;

constexpr std::size_t kPiece = std::size_t{1} << 20;
constexpr MeasurementTable::Row kTold = 1 << 16;  // rows between two words about how far it has come

class Writer {
 public:
  Writer(const Document& document, const Sink& write, const Progress& progress = {})
      : document_(document), separator_(document.FieldSeparator()), write_(write), progress_(progress) {}

  void WriteTable() {
    const MeasurementTable& table = document_.Grid1();
    piece_.reserve(kPiece + 4096);
    for (MeasurementTable::Row row = 0; row < table.EntryRow(); ++row) {
      table.AppendLine(row, separator_, piece_);
      EndLine();
      if (progress_ && row % kTold == 0)
        progress_(static_cast<double>(row) / static_cast<double>(table.Rows()));
    }
  }

  void WriteRuns() {
    const RunTable& runs = document_.Grid4();
    for (int row = 0; runs.Rows() >= 2 && row < runs.Rows(); ++row) {
      piece_ += "Info";
      for (int col = 0; col < runs.Cols(); ++col) (piece_ += separator_) += runs.TextMatrix(row, col);
      EndLine();
    }
  }

  void WriteAxis(const SettingsList& settings) {
    const AxisRanges& ranges = document_.Ranges();
    const std::string fields[] = {std::to_string(document_.ViscoColumn()),
                                  std::to_string(document_.TempColumn()),
                                  GeneralText(ranges.TimeMin),
                                  GeneralText(ranges.TimeMax),
                                  GeneralText(ranges.ViscoMin),
                                  GeneralText(ranges.ViscoMax),
                                  GeneralText(ranges.TempMin),
                                  GeneralText(ranges.TempMax),
                                  std::to_string(ranges.ViscoLogMin),
                                  std::to_string(ranges.ViscoLogMax),
                                  settings[setting::kTimeS],
                                  settings[setting::kLog],
                                  settings[setting::kLW],
                                  settings[setting::kMK]};
    piece_ += "Axis";
    for (const std::string& field : fields) (piece_ += separator_) += field;
    EndLine();
  }

  void WriteHeader() {
    (piece_ += "Date") += separator_;
    piece_ += document_.Date();
    EndLine();
    std::string remarks = document_.Remarks();
    std::ranges::replace(remarks, ' ', separator_);
    (piece_ += "Memo") += separator_;
    piece_ += remarks;
    EndLine();
  }

  // Whatever the encoding is, these are bytes.
  void WriteMemoLines() {
    for (const std::string& line : document_.List2()) {
      piece_ += line;
      EndLine();
    }
  }

  void HandOver() {
    if (piece_.empty()) return;
    write_(piece_);
    piece_.clear();
  }

 private:
  void EndLine() {
    piece_ += "\r\n";
    if (piece_.size() >= kPiece) HandOver();
  }

  const Document& document_;
  const char separator_;
  const Sink& write_;
  const Progress& progress_;
  std::string piece_;
};

void WriteLines(const Document& document, const SettingsList& settings, const Sink& write,
                const Progress& progress) {
  Writer writer(document, write, progress);
  writer.WriteTable();
  writer.WriteRuns();
  writer.WriteAxis(settings);
  writer.WriteHeader();
  writer.HandOver();
}

// Whether the whole document can be written in Latin-1 and is told as that when it is read.
bool FitsLatin1(const Document& document, const SettingsList& settings, const Progress& progress) {
  bool fits = true;
  WriteLines(
      document, settings,
      [&](std::string_view piece) {
        const auto bytes = ToLatin1(piece);
        fits =
            fits && bytes && (bytes->size() == piece.size() || EncodingOf(*bytes) == TextEncoding::kLatin1);
      },
      progress);
  return fits;
}

}  // namespace

void WriteDataFile(const Document& document, const SettingsList& settings, const Sink& write,
                   const Progress& progress) {
  if (document.Encoding() == TextEncoding::kUtf8WithMark) write(kByteOrderMark);
  if (document.Encoding() == TextEncoding::kLatin1 &&
      FitsLatin1(document, settings, PartOf(progress, 0, 0.5))) {
    WriteLines(
        document, settings, [&](std::string_view piece) { write(*ToLatin1(piece)); },
        PartOf(progress, 0.5, 1));
  } else {
    WriteLines(document, settings, write, progress);
  }
  Writer memo(document, write);
  memo.WriteMemoLines();
  memo.HandOver();
}

}  // namespace quenlor::data
