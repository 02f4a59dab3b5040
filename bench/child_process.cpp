// SPDX-License-Identifier: MIT
#include "bench/child_process.h"

#include <array>
#include <chrono>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quenlor::bench {
namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point begin) { return std::chrono::duration<double>(Clock::now() - begin).count(); }

}  // namespace

Ran Run(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<char*> words{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  Ran ran;
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return ran;
  const auto begin = Clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);  // the toolkit's remarks about the platform
    ::close(ends[0]);
    ::close(ends[1]);
    ::execv(program.c_str(), words.data());
    ::_exit(127);
  }
  ::close(ends[1]);
  std::array<char, 4096> piece;
  for (ssize_t count = 1; count > 0;) {
    count = ::read(ends[0], piece.data(), piece.size());
    if (count <= 0) break;
    if (ran.output.empty()) ran.seconds_to_first_line = Since(begin);
    ran.output.append(piece.data(), static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  ran.seconds = Since(begin);
  ran.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return ran;
}

}  // namespace quenlor::bench
