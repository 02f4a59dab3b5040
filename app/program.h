// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "app/command_line.h"
#include "app/window/main_window.h"
#include "instrument/viscometer_options.h"

namespace quenlor::app {

// The running program: the adapters of this machine and the main window that stands on them.
class Program {
 public:
  // `line` is free of errors; its instrument options are read by then.
  Program(const CommandLine& line, const instrument::ViscometerOptions& viscometer);
  ~Program();

  // Until the window is closed, or a signal ends it; the program's exit status.
  int Run();

  MainWindow& Window();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace quenlor::app
