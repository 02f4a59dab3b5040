// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"

namespace quenlor::platform::memory {

// Files that live as long as this object, on a disk that fails when a test says so. Every folder exists; only
// one made by MakeFolder refuses to be treated as a file.
class MemoryFileSystem : public FileSystem {
 public:
  using FileSystem::Replace;

  // How often each operation was asked for, whether or not it worked.
  struct Counts {
    int reads = 0, replaces = 0, appends = 0, syncs = 0, renames = 0, locks = 0;
  };

  // Files are dated by that clock, all at 0 without one.
  explicit MemoryFileSystem(const Clock* clock = nullptr) : clock_(clock) {}

  bool Exists(const std::string& path) const override;
  bool Same(const std::string& path, const std::string& other) const override {
    return path == other && Exists(path);
  }
  Result<std::string> Read(const std::string& path, const data::Progress& progress = {}) const override;
  std::vector<FileEntry> List(const std::string& folder) const override;
  Result<FileState> State(const std::string& path) const override;
  Result<std::int64_t> ModifiedAt(const std::string& path) const override;
  Done Replace(const std::string& path, const std::function<void(ByteSink&)>& write) override;
  Done Append(const std::string& path, std::string_view bytes) override;
  Done Sync(const std::string& path) override;
  // Ends at once, or when it is told to.
  void BeginSync(const std::string& path) override { syncing_[path] = Sync(path); }
  Done EndedSync(const std::string& path) override;
  void HoldSyncs(bool hold) { holds_syncs_ = hold; }
  Done Rename(const std::string& from, const std::string& to) override;
  std::unique_ptr<FileLock> Lock(const std::string& path) override;
  std::string HolderOf(const std::string& lock) const override {
    return locked_->contains(lock) ? "process 4711 (quenlor)" : "";
  }

  // What a test arranges.
  void Put(const std::string& path, std::string bytes);
  void SetModifiedAt(const std::string& path, std::int64_t local_second);
  void Remove(const std::string& path) { files_.erase(path); }
  void MakeFolder(const std::string& path) { folders_.insert(path); }
  void FailAfter(std::uint64_t bytes) { room_ = bytes; }  // the disk takes that many more
  void MakeRoom() { room_.reset(); }
  // Any change of what begins so.
  void Refuse(const std::string& prefix, const std::string& reason,
              FailureKind kind = FailureKind::kPermission) {
    refused_[prefix] = {reason, kind};
  }
  void Allow(const std::string& prefix) { refused_.erase(prefix); }
  // The file is elsewhere, and a link of that path leads to it.
  void LeadOut(const std::string& path) { files_[path].leads_out = true; }
  void RefuseSync(bool refuse) { refuses_sync_ = refuse; }
  void FailToClose() { fails_to_close_ = true; }  // once, what is appended next, when it is there
  void Unreadable(const std::string& path) { unreadable_.insert(path); }
  void Readable(const std::string& path) { unreadable_.erase(path); }

  // What a test looks at.
  std::string Content(const std::string& path) const;  // empty when there is no such file
  std::vector<std::string> Paths() const;
  const Counts& Calls() const { return calls_; }

 private:
  struct File {
    std::string bytes;
    std::int64_t modified_at = 0;
    std::uint64_t number = 0;
    bool leads_out = false;
  };

  Done WhyNotChanged(const std::string& path) const;
  std::int64_t Now() const { return clock_ ? clock_->Now().local_second : 0; }

  const Clock* clock_;
  std::uint64_t last_number_ = 0;
  bool fails_to_close_ = false;
  bool refuses_sync_ = false;
  bool holds_syncs_ = false;
  std::map<std::string, Done> syncing_;
  std::map<std::string, File> files_;
  std::set<std::string> folders_;
  std::optional<std::uint64_t> room_;
  std::map<std::string, Failure> refused_;
  std::set<std::string> unreadable_;
  // Shared with the locks, which may outlive this object.
  std::shared_ptr<std::set<std::string>> locked_ = std::make_shared<std::set<std::string>>();
  mutable Counts calls_;
};

}  // namespace quenlor::platform::memory
