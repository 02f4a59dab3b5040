// SPDX-License-Identifier: MIT
#include "data/utf8.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/command_list.h"

namespace quenlor::fuzz {

void CommandList(std::string_view input) {
  constexpr std::size_t kMostCommands = 10'000;
  const link::CommandList list(input);
  const std::vector<std::string>& commands = list.Entries();
  Check(commands.size() <= kMostCommands, "a command list has an end");

  std::string one_a_line;
  for (const std::string& command : commands) {
    Check(command.find_first_of("\r\n,") == command.npos, "a line end or a comma ends an entry");
    Check(data::IsUtf8(command), "an entry is UTF-8");
    one_a_line += command + "\r\n";
  }
  // A second byte-order mark belongs to the first entry, where it would now be taken for the file's.
  if (one_a_line.starts_with("\xEF\xBB\xBF")) return;
  Check(link::CommandList(one_a_line).Entries() == commands,
        "a list that is written one a line reads as it was");
}

}  // namespace quenlor::fuzz
