// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quenlor::link {

// The commands that the command box offers, in file order. A line end or a comma ends an entry.
std::vector<std::string> ParseCommandList(std::string_view text);

// Reads the command file; a missing one is made with the four default commands. Where it can be neither read
// nor made, the defaults serve.
std::vector<std::string> LoadCommandList(platform::FileSystem& files, const std::string& path);

}  // namespace quenlor::link
