// SPDX-License-Identifier: MIT
#include "instrument/pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace quenlor::instrument {
namespace {

std::string Failed(const std::string& what) { return "cannot " + what + ": " + std::strerror(errno); }

// Where a symbolic link points to; empty when `path` is none.
std::string LinkTarget(const std::string& path) {
  std::array<char, 256> target;
  const auto length = readlink(path.c_str(), target.data(), target.size());
  return length < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

bool TryAgain() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

PseudoTerminal::~PseudoTerminal() {
  // Another instrument may have taken the link over.
  if (!link_path_.empty() && LinkTarget(link_path_) == slave_path_) unlink(link_path_.c_str());
  if (master_ >= 0) close(master_);
  if (slave_ >= 0) close(slave_);
}

std::optional<std::string> PseudoTerminal::Open() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) return Failed("open a pseudo-terminal");
  const char* const path = ptsname(master_);
  if (!path) return Failed("find the name of the pseudo-terminal");
  slave_path_ = path;

  slave_ = open(path, O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0) return Failed("open " + slave_path_);
  termios settings;
  if (tcgetattr(slave_, &settings) != 0) return Failed("read the settings of " + slave_path_);
  cfmakeraw(&settings);
  if (tcsetattr(slave_, TCSANOW, &settings) != 0) return Failed("set " + slave_path_ + " to raw");
  if (fcntl(master_, F_SETFL, fcntl(master_, F_GETFL) | O_NONBLOCK) != 0)
    return Failed("set up the pseudo-terminal");
  return std::nullopt;
}

std::optional<std::string> PseudoTerminal::Link(const std::string& path) {
  if (LinkTarget(path).starts_with("/dev/pts/")) unlink(path.c_str());
  if (symlink(slave_path_.c_str(), path.c_str()) != 0) return Failed("make the link " + path);
  link_path_ = path;
  return std::nullopt;
}

bool PseudoTerminal::Read(std::string& bytes) {
  std::array<char, 4096> buffer;
  const auto count = read(master_, buffer.data(), buffer.size());
  bytes.assign(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  return count > 0 || (count < 0 && TryAgain());
}

bool PseudoTerminal::Write(std::string& bytes) {
  const auto count = write(master_, bytes.data(), bytes.size());
  if (count < 0) return TryAgain();
  bytes.erase(0, static_cast<std::size_t>(count));
  return true;
}

std::size_t PseudoTerminal::Unread() const {
  int count = 0;
  return ioctl(slave_, FIONREAD, &count) == 0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace quenlor::instrument
