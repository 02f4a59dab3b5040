// SPDX-License-Identifier: MIT
#include "app/standard_streams.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "app/batch_options.h"
#include "app/terminal.h"
#include "platform/qt/native_file.h"

namespace quenlor::app {
namespace {

platform::Result<std::string> ReadToEnd(std::FILE* file, const std::string& name) {
  std::string bytes;
  std::array<char, 1 << 16> piece;
  while (const std::size_t read = std::fread(piece.data(), 1, piece.size(), file))
    bytes.append(piece.data(), read);
  if (std::ferror(file)) return platform::Cannot("read " + SpokenName(name), platform::qt::LastReason());
  return bytes;
}

}  // namespace

platform::Result<std::string> ReadStream(const std::string& name) {
  if (name == kStandardInput) return ReadToEnd(stdin, name);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "rb"), std::fclose);
  if (file == nullptr) return platform::Cannot("read " + name, platform::qt::LastReason());
  return ReadToEnd(file.get(), name);
}

std::string SpokenName(const std::string& name) { return name == kStandardInput ? "standard input" : name; }

std::string ForTerminal(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0U;
    const bool is_line_end = byte == '\n' || (byte == '\r' && next == '\n');
    const bool is_two = byte == 0xC2 && next >= 0x80 && next < 0xA0;  // U+0080 to U+009F
    if (!is_two && (is_line_end || byte == '\t' || (byte >= ' ' && byte != 0x7F))) {
      shown += text[i];
      continue;
    }
    const unsigned value = is_two ? next : byte;
    shown.append("\\x").append({kDigits[value / 16], kDigits[value % 16]});
    if (is_two) ++i;
  }
  return shown;
}

platform::Done WriteStandardOutput(std::string_view text) {
  const bool written = IsTerminal(stdout) ? WriteToTerminal(stdout, ForTerminal(text))
                                          : std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (written && std::fflush(stdout) == 0) return std::nullopt;
  return platform::Cannot("write to standard output", platform::qt::LastReason());
}

void Complain(std::string failure) {
  std::ranges::replace_if(
      failure, [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
  const std::string line = "quenlor: " + failure + "\n";
  if (IsTerminal(stderr))
    WriteToTerminal(stderr, line);
  else
    std::fputs(line.c_str(), stderr);
}

}  // namespace quenlor::app
