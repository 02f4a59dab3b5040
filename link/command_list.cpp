// SPDX-License-Identifier: MIT
#include "link/command_list.h"

#include <algorithm>

#include "data/text_lines.h"
#include "data/utf8.h"

namespace quenlor::link {
namespace {

constexpr std::string_view kDefaultCommands = "STOP\r\nSTART\r\nQ\r\nQM\r\n";
constexpr std::size_t kMostCommands = 10'000;  // a file with more is no command list, and would stall the box

bool IsAscii(std::string_view bytes) {
  return std::ranges::all_of(bytes, [](unsigned char byte) { return byte < 0x80; });
}

}  // namespace

CommandList::CommandList(std::string_view file)
    : utf8_(data::EncodingOf(file) != data::TextEncoding::kLatin1 && !IsAscii(file)) {
  data::TextLines lines(file);
  while (const auto line = lines.Next()) {
    for (std::string& entry : data::SplitFields(*line, ',')) {
      if (entries_.size() == kMostCommands) return;
      entries_.push_back(data::ToUtf8(entry));
      bytes_.push_back(std::move(entry));
    }
  }
}

std::string CommandList::BytesOf(std::string_view text) const {
  const auto entry = std::ranges::find(entries_, text);
  if (entry != entries_.end()) return bytes_[static_cast<std::size_t>(entry - entries_.begin())];
  return utf8_ ? std::string(text) : data::ToLatin1(text).value_or(std::string(text));
}

CommandList LoadCommandList(platform::KeptFile file) {
  const auto text = file.Read();
  if (NotFound(text)) file.Replace(kDefaultCommands);
  return CommandList(text.ok() ? std::string_view(text.value()) : kDefaultCommands);
}

}  // namespace quenlor::link
