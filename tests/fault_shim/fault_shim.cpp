// SPDX-License-Identifier: MIT
//
// Loaded before the system's own library, it counts what a program writes, syncs, renames, cuts and removes
// in one folder, and at the n-th of these calls ends the program or lets the call fail:
//
//   QUENLOR_FAULT_FOLDER  what does not stand in it does not count
//   QUENLOR_FAULT_AT      n, from 1; without it nothing happens
//   QUENLOR_FAULT         "kill": half of a write is done, of any other call nothing; "short": half of a
//   write is
//                         done, and told so; otherwise the number of the error that the call fails with
//   QUENLOR_FAULT_LOG     gets a line for each call

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

std::string Told(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

template <class Function>
Function Real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

ssize_t RealWrite(int file, const void* bytes, size_t size) {
  static const auto real = Real<ssize_t (*)(int, const void*, size_t)>("write");
  return real(file, bytes, size);
}

bool Counts(const std::string& path) {
  static const std::string folder = Told("QUENLOR_FAULT_FOLDER");
  return !folder.empty() && path.starts_with(folder);
}

std::string PathOf(int file) {
  char path[4096];
  const ssize_t size = ::readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
  return size <= 0 ? "" : std::string(path, static_cast<std::size_t>(size));
}

// The call is the one that fails.
bool IsItsTurn(const char* call, const std::string& path) {
  if (!Counts(path)) return false;
  static int calls = 0;
  ++calls;
  if (static const std::string log = Told("QUENLOR_FAULT_LOG"); !log.empty()) {
    const int file = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    const std::string line = std::string(call) + ' ' + path + '\n';
    RealWrite(file, line.data(), line.size());
    ::close(file);
  }
  static const int at = std::atoi(Told("QUENLOR_FAULT_AT").c_str());
  return calls == at;
}

// -1 and an error, or the end.
int Fail() {
  static const std::string fault = Told("QUENLOR_FAULT");
  if (fault == "kill") ::raise(SIGKILL);
  errno = fault == "short" ? EIO : std::atoi(fault.c_str());
  return -1;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
  if (!IsItsTurn("write", PathOf(file))) return RealWrite(file, bytes, size);
  const std::string fault = Told("QUENLOR_FAULT");
  if (fault != "kill" && fault != "short") return Fail();
  const ssize_t half = RealWrite(file, bytes, (size + 1) / 2);
  return fault == "kill" ? Fail() : half;
}

int fsync(int file) {
  static const auto real = Real<int (*)(int)>("fsync");
  return IsItsTurn("fsync", PathOf(file)) ? Fail() : real(file);
}

int ftruncate(int file, off_t size) noexcept {
  static const auto real = Real<int (*)(int, off_t)>("ftruncate");
  return IsItsTurn("ftruncate", PathOf(file)) ? Fail() : real(file, size);
}

int rename(const char* from, const char* to) noexcept {
  static const auto real = Real<int (*)(const char*, const char*)>("rename");
  return IsItsTurn("rename", to) ? Fail() : real(from, to);
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
  static const auto real = Real<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
  return IsItsTurn("rename", to) ? Fail() : real(from_folder, from, to_folder, to, flags);
}

int link(const char* from, const char* to) noexcept {
  static const auto real = Real<int (*)(const char*, const char*)>("link");
  return IsItsTurn("link", to) ? Fail() : real(from, to);
}

int unlink(const char* path) noexcept {
  static const auto real = Real<int (*)(const char*)>("unlink");
  return IsItsTurn("unlink", path) ? Fail() : real(path);
}

}  // extern "C"
