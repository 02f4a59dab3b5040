// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/test_clock.h"
#include "platform/qt/qt_file_system.h"

namespace quenlor::platform {

namespace fs = std::filesystem;

// The two disks on which the promises of a file system are tried, in one shape.

// For a moment, somebody whom file modes keep out.
class Nobody {
 public:
  Nobody() : was_root_(geteuid() == 0) {
    if (was_root_ && setresuid(65534, 65534, 0) != 0) ADD_FAILURE() << "cannot become nobody";
  }
  ~Nobody() {
    if (was_root_ && setresuid(0, 0, 0) != 0) ADD_FAILURE() << "cannot become root again";
  }
  Nobody(const Nobody&) = delete;
  Nobody& operator=(const Nobody&) = delete;

 private:
  bool was_root_;
};

// The disk of the adapter: a folder of its own, and a limit on the size of files for a disk that fills up.
class RealDisk {
 public:
  RealDisk() {
    getrlimit(RLIMIT_FSIZE, &before_);
    signal_before_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~RealDisk() {
    LiftLimit();
    std::signal(SIGXFSZ, signal_before_);
  }

  std::string Path(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  void MakeFolder(const std::string& path) { fs::create_directory(path); }
  // What the file allows nobody to do, reading and writing, is tried as somebody whom that concerns.
  template <class Try>
  auto WhenForbidden(const std::string& path, const Try& attempt) {
    fs::permissions(folder_.path().toStdString(), fs::perms{0755});
    fs::permissions(path, fs::perms::none);
    const Nobody nobody;
    return attempt();
  }
  void LimitFilesTo(std::uint64_t bytes) {
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  void LiftLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  static std::int64_t Now() {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toSecsSinceEpoch() + now.offsetFromUtc();
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path().toStdString())) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  qt::QtFileSystem files;

 private:
  QTemporaryDir folder_;
  rlimit before_{};
  void (*signal_before_)(int) = SIG_DFL;
};

class MemoryDisk {
 public:
  std::string Path(const std::string& name) const { return "/disk/" + name; }
  void MakeFolder(const std::string& path) { files.MakeFolder(path); }
  template <class Try>
  auto WhenForbidden(const std::string& path, const Try& attempt) {
    files.Unreadable(path);
    files.Refuse(path, "Permission denied");
    return attempt();
  }
  void LimitFilesTo(std::uint64_t bytes) { files.FailAfter(bytes); }
  void LiftLimit() { files.MakeRoom(); }
  std::int64_t Now() const { return clock.Now().local_second; }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const std::string& path : files.Paths()) names.push_back(fs::path(path).filename());
    return names;
  }

  memory::TestClock clock;
  memory::MemoryFileSystem files{&clock};
};

// A thing that worked has nothing to tell.
inline std::string Told(const Done& done) { return done ? done->text : "done"; }

inline FailureKind KindOf(const Done& done) { return done.value().kind; }
template <class T>
FailureKind KindOf(const Result<T>& result) {
  return result.failure().kind;
}

}  // namespace quenlor::platform
