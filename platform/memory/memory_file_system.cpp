// SPDX-License-Identifier: MIT
#include "platform/memory/memory_file_system.h"

#include <utility>

namespace quenlor::platform::memory {
namespace {

const Failure kMissing{"No such file or directory", FailureKind::kNotFound};
const Failure kFolder{"Is a directory"};
const Failure kTaken{"File exists"};
const Failure kUnreadable{"Permission denied", FailureKind::kPermission};
const Failure kBroken{"Input/output error"};
const Failure kFull{"No space left on device", FailureKind::kFull};

class BoundedSink : public ByteSink {
 public:
  explicit BoundedSink(std::optional<std::uint64_t> room) : room_(room) {}

  void Write(std::string_view bytes) override {
    if (full || (room_ && bytes_.size() + bytes.size() > *room_)) {
      full = true;
    } else {
      bytes_.append(bytes);
    }
  }

  std::string Take() { return std::move(bytes_); }

  bool full = false;

 private:
  std::optional<std::uint64_t> room_;
  std::string bytes_;
};

class MemoryFileLock : public FileLock {
 public:
  MemoryFileLock(std::shared_ptr<std::set<std::string>> locked, std::string path)
      : locked_(std::move(locked)), path_(std::move(path)) {}
  ~MemoryFileLock() override { locked_->erase(path_); }
  MemoryFileLock(const MemoryFileLock&) = delete;
  MemoryFileLock& operator=(const MemoryFileLock&) = delete;

 private:
  std::shared_ptr<std::set<std::string>> locked_;
  std::string path_;
};

class GrantedLock : public FileLock {};

}  // namespace

bool MemoryFileSystem::Exists(const std::string& path) const {
  return files_.contains(path) || folders_.contains(path);
}

Result<std::string> MemoryFileSystem::Read(const std::string& path, const data::Progress& progress) const {
  ++calls_.reads;
  if (folders_.contains(path)) return Cannot("read " + path, kFolder);
  const auto file = files_.find(path);
  if (file == files_.end()) return Cannot("read " + path, kMissing);
  if (unreadable_.contains(path)) return Cannot("read " + path, kUnreadable);
  if (progress && !progress(0.5)) return Failure{"Reading " + path + " was left", FailureKind::kLeft};
  return file->second.bytes;
}

std::vector<FileEntry> MemoryFileSystem::List(const std::string& folder) const {
  std::vector<FileEntry> files;
  for (const auto& [path, file] : files_) {
    if (path.starts_with(folder + "/") && path.find('/', folder.size() + 1) == path.npos)
      files.push_back({path.substr(folder.size() + 1), file.bytes.size(), file.modified_at});
  }
  return files;
}

Result<FileState> MemoryFileSystem::State(const std::string& path) const {
  if (folders_.contains(path)) return FileState{};
  const auto file = files_.find(path);
  if (file == files_.end()) return Cannot("read " + path, kMissing);
  return FileState{0, file->second.number, file->second.bytes.size(), file->second.leads_out};
}

Result<std::int64_t> MemoryFileSystem::ModifiedAt(const std::string& path) const {
  if (folders_.contains(path)) return std::int64_t{0};
  const auto file = files_.find(path);
  if (file == files_.end()) return Cannot("read " + path, kMissing);
  return file->second.modified_at;
}

Done MemoryFileSystem::Replace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  ++calls_.replaces;
  const std::string what = (Exists(path) ? "replace " : "write ") + path;
  if (const auto reason = WhyNotChanged(path)) return Cannot(what, *reason);
  BoundedSink sink(room_);
  write(sink);
  if (sink.full) return Cannot(what, kFull);
  File& file = files_[path];
  File replacement{sink.Take(), Now(), ++last_number_, file.leads_out};
  if (room_)
    *room_ = *room_ - replacement.bytes.size() + file.bytes.size();  // the old content leaves the disk
  file = std::move(replacement);
  return {};
}

Done MemoryFileSystem::Append(const std::string& path, std::string_view bytes) {
  ++calls_.appends;
  if (const auto reason = WhyNotChanged(path)) return Cannot("append to " + path, *reason);
  const auto file = files_.find(path);
  if (file == files_.end()) return Cannot("append to " + path, kMissing);
  if (room_ && bytes.size() > *room_) return Cannot("append to " + path, kFull);
  if (room_) *room_ -= bytes.size();
  file->second.bytes.append(bytes);
  file->second.modified_at = Now();
  if (std::exchange(fails_to_close_, false)) return Cannot("append to " + path, kBroken);
  return {};
}

Done MemoryFileSystem::EndedSync(const std::string& path) {
  if (holds_syncs_) return {};
  return std::exchange(syncing_[path], {});
}

Done MemoryFileSystem::Sync(const std::string& path) {
  ++calls_.syncs;
  if (!Exists(path)) return Cannot("sync " + path, kMissing);
  if (refuses_sync_) return Cannot("sync " + path, kBroken);
  for (const auto& [prefix, reason] : refused_) {
    if (path.starts_with(prefix)) return Cannot("sync " + path, reason);
  }
  return {};
}

Done MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  ++calls_.renames;
  const std::string what = "rename " + from + " to " + to;
  const auto file = files_.find(from);
  if (file == files_.end()) return Cannot(what, kMissing);
  if (Exists(to)) return Cannot(what, kTaken);
  for (const std::string& path : {from, to}) {
    if (const auto reason = WhyNotChanged(path)) return Cannot(what, *reason);
  }
  File moved = std::move(file->second);
  files_.erase(file);
  files_[to] = std::move(moved);
  return {};
}

std::unique_ptr<FileLock> MemoryFileSystem::Lock(const std::string& path) {
  ++calls_.locks;
  if (WhyNotChanged(path)) return std::make_unique<GrantedLock>();
  if (!locked_->insert(path).second) return nullptr;
  return std::make_unique<MemoryFileLock>(locked_, path);
}

void MemoryFileSystem::Put(const std::string& path, std::string bytes) {
  files_[path] = {std::move(bytes), Now(), ++last_number_};
}

void MemoryFileSystem::SetModifiedAt(const std::string& path, std::int64_t local_second) {
  files_[path].modified_at = local_second;
}

std::string MemoryFileSystem::Content(const std::string& path) const {
  const auto file = files_.find(path);
  return file == files_.end() ? std::string() : file->second.bytes;
}

std::vector<std::string> MemoryFileSystem::Paths() const {
  std::vector<std::string> paths;
  for (const auto& [path, file] : files_) paths.push_back(path);
  return paths;
}

Done MemoryFileSystem::WhyNotChanged(const std::string& path) const {
  if (folders_.contains(path)) return kFolder;
  for (const auto& [prefix, reason] : refused_) {
    if (path.starts_with(prefix)) return reason;
  }
  return {};
}

}  // namespace quenlor::platform::memory
