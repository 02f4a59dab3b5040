// SPDX-License-Identifier: MIT
#include "app/standard_streams.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "app/batch_options.h"
#include "platform/qt/native_file.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <io.h>
#endif

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

#ifndef _WIN32

// Standard input is replaced by what cannot be read, the others by what cannot be written.
void GuardClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool closed = ::fcntl(stream, F_GETFD) < 0 && errno == EBADF;
    if (closed && ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
  }
}

static bool IsTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) != 0; }

bool IsStream(const std::string& name) {
  if (name == kStandardInput) return true;
  struct stat file {};
  struct stat input {};
  if (::stat(name.c_str(), &file) != 0) return false;
  if (S_ISFIFO(file.st_mode) || S_ISSOCK(file.st_mode)) return true;
  const bool is_input =
      ::fstat(STDIN_FILENO, &input) == 0 && file.st_dev == input.st_dev && file.st_ino == input.st_ino;
  return S_ISCHR(file.st_mode) && is_input;
}

#else

static bool IsTerminal(std::FILE* stream) { return ::_isatty(::_fileno(stream)) != 0; }

void GuardClosedStreams() {}

bool IsStream(const std::string& name) { return name == kStandardInput; }

#endif

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
  const std::string shown = IsTerminal(stdout) ? ForTerminal(text) : std::string();
  if (!shown.empty()) text = shown;
  const bool written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (written) return std::nullopt;
  return platform::Cannot("write to standard output", platform::qt::LastReason());
}

void Complain(std::string failure) {
  std::ranges::replace_if(
      failure, [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
  std::fprintf(stderr, "quenlor: %s\n", failure.c_str());
}

}  // namespace quenlor::app
