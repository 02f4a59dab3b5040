// SPDX-License-Identifier: MIT
#pragma once

#include "app/command_line.h"
#include "app/desk/exit_status.h"
#include "instrument/viscometer_options.h"

namespace quenlor::app {

// Measures on this machine without a window, and needs no display.
ExitStatus RunMeasureProgram(const CommandLine& line, const instrument::ViscometerOptions& viscometer,
                             int& argc, char** argv);

}  // namespace quenlor::app
