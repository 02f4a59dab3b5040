// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "data/data_file.h"
#include "data/utf8.h"
#include "link/raw_log.h"
#include "link/reception.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/test_clock.h"
#include "tests/link/table_text.h"

namespace quenlor::link {

namespace setting = data::setting;

// An open port whose characters become readings of a document that begins with the columns "No." and "Time"
// alone, so that its columns count the fields that came. No raw log is in use. Times are shown as seconds.
class Receiver {
 public:
  Receiver() {
    settings.Set(setting::kTimeS, 0);
    port.OnComm([this](int CommEvent) { reception.MSComm1_OnComm(CommEvent); });
    port.Open(1, "9600N81");
  }

  void Feed(std::string_view bytes) { port.Feed(bytes); }
  void Number(bool on = true) { settings.Set(setting::kNum, on ? 1 : 0); }
  void DecimalComma(bool on = true) { settings.Set(setting::kDP, on ? 1 : 0); }

  const data::MeasurementTable& Table() const { return document.Grid1(); }
  data::MeasurementTable::Row Readings() const { return Table().EntryRow() - 1; }
  // The data cells of the newest reading.
  Texts Newest() const { return DataCells(Table(), Readings()); }

  Texts errors;
  Texts received;  // the "Received Data" box, line after line
  int answers = 0;
  bool runs_used_up = false;
  std::function<void()> on_line;

  data::SettingsList settings;
  platform::memory::TestClock clock;
  platform::memory::MemorySerialPort port;
  platform::memory::MemoryFileSystem files;
  data::Document document{settings};
  RawLog raw_log{files, clock, document, "/lab", [](const std::string&) {}};
  Reception reception{port,
                      clock,
                      document,
                      settings,
                      raw_log,
                      {.line_begins = [this] { ++answers; },
                       .line_received =
                           [this](const std::string& line) {
                             received.push_back(line);
                             if (on_line) on_line();
                           },
                       .error = [this](const std::string& line) { errors.push_back(line); },
                       .runs_used_up = [this] { runs_used_up = true; }}};
};

}  // namespace quenlor::link
