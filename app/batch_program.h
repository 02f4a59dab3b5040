// SPDX-License-Identifier: MIT
#pragma once

#include "app/batch.h"

namespace quenlor::app {

// A batch command on this machine's files and streams. It needs no display, and does the same with one.
ExitStatus RunBatchProgram(const CommandLine& line, int& argc, char** argv);

}  // namespace quenlor::app
