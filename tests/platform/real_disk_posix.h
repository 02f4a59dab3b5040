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

#include "platform/qt/qt_file_system.h"

namespace quenlor::platform {

namespace fs = std::filesystem;

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
  static constexpr bool kMayBeFull = true;
  static constexpr bool kNamesAreBytes = true;
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

}  // namespace quenlor::platform
