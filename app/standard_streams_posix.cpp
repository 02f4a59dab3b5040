// SPDX-License-Identifier: MIT
#include "app/standard_streams.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/batch_options.h"
#include "app/terminal.h"

namespace quenlor::app {

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

// Standard input is replaced by what cannot be read, the others by what cannot be written.
void GuardClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool closed = ::fcntl(stream, F_GETFD) < 0 && errno == EBADF;
    if (closed && ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
  }
}

bool IsTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) != 0; }

bool WriteToTerminal(std::FILE* terminal, std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), terminal) == text.size();
}

void LeaveConsole() {}

void FailInsteadOfDying() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

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

}  // namespace quenlor::app
