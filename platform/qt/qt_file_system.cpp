// SPDX-License-Identifier: MIT
#include "platform/qt/qt_file_system.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <new>
#include <stdexcept>

#include "platform/qt/native_file.h"

namespace quenlor::platform::qt {
namespace {

constexpr qint64 kReadBlock = 262144;  // stays in the processor's cache on its way into the text
constexpr std::size_t kWriteBlock = 1048576;

QString Name(const std::string& path) { return QString::fromStdString(path); }

Done DoneUnless(const Reason& reason, const char* what, const std::string& path) {
  if (!reason) return {};
  return Cannot(what + path, *reason);
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
      }
    }
  }

  QFileDevice& file_;
  std::string waiting_;
  Reason failed_;
};

Reason WriteInPlace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  QFile file(Name(path));
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return LastReason(file);
  FileSink sink(file);
  write(sink);
  if (Reason reason = sink.Finish()) return reason;
  return SyncToDevice(file.handle());
}

Reason WriteBeside(const std::string& path, const std::function<void(ByteSink&)>& write) {
  const QString name = Name(path);
  QSaveFile file(name);
  file.setDirectWriteFallback(true);
  if (!file.open(QIODevice::WriteOnly)) return LastReason(file);
  FileSink sink(file);
  write(sink);
  if (Reason reason = sink.Finish()) return reason;
  // QSaveFile copies what the user may do with the old file, which for root is everything.
  CopyPermissions(path, file.handle());
  // commit() would sync too, but go on when that fails.
  if (Reason reason = SyncToDevice(file.handle())) return reason;
  if (!file.commit()) return LastReason(file);
  SyncFolder(QFileInfo(QFileInfo(name).canonicalFilePath()).path().toStdString());
  return {};
}

class QtFileLock : public FileLock {
 public:
  explicit QtFileLock(const QString& name) : file_(name) {
    file_.setStaleLockTime(0);
  }  // old is not abandoned

  bool HeldByAnother() { return !file_.tryLock(0) && file_.error() == QLockFile::LockFailedError; }

 private:
  QLockFile file_;
};

}  // namespace

bool QtFileSystem::Exists(const std::string& path) const { return !FindFile(path); }

bool QtFileSystem::Same(const std::string& path, const std::string& other) const {
  return IsSameFile(path, other);
}

Result<std::string> QtFileSystem::Read(const std::string& path) const try {
  QFile file(Name(path));
  const QFileInfo kind(file);
  if (kind.isDir()) return Cannot("read " + path, {"Is a directory"});
  // A pipe that nobody writes to, or a device without end, would never be read to its end.
  if (kind.exists() && !kind.isFile()) return Cannot("read " + path, {"Not a regular file"});
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    return Cannot("read " + path, LastReason(file));
  std::string content;
  content.reserve(static_cast<std::size_t>(file.size()));  // 0 for what tells no size
  std::string block(kReadBlock, '\0');
  for (;;) {
    const qint64 count = file.read(block.data(), kReadBlock);
    if (count <= 0) break;
    content.append(block.data(), static_cast<std::size_t>(count));
  }
  if (file.error() != QFileDevice::NoError) return Cannot("read " + path, LastReason(file));
  return content;
} catch (const std::bad_alloc&) {
  return Cannot("read " + path, {"it does not fit into memory"});
} catch (const std::length_error&) {
  return Cannot("read " + path, {"it does not fit into memory"});
}

Result<std::int64_t> QtFileSystem::ModifiedAt(const std::string& path) const {
  if (const Reason missing = FindFile(path)) return Cannot("read " + path, *missing);
  const QDateTime time = QFileInfo(Name(path)).lastModified();
  return std::int64_t{time.toSecsSinceEpoch() + time.offsetFromUtc()};
}

Done QtFileSystem::Replace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  const QFileInfo target(Name(path));
  const char* const what = target.exists() ? "replace " : "write ";
  if (target.isDir()) return Cannot(what + path, {"Is a directory"});
  if (target.exists() && !target.isWritable())
    return Cannot(what + path, {"Permission denied", FailureKind::kPermission});
  const bool is_device = target.exists() && !target.isFile();
  return DoneUnless(is_device ? WriteInPlace(path, write) : WriteBeside(path, write), what, path);
}

Done QtFileSystem::Append(const std::string& path, std::string_view bytes) {
  return DoneUnless(AppendBytes(path, bytes), "append to ", path);
}

Done QtFileSystem::Sync(const std::string& path) { return DoneUnless(SyncToDevice(path), "sync ", path); }

Done QtFileSystem::Rename(const std::string& from, const std::string& to) {
  return DoneUnless(RenameFile(from, to), "rename ", from + " to " + to);
}

std::unique_ptr<FileLock> QtFileSystem::Lock(const std::string& path) {
  auto lock = std::make_unique<QtFileLock>(Name(path));
  if (lock->HeldByAnother()) return nullptr;
  return lock;
}

}  // namespace quenlor::platform::qt
