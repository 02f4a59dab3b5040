// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/document.h"
#include "platform/clock.h"
#include "platform/file_system.h"

namespace quenlor::link {

// Keeps every received reading on the disk as soon as it is in the table, one file per port: "Com_<port>.txt"
// in the program folder.
//
// RewriteRawLog makes the file hold the whole table and takes it into use; AppendRawLog adds a line
// per reading; no file stays open between. Readings on the disk that the table does not hold are
// never overwritten: the file is set aside first. A reading that could not be written is written
// later from the table.
class RawLog : private data::DocumentListener {
 public:
  RawLog(platform::FileSystem& files, platform::Clock& clock, data::Document& document, std::string folder,
         std::function<void(const std::string&)> report_error);
  ~RawLog() override;
  RawLog(const RawLog&) = delete;
  RawLog& operator=(const RawLog&) = delete;

  std::string Path(int port_number) const;

  // Rewrites the file of that port from the table. One program at a time may write it.
  platform::Done RewriteRawLog(int port_number);

  // Appends the reading in `row`. What could not be written is told once when it begins and once when
  // it is over.
  void AppendRawLog(Row row);

  // The end of the measurement: writes what is still missing, and sees to it that all of it is on the device.
  void Close();

 private:
  void RowsRemoved(Row first, Row last) override;
  void DocumentReplaced() override { missing_from_.reset(); }

  bool HoldsMoreThanTheTable(std::string_view bytes) const;
  platform::Done WriteTable(const std::string& path);
  platform::Done SetAside(const std::string& path, int port_number);
  void AppendRows(Row first, Row last);
  void AddLine(Row row, std::string& lines) const;

  platform::FileSystem& files_;
  platform::Clock& clock_;
  data::Document& document_;
  std::string folder_;
  std::function<void(const std::string&)> report_error_;
  std::string path_;  // empty while no measurement runs
  std::unique_ptr<platform::FileLock> lock_;
  char separator_on_disk_ = ',';     // what the last lines of the file are divided by
  std::optional<Row> missing_from_;  // the first row that is not on the disk
  double last_attempt_ = 0;
};

}  // namespace quenlor::link
