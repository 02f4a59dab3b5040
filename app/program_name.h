// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quenlor::app {

// The name of the program file without its folder and without ".exe": the settings file is called after it,
// so that a copy of the program under another name has settings of its own.
std::string ProgramName(const std::string& program_file);

// The same of this running program.
std::string ProgramName();

}  // namespace quenlor::app
