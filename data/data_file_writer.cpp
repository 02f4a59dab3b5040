// SPDX-License-Identifier: MIT
#include "data/data_file_writer.h"

#include <algorithm>
#include <string>

#include "data/text_number.h"

namespace quenlor::data {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;

class Writer {
 public:
  Writer(const Document& document, const std::function<void(std::string_view)>& write)
      : document_(document), separator_(document.FieldSeparator()), write_(write) {
    piece_.reserve(kPiece + 4096);
  }

  void WriteTable() {
    const MeasurementTable& table = document_.Grid1();
    for (MeasurementTable::Row row = 0; row < table.EntryRow(); ++row) {
      table.AppendLine(row, separator_, piece_);
      EndLine();
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
    for (const std::string& line : document_.List2()) {
      piece_ += line;
      EndLine();
    }
  }

  void Finish() { write_(piece_); }

 private:
  void EndLine() {
    piece_ += "\r\n";
    if (piece_.size() < kPiece) return;
    write_(piece_);
    piece_.clear();
  }

  const Document& document_;
  const char separator_;
  const std::function<void(std::string_view)>& write_;
  std::string piece_;
};

}  // namespace

void WriteDataFile(const Document& document, const SettingsList& settings,
                   const std::function<void(std::string_view)>& write) {
  Writer writer(document, write);
  writer.WriteTable();
  writer.WriteRuns();
  writer.WriteAxis(settings);
  writer.WriteHeader();
  writer.Finish();
}

}  // namespace quenlor::data
