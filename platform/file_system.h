// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/progress.h"
#include "platform/result.h"

namespace quenlor::platform {

// Takes bytes in order. A failing sink swallows the rest; the failure is told by the operation that lent it.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void Write(std::string_view bytes) = 0;
};

// Held until destroyed; released by the operating system when the program is killed.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// A file of a folder.
struct FileEntry {
  std::string name;
  std::uint64_t size = 0;
  std::int64_t modified = 0;  // seconds since 1970
};

// Which file stands under a name, and how long it is.
struct FileState {
  std::uint64_t device = 0;
  std::uint64_t file = 0;  // its number on the device
  std::uint64_t size = 0;
  bool leads_out = false;  // a symbolic link to a place out of its folder

  bool operator==(const FileState&) const = default;
};

// Files as the program needs them. A path is the bytes that the system knows the file by, in UTF-8 where
// they are text. No operation leaves a file open.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual bool Exists(const std::string& path) const = 0;
  virtual bool Same(const std::string& path, const std::string& other) const = 0;  // one file of two names
  // The whole file; a directory fails. One whose reading was left fails with kLeft.
  virtual Result<std::string> Read(const std::string& path, const data::Progress& progress = {}) const = 0;
  virtual std::vector<FileEntry> List(const std::string& folder) const = 0;  // its files, by name
  virtual Result<FileState> State(const std::string& path) const = 0;
  virtual Result<std::int64_t> ModifiedAt(
      const std::string& path) const = 0;  // seconds since 1970, local time

  // Makes the file's content what `write` puts into its sink: written beside it, synced to the device, and
  // put in its place in one step, so that the old content stays whole on any failure. Permissions are kept
  // and a symbolic link keeps pointing. Where the folder cannot be written but the file can, it is written in
  // place, and so is what is no file: a pipe, a device.
  virtual Done Replace(const std::string& path, const std::function<void(ByteSink&)>& write) = 0;

  // Opens, appends, closes. Either all bytes arrive or, on failure, none stay; only a failure of closing,
  // which network file systems have, leaves open which, and State tells. To a missing file it fails.
  virtual Done Append(const std::string& path, std::string_view bytes) = 0;

  virtual Done Sync(const std::string& path) = 0;  // to the device
  // The same behind the caller, who goes on: a device can take seconds for it when others write much. Nothing
  // is begun while one goes on. Its failure is told once, by the first EndedSync of that path afterwards.
  virtual void BeginSync(const std::string& path) = 0;
  virtual Done EndedSync(const std::string& path) = 0;

  // Gives the file another name; fails when `to` exists already, and then changes nothing.
  virtual Done Rename(const std::string& from, const std::string& to) = 0;

  // Exclusive between programs, by a lock file of that path. Empty when another holder lives; what a dead one
  // left locks nothing, whatever stands in it. A file system on which the lock file cannot be made grants the
  // lock (a read-only folder cannot be damaged by two).
  virtual std::unique_ptr<FileLock> Lock(const std::string& path) = 0;
  // Who holds it: "process 4711 (quenlor)"; empty where the system does not tell.
  virtual std::string HolderOf(const std::string& /*lock*/) const { return {}; }

  // Replace with bytes at hand.
  Done Replace(const std::string& path, std::string_view bytes) {
    return Replace(path, [bytes](ByteSink& sink) { sink.Write(bytes); });
  }
};

}  // namespace quenlor::platform
