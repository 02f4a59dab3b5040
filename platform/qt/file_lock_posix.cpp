// SPDX-License-Identifier: MIT
#include "platform/qt/file_lock.h"

#include <cerrno>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/sysmacros.h>
#endif

namespace quenlor::platform::qt {
namespace {

class GrantedLock : public FileLock {};

bool IsThatFile(int file, const std::string& path) {
  struct stat held {};
  struct stat named {};
  return ::fstat(file, &held) == 0 && ::lstat(path.c_str(), &named) == 0 && held.st_dev == named.st_dev &&
         held.st_ino == named.st_ino;
}

// The file goes while the lock is held, so that nobody locks one that is about to go.
class HeldFile : public FileLock {
 public:
  HeldFile(int file, std::string path) : file_(file), path_(std::move(path)) {}
  ~HeldFile() override {
    if (IsThatFile(file_, path_)) ::unlink(path_.c_str());
    ::close(file_);
  }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

 private:
  int file_;
  std::string path_;
};

int OpenLock(const std::string& path) {
  constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const int file = ::open(path.c_str(), O_RDWR | O_CREAT | kFlags, 0666);
  if (file >= 0 || errno != EACCES) return file;
  return ::open(path.c_str(), O_RDONLY | kFlags);  // somebody else's leftover
}

}  // namespace

std::unique_ptr<FileLock> LockFile(const std::string& path) {
  for (;;) {
    const int file = OpenLock(path);
    if (file < 0) return std::make_unique<GrantedLock>();
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
      if (IsThatFile(file, path)) return std::make_unique<HeldFile>(file, path);
      ::close(file);  // its last holder has just removed it
      continue;
    }
    const int error = errno;
    ::close(file);
    if (error == EWOULDBLOCK) return nullptr;
    if (error != EINTR) return std::make_unique<GrantedLock>();  // a file system without locks
  }
}

#ifdef __linux__

// A line of the system's list: "1: FLOCK ADVISORY WRITE 4711 08:01:1234 0 EOF".
std::string LockHolder(const std::string& path) {
  struct stat file {};
  if (::stat(path.c_str(), &file) != 0) return {};
  std::ostringstream place;
  place << std::hex;
  for (const unsigned number : {major(file.st_dev), minor(file.st_dev)}) {
    place.width(2);
    place.fill('0');
    place << number << ':';
  }
  place << std::dec << file.st_ino;
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream fields(line);
    std::string number, type, advisory, access, where;
    long process = 0;
    if (!(fields >> number >> type >> advisory >> access >> process >> where)) continue;
    if (where != place.str() || process <= 0) continue;
    std::string program;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), program);
    return "process " + std::to_string(process) + (program.empty() ? "" : " (" + program + ")");
  }
  return {};
}

#else

std::string LockHolder(const std::string&) { return {}; }

#endif

}  // namespace quenlor::platform::qt
