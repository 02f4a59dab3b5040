// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/document.h"
#include "link/saved_logs.h"
#include "platform/clock.h"
#include "platform/file_system.h"

namespace quenlor::link {

// Keeps every received reading on the disk as soon as it is in the table, one file per port: "Com_<port>.txt"
// in the program folder.
//
// RewriteRawLog makes the file hold the whole table and takes it into use; AppendRawLog adds a line
// per reading; no file stays open between. Readings on the disk that the table does not hold are
// never overwritten: the file is set aside first. A reading that could not be written is written
// later from the table, and a file that is no longer as it was left is made whole from it. A link that leads
// out of the folder is set aside, too: what it leads to is never written.
class RawLog : private data::DocumentListener {
 public:
  RawLog(platform::FileSystem& files, platform::Clock& clock, data::Document& document, std::string folder,
         std::function<void(const std::string&)> tell);
  ~RawLog() override;
  RawLog(const RawLog&) = delete;
  RawLog& operator=(const RawLog&) = delete;

  std::string Path(int port_number) const;

  // Rewrites the file of that port from the table. One program at a time may write it.
  // `progress` cannot leave it.
  platform::Done RewriteRawLog(int port_number, const data::Progress& progress = {});

  // Appends the reading in `row`. What could not be written is told once when it begins and once when
  // it is over.
  void AppendRawLog(Row row);

  // The end of the measurement: writes what is still missing, and sees to it that all of it is on the device.
  void Close();

 private:
  // What stands in a log of this run of the program.
  struct Log {
    Fingerprint content;
    bool in_the_table = true;  // every reading of it, as it stands
  };

  void RowsRemoved(Row first, Row last) override;
  void RowsRestored(Row first, Row last) override;
  void CellChanged(Row, int) override { TableHasChanged(); }
  void DocumentReplaced() override;
  void DocumentSaved() override;
  void TableHasChanged();

  bool HoldsMoreThanTheTable(std::string_view bytes, const data::Progress& progress) const;
  std::string Name(int port_number) const;
  platform::Done PutInPlace(const std::string& path, const data::Progress& progress = {});
  platform::Done WriteTable(const std::string& path, const data::Progress& progress = {});
  platform::Done SetAside(const std::string& path);
  bool StandsAsWritten() const;
  platform::Done Append(Row first, Row last);
  platform::Done SyncNowAndThen();
  void AppendRows(Row first, Row last);
  void AddLine(Row row, std::string& lines) const;

  platform::FileSystem& files_;
  platform::Clock& clock_;
  data::Document& document_;
  std::string folder_;
  std::function<void(const std::string&)> tell_;
  std::string path_;  // empty while no measurement runs
  std::unique_ptr<platform::FileLock> lock_;
  SavedLogs saved_logs_;
  std::map<std::string, Log> logs_;             // by name
  std::string name_;                            // of the log in use, without the folder
  std::optional<platform::FileState> written_;  // how the log in use was left
  std::optional<Row> missing_from_;             // the first row that is not on the disk
  double last_attempt_ = 0;
  double last_sync_ = 0;
};

}  // namespace quenlor::link
