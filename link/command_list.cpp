// SPDX-License-Identifier: MIT
#include "link/command_list.h"

#include "data/text_lines.h"
#include "data/utf8.h"

namespace quenlor::link {
namespace {

constexpr std::string_view kDefaultCommands = "STOP\r\nSTART\r\nQ\r\nQM\r\n";
constexpr std::size_t kMostCommands = 10'000;  // a file with more is no command list, and would stall the box

}  // namespace

std::vector<std::string> ParseCommandList(std::string_view text) {
  std::vector<std::string> commands;
  data::TextLines lines(text);
  while (const auto line = lines.Next()) {
    for (const std::string& entry : data::SplitFields(*line, ',')) {
      if (commands.size() == kMostCommands) return commands;
      commands.push_back(data::ToUtf8(entry));
    }
  }
  return commands;
}

std::vector<std::string> LoadCommandList(platform::FileSystem& files, const std::string& path) {
  if (!files.Exists(path)) files.Replace(path, kDefaultCommands);
  const auto text = files.Read(path);
  return ParseCommandList(text.ok() ? std::string_view(text.value()) : kDefaultCommands);
}

}  // namespace quenlor::link
