// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/axis_ranges.h"
#include "data/data_file.h"
#include "data/date_time.h"
#include "data/header_values.h"
#include "data/measurement_table.h"
#include "data/run_table.h"
#include "data/settings_list.h"

namespace quenlor::data {

// Told after the document has changed. The calls say what changed, in the words of the tables.
class DocumentListener {
 public:
  using Row = MeasurementTable::Row;
  virtual ~DocumentListener() = default;
  virtual void ReadingAppended(Row /*row*/) {}
  virtual void RowsAboutToBeRemoved(Row /*first*/, Row /*last*/) {
  }  // the one call that comes before its change
  virtual void RowsRemoved(Row /*first*/, Row /*last*/) {}
  virtual void RowsAboutToBeRestored(Row /*first*/, Row /*last*/) {}  // comes before, too
  virtual void RowsRestored(Row /*first*/, Row /*last*/) {}  // a removal was undone, or a file appended
  virtual void CellChanged(Row /*row*/, int /*col*/) {}
  virtual void ColumnsChanged() {
  }  // a column or title more or other, or another column shown as viscosity or temp
  virtual void RunsChanged() {}    // the run information table
  virtual void HeaderChanged() {}  // a caption
  virtual void DocumentReplaced() {}
  virtual void DocumentSaved() {}
  virtual void CommasDivideFields() {}  // once for a document, when CommasDivide becomes true
};

// The open document: the tables, what is known beside them, and every way in which they change.
//
// Readings are appended by AppendReading, one run per measurement; a file replaces everything by Load.
class Document {
 public:
  using Row = MeasurementTable::Row;

  explicit Document(const SettingsList& settings) : settings_(settings) {}

  void AddListener(DocumentListener& listener) { listeners_.push_back(&listener); }
  void RemoveListener(DocumentListener& listener) { std::erase(listeners_, &listener); }

  const MeasurementTable& Grid1() const { return table_; }
  const RunTable& Grid4() const { return runs_; }
  int RunCount() const { return RunCount_; }
  bool MultiRun() const { return MultiRun_; }
  bool DataChanged() const { return DataChanged_; }
  int ViscoColumn() const { return ViscoColumn_; }
  int TempColumn() const { return TempColumn_; }
  double StartTime() const { return StartTime_; }
  // What a save would keep that no file holds: readings that came since, and whether texts or rows are
  // others.
  Row UnsavedReadings() const { return unsaved_readings_; }
  bool EditedSinceSave() const { return edited_; }
  double LastReadingAt() const {
    return last_reading_at_;
  }  // in the time base of StartTime; 0 before the first
  char FieldSeparator() const { return FieldSeparator_; }
  // Some cell, title or name has a "," in it, and "," divides them in a file: they will not come back whole.
  bool CommasDivide() const { return holds_commas_ && FieldSeparator_ == ','; }
  TextEncoding Encoding() const { return encoding_; }  // of the file that it came from
  const AxisRanges& Ranges() const { return ranges_; }
  const std::string& FileName() const { return file_name_; }
  const std::string& Date() const { return date_; }
  const std::string& Remarks() const { return remarks_; }
  const std::vector<std::string>& List2() const { return List2_; }

  // The next reading begins a new run.
  void BeginMeasurement() { StartTime_ = 0; }

  // Appends one reading with its fields in column order, stamped with `now`; the first one since
  // BeginMeasurement starts a run. `filled` is called with the new row before listeners hear of it: the raw
  // log writes it there. False, and nothing changed, when the run numbers are used up.
  bool AppendReading(std::span<const std::string_view> fields, const Moment& now,
                     const std::function<void(Row)>& filled = {});

  // Removes readings from the larger to the smaller of the two rows; what puts them back.
  MeasurementTable::RemovedRows RemoveRows(Row row, Row row_sel);
  // Undoes a removal; nothing but appending, and edits that were undone, came between.
  void RestoreRows(const MeasurementTable::RemovedRows& rows);

  void SetCell(Row row, int col, std::string_view text);
  void SetTitle(int col, std::string_view text);
  void SetSampleName(int run, std::string_view name);
  void SetFileName(std::string_view name);
  void SetRemarks(std::string_view remarks);
  void SetViscoColumn(int col);
  void SetTempColumn(int col);
  void SetRanges(const AxisRanges& ranges) { ranges_ = ranges; }
  void SetFieldSeparator(char separator);

  // The contents of a file become the document: nothing unsaved, no run begun. `file_date` stands as the date
  // where the file has none of its own.
  void Load(DataFileContents contents, std::string_view file_name, std::string_view file_date);

  // The runs of another file come behind those of the document, as unsaved readings; they are called after it
  // where they have only their number. What it says of axes and remarks is left; its memo lines are kept.
  // False, and nothing changed, when the run numbers do not suffice. No measurement runs.
  bool AppendRuns(DataFileContents contents, std::string_view file_name);

  // After a save: nothing unsaved, and the document is called after the file.
  void Saved(std::string_view file_name);

 private:
  template <class... Parameters, class... Arguments>
  void Tell(void (DocumentListener::*what)(Parameters...), Arguments... arguments) {
    for (DocumentListener* listener : std::vector(listeners_)) (listener->*what)(arguments...);
  }
  void StartRun();
  void KeptInAFile();
  void NoteCommas(std::string_view text);
  void TellOfCommas();
  void ChooseColumns();
  void TakeAxis(const AxisValues& axis);

  const SettingsList& settings_;
  std::vector<DocumentListener*> listeners_;
  MeasurementTable table_;
  RunTable runs_;
  AxisRanges ranges_;
  std::int16_t RunCount_ = 0;
  std::int16_t ViscoColumn_ = 2;
  std::int16_t TempColumn_ = 3;
  bool MultiRun_ = false;
  bool DataChanged_ = false;
  bool holds_commas_ = false;  // some cell, title or name has a "," in it
  bool commas_told_ = false;
  bool edited_ = false;
  Row unsaved_readings_ = 0;
  double last_reading_at_ = 0;
  TextEncoding encoding_ = TextEncoding::kUtf8;
  char FieldSeparator_ = ',';
  double StartTime_ = 0;
  std::string file_name_ = "File Name";
  std::string date_;
  std::string remarks_{kEmptyRemarks};
  std::vector<std::string> List2_;
};

}  // namespace quenlor::data
