// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/command_line.h"
#include "app/desk/exit_status.h"
#include "app/desk/session.h"
#include "platform/file_system.h"

namespace quenlor::app {

// What the batch commands stand on.
struct BatchPorts {
  platform::FileSystem& files;
  Session::Place place;  // settings and colours are read from there, and stay as they are
  bool system_writes_comma = false;
  std::function<bool(const std::string& path)> is_stream;  // which has no date, and is read once
  std::function<platform::Result<std::string>(const std::string& path)> read_stream;
  std::function<platform::Done(std::string_view)> write_standard_output;
  std::function<platform::Done(const std::string& path)> why_no_new_file;  // of readings
  std::function<void(const std::string&)> complain;                        // one line each
};

// Makes what the command line asks for of its files, by the same code that the windows use. Nothing is
// written unless all of the files could be read, and never over one of them. A file without a reading is told
// and no failure.
ExitStatus RunBatch(const CommandLine& line, const BatchPorts& ports);

}  // namespace quenlor::app
