// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace quenlor::tests {

// A serial line without hardware: the program opens Device(), the test is the other end.
//
// Raw in both directions from the start. The device side is also kept open here, so that the line stays as it
// is while the program has it closed.
class PseudoTerminal {
 public:
  PseudoTerminal() : other_end_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    if (other_end_ < 0 || ::grantpt(other_end_) != 0 || ::unlockpt(other_end_) != 0) {
      throw std::runtime_error("no pseudo-terminal to be had");
    }
    device_ = ::ptsname(other_end_);
    device_side_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    termios line{};
    if (device_side_ < 0 || ::tcgetattr(device_side_, &line) != 0) {
      throw std::runtime_error("cannot open " + device_);
    }
    ::cfmakeraw(&line);
    ::tcsetattr(device_side_, TCSANOW, &line);
  }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;
  ~PseudoTerminal() { HangUp(); }

  const std::string& Device() const { return device_; }

  // Hands over as much as the line takes now; gives the number of bytes taken.
  std::size_t Write(std::string_view bytes) {
    const auto written = ::write(other_end_, bytes.data(), bytes.size());
    return written < 0 ? 0 : static_cast<std::size_t>(written);
  }

  // What has arrived at this end by now.
  std::string Read() {
    std::string arrived;
    char block[4096];
    for (ssize_t size; (size = ::read(other_end_, block, sizeof block)) > 0;) {
      arrived.append(block, static_cast<std::size_t>(size));
    }
    return arrived;
  }

  // Bytes that wait on the device side until the program reads them.
  int WaitingForTheProgram() const {
    int waiting = 0;
    ::ioctl(device_side_, FIONREAD, &waiting);
    return waiting;
  }

  // Writes, and returns when the bytes can be read on the device side.
  void WriteThrough(std::string_view bytes) {
    const int expected = WaitingForTheProgram() + static_cast<int>(Write(bytes));
    for (int turns = 0; WaitingForTheProgram() < expected; ++turns) {
      if (turns > 5000) throw std::runtime_error("the pseudo-terminal does not hand over");
      ::poll(nullptr, 0, 1);
    }
  }

  // How the program has set the line.
  termios Line() const {
    termios line{};
    if (::tcgetattr(other_end_, &line) != 0) throw std::runtime_error("cannot ask " + device_);
    return line;
  }

  // What a pulled cable of a USB converter looks like to the program.
  void HangUp() {
    for (int* end : {&other_end_, &device_side_}) {
      if (*end >= 0) ::close(*end);
      *end = -1;
    }
  }

 private:
  int other_end_ = -1;
  int device_side_ = -1;
  std::string device_;
};

}  // namespace quenlor::tests
