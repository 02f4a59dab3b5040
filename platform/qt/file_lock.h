// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace quenlor::platform::qt {

// A lock of the system on an open file, gone with the process that holds it: what a file of that name says,
// or that it is there, locks nothing. Empty when another holder lives; granted where no such lock can be had.
std::unique_ptr<FileLock> LockFile(const std::string& path);

// "process 4711 (quenlor)"; empty where the system does not tell.
std::string LockHolder(const std::string& path);

}  // namespace quenlor::platform::qt
