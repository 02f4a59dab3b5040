// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/kept_file.h"

namespace quenlor::link {

// The commands that the command box offers, in the order of their file, where a line end or a comma ends an
// entry.
//
// An entry is sent as the bytes that stand in the file; the box shows those that are not UTF-8 as Latin-1.
class CommandList {
 public:
  CommandList() = default;
  explicit CommandList(std::string_view file);

  const std::vector<std::string>& Entries() const { return entries_; }  // as the box shows them

  // What is sent for a text of the box. What is no entry is encoded as the file is, and as Latin-1 where that
  // holds nothing but ASCII; a text with letters that Latin-1 has not goes out as UTF-8.
  std::string BytesOf(std::string_view text) const;

 private:
  std::vector<std::string> entries_;
  std::vector<std::string> bytes_;
  bool utf8_ = false;
};

// Reads the command file; a missing one is made with the four default commands. Where it can be neither read
// nor made, the defaults serve.
CommandList LoadCommandList(platform::KeptFile file);

}  // namespace quenlor::link
