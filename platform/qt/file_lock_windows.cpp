// SPDX-License-Identifier: MIT
#include "platform/qt/file_lock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <array>

#include <qt_windows.h>

#include "platform/qt/native_file.h"
#include "platform/qt/system_name.h"

namespace quenlor::platform::qt {
namespace {

class GrantedLock : public FileLock {};

// The file goes with its last handle, also when the program is killed.
class HeldFile : public FileLock {
 public:
  explicit HeldFile(HANDLE file) : file_(file) {
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    const std::string holder =
        "process " + std::to_string(::GetCurrentProcessId()) + " (" + program.toStdString() + ")";
    DWORD written = 0;
    ::WriteFile(file, holder.data(), static_cast<DWORD>(holder.size()), &written, nullptr);
    ::SetEndOfFile(file);
  }

 private:
  OpenHandle file_;
};

}  // namespace

// Whoever has opened the file to write to it holds the lock: nobody else can then. To look into it is
// allowed.
std::unique_ptr<FileLock> LockFile(const std::string& path) {
  constexpr int kMostTries = 5;
  constexpr DWORD kPause = 10;  // ms
  for (int tries = 0;; ++tries) {
    const HANDLE file =
        ::CreateFileW(SystemName(path).c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE) return std::make_unique<HeldFile>(file);
    const DWORD error = ::GetLastError();
    if (error == ERROR_SHARING_VIOLATION) return nullptr;
    // A file that is about to go is refused like one in a folder that cannot be written.
    if (error != ERROR_ACCESS_DENIED || tries >= kMostTries) return std::make_unique<GrantedLock>();
    ::Sleep(kPause);
  }
}

std::string LockHolder(const std::string& path) {
  constexpr qint64 kLongest = 200;
  QFile file;
  if (OpenToRead(file, path)) return {};
  return file.read(kLongest).toStdString();
}

}  // namespace quenlor::platform::qt
