// SPDX-License-Identifier: MIT
#include "platform/qt/qt_file_system.h"

#include <QDateTime>
#include <QFile>
#include <algorithm>
#include <chrono>
#include <new>
#include <stdexcept>

#ifdef __linux__
#include <fcntl.h>
#endif

#include "platform/qt/file_lock.h"
#include "platform/qt/native_file.h"
#include "platform/qt/replacement_file.h"

namespace quenlor::platform::qt {
namespace {

constexpr qint64 kReadBlock = 262144;  // stays in the processor's cache on its way into the text
constexpr std::size_t kWriteBlock = 1048576;
constexpr qint64 kSyncBlock = 8 * kWriteBlock;
constexpr std::size_t kTold = 16 * kReadBlock;  // between two words about how far a reading has come

Done DoneUnless(const Reason& reason, const char* what, const std::string& path) {
  if (!reason) return {};
  return Cannot(what + path, *reason);
}

// So that the device works while a long file is made, and the wait for it at the end is short. Promises
// nothing.
void BeginWriteOut([[maybe_unused]] int file, [[maybe_unused]] qint64 from, [[maybe_unused]] qint64 to) {
#ifdef __linux__
  ::sync_file_range(file, from, to - from, SYNC_FILE_RANGE_WRITE);
#endif
}

// Gathers many small writes into few large ones.
class FileSink : public ByteSink {
 public:
  explicit FileSink(QFileDevice& file) : file_(file) { waiting_.reserve(kWriteBlock); }

  void Write(std::string_view bytes) override {
    if (waiting_.size() + bytes.size() > kWriteBlock) {
      Put(waiting_);
      waiting_.clear();
    }
    if (bytes.size() > kWriteBlock) {
      Put(bytes);
    } else {
      waiting_.append(bytes);
    }
  }

  // Why the file did not take everything, if it did not.
  Reason Finish() {
    Put(waiting_);
    waiting_.clear();
    if (!failed_ && !file_.flush()) failed_ = LastReason(file_);
    return failed_;
  }

 private:
  void Put(std::string_view bytes) {
    while (!failed_ && !bytes.empty()) {
      const qint64 written = file_.write(bytes.data(), static_cast<qint64>(bytes.size()));
      if (written <= 0) {
        failed_ = LastReason(file_);
      } else {
        bytes.remove_prefix(static_cast<std::size_t>(written));
        written_ += written;
      }
    }
    if (written_ - begun_ < kSyncBlock) return;
    BeginWriteOut(file_.handle(), begun_, written_);
    begun_ = written_;
  }

  QFileDevice& file_;
  qint64 written_ = 0;
  qint64 begun_ = 0;  // up to there the device has been told
  std::string waiting_;
  Reason failed_;
};

Reason WriteInPlace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  QFile file;
  if (Reason reason = OpenToWrite(file, path)) return reason;
  FileSink sink(file);
  write(sink);
  if (Reason reason = sink.Finish()) return reason;
  return SyncToDevice(file.handle());
}

Reason WriteBeside(const std::string& path, const std::function<void(ByteSink&)>& write) {
  ReplacementFile file(path);
  if (Reason reason = file.Open()) return reason;
  FileSink sink(file.Device());
  write(sink);
  if (Reason reason = sink.Finish()) return reason;
  CopyPermissions(path, file.Device().handle());
  if (Reason reason = SyncToDevice(file.Device().handle())) return reason;
  return file.TakeItsPlace();
}

bool HasEnded(const std::future<Done>& work) {
  return work.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

}  // namespace

bool QtFileSystem::Exists(const std::string& path) const { return !FindFile(path); }

bool QtFileSystem::Same(const std::string& path, const std::string& other) const {
  return IsSameFile(path, other);
}

Result<std::string> QtFileSystem::Read(const std::string& path, const data::Progress& progress) const try {
  const FileKind kind = KindOfFile(path);
  if (kind == FileKind::kFolder) return Cannot("read " + path, {"Is a directory"});
  // A pipe that nobody writes to, or a device without end, would never be read to its end.
  if (kind == FileKind::kOther) return Cannot("read " + path, {"Not a regular file"});
  QFile file;
  if (const Reason reason = OpenToRead(file, path)) return Cannot("read " + path, *reason);
  std::string content;
  content.reserve(static_cast<std::size_t>(file.size()));  // 0 for what tells no size
  std::string block(kReadBlock, '\0');
  for (;;) {
    const qint64 count = file.read(block.data(), kReadBlock);
    if (count <= 0) break;
    content.append(block.data(), static_cast<std::size_t>(count));
    const double part =
        static_cast<double>(content.size()) / static_cast<double>(std::max<qint64>(file.size(), 1));
    if (progress && content.size() % kTold == 0 && !progress(part))
      return Failure{"Reading " + path + " was left", FailureKind::kLeft};
  }
  if (file.error() != QFileDevice::NoError) return Cannot("read " + path, LastReason(file));
  return content;
} catch (const std::bad_alloc&) {
  return Cannot("read " + path, {"it does not fit into memory"});
} catch (const std::length_error&) {
  return Cannot("read " + path, {"it does not fit into memory"});
}

std::vector<FileEntry> QtFileSystem::List(const std::string& folder) const { return FilesOf(folder); }

Result<FileState> QtFileSystem::State(const std::string& path) const {
  Result<FileState> state = StateOfFile(path);
  if (!state.ok()) return Cannot("read " + path, state.failure());
  return state;
}

Result<std::int64_t> QtFileSystem::ModifiedAt(const std::string& path) const {
  const Result<std::int64_t> second = ModifiedSecond(path);
  if (!second.ok()) return Cannot("read " + path, second.failure());
  return second.value() + QDateTime::fromSecsSinceEpoch(second.value()).offsetFromUtc();
}

Done QtFileSystem::Replace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  const FileKind kind = KindOfFile(path);
  const char* const what = kind == FileKind::kMissing ? "write " : "replace ";
  if (kind == FileKind::kFolder) return Cannot(what + path, {"Is a directory"});
  if (kind != FileKind::kMissing && !MayWrite(path))
    return Cannot(what + path, {"Permission denied", FailureKind::kPermission});
  return DoneUnless(kind == FileKind::kOther ? WriteInPlace(path, write) : WriteBeside(path, write), what,
                    path);
}

Done QtFileSystem::Append(const std::string& path, std::string_view bytes) {
  return DoneUnless(AppendBytes(path, bytes), "append to ", path);
}

Done QtFileSystem::Sync(const std::string& path) { return DoneUnless(SyncToDevice(path), "sync ", path); }

void QtFileSystem::BeginSync(const std::string& path) {
  if (syncing_.valid() && (path == syncing_path_ || !HasEnded(syncing_))) return;
  syncing_path_ = path;
  syncing_ = std::async(std::launch::async, [path] { return DoneUnless(SyncToDevice(path), "sync ", path); });
}

Done QtFileSystem::EndedSync(const std::string& path) {
  if (path != syncing_path_ || !syncing_.valid() || !HasEnded(syncing_)) return {};
  return syncing_.get();
}

Done QtFileSystem::Rename(const std::string& from, const std::string& to) {
  return DoneUnless(RenameFile(from, to), "rename ", from + " to " + to);
}

std::unique_ptr<FileLock> QtFileSystem::Lock(const std::string& path) { return LockFile(path); }

std::string QtFileSystem::HolderOf(const std::string& lock) const { return LockHolder(lock); }

}  // namespace quenlor::platform::qt
