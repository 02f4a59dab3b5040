// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/test_clock.h"
#ifdef _WIN32
#include "tests/platform/real_disk_windows.h"
#else
#include "tests/platform/real_disk_posix.h"
#endif

namespace quenlor::platform {

// The two disks on which the promises of a file system are tried, in one shape.

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
  static constexpr bool kMayBeFull = true;
  static constexpr bool kNamesAreBytes = true;
  void LimitFilesTo(std::uint64_t bytes) { files.FailAfter(bytes); }
  void LiftLimit() { files.MakeRoom(); }
  std::int64_t Now() const { return clock.Now().local_second; }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const std::string& path : files.Paths()) names.push_back(path.substr(path.rfind('/') + 1));
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
