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

Failure Failed(const char* what, const std::string& path, const std::string& reason) {
  return {std::string("cannot ") + what + " " + path + ": " + reason};
}

Failure Failed(const char* what, const std::string& path, const QString& reason) {
  return Failed(what, path, reason.toStdString());
}

Done DoneUnless(const Reason& reason, const char* what, const std::string& path) {
  if (!reason) return {};
  return Failed(what, path, *reason);
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

  // Whether the file took everything; its errorString tells why not.
  bool Finish() {
    Put(waiting_);
    waiting_.clear();
    return !failed_ && file_.flush();
  }

 private:
  void Put(std::string_view bytes) {
    while (!failed_ && !bytes.empty()) {
      const qint64 written = file_.write(bytes.data(), static_cast<qint64>(bytes.size()));
      if (written <= 0) {
        failed_ = true;
      } else {
        bytes.remove_prefix(static_cast<std::size_t>(written));
      }
    }
  }

  QFileDevice& file_;
  std::string waiting_;
  bool failed_ = false;
};

Reason WriteInPlace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  QFile file(Name(path));
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return file.errorString().toStdString();
  FileSink sink(file);
  write(sink);
  if (!sink.Finish()) return file.errorString().toStdString();
  return SyncToDevice(file.handle());
}

Reason WriteBeside(const std::string& path, const std::function<void(ByteSink&)>& write) {
  const QString name = Name(path);
  QSaveFile file(name);
  file.setDirectWriteFallback(true);
  if (!file.open(QIODevice::WriteOnly)) return file.errorString().toStdString();
  FileSink sink(file);
  write(sink);
  if (!sink.Finish()) return file.errorString().toStdString();
  // QSaveFile copies what the user may do with the old file, which for root is everything.
  CopyPermissions(path, file.handle());
  // commit() would sync too, but go on when that fails.
  if (Reason reason = SyncToDevice(file.handle())) return reason;
  if (!file.commit()) return file.errorString().toStdString();
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

bool QtFileSystem::Exists(const std::string& path) const { return IsThere(path); }

Result<std::string> QtFileSystem::Read(const std::string& path) const try {
  QFile file(Name(path));
  const QFileInfo kind(file);
  if (kind.isDir()) return Failed("read", path, std::string("Is a directory"));
  // A pipe that nobody writes to, or a device without end, would never be read to its end.
  if (kind.exists() && !kind.isFile()) return Failed("read", path, std::string("Not a regular file"));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    return Failed("read", path, file.errorString());
  std::string content;
  content.reserve(static_cast<std::size_t>(file.size()));  // 0 for what tells no size
  std::string block(kReadBlock, '\0');
  for (;;) {
    const qint64 count = file.read(block.data(), kReadBlock);
    if (count <= 0) break;
    content.append(block.data(), static_cast<std::size_t>(count));
  }
  if (file.error() != QFileDevice::NoError) return Failed("read", path, file.errorString());
  return content;
} catch (const std::bad_alloc&) {
  return Failed("read", path, std::string("it does not fit into memory"));
} catch (const std::length_error&) {
  return Failed("read", path, std::string("it does not fit into memory"));
}

Result<std::int64_t> QtFileSystem::ModifiedAt(const std::string& path) const {
  const QFileInfo info(Name(path));
  if (!info.exists()) return Failed("read", path, std::string("No such file or directory"));
  const QDateTime time = info.lastModified();
  return std::int64_t{time.toSecsSinceEpoch() + time.offsetFromUtc()};
}

Done QtFileSystem::Replace(const std::string& path, const std::function<void(ByteSink&)>& write) {
  const QFileInfo target(Name(path));
  if (target.isDir()) return Failed("replace", path, std::string("Is a directory"));
  if (target.exists() && !target.isWritable())
    return Failed("replace", path, std::string("Permission denied"));
  const bool is_device = target.exists() && !target.isFile();
  return DoneUnless(is_device ? WriteInPlace(path, write) : WriteBeside(path, write), "replace", path);
}

Done QtFileSystem::Append(const std::string& path, std::string_view bytes) {
  return DoneUnless(AppendBytes(path, bytes), "append to", path);
}

Done QtFileSystem::Sync(const std::string& path) { return DoneUnless(SyncToDevice(path), "sync", path); }

Done QtFileSystem::Rename(const std::string& from, const std::string& to) {
  if (const Reason reason = RenameFile(from, to)) return Failed("rename", from + " to " + to, *reason);
  return {};
}

std::unique_ptr<FileLock> QtFileSystem::Lock(const std::string& path) {
  auto lock = std::make_unique<QtFileLock>(Name(path));
  if (lock->HeldByAnother()) return nullptr;
  return lock;
}

}  // namespace quenlor::platform::qt
