// SPDX-License-Identifier: MIT
#include "platform/qt/native_file.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <tuple>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quenlor::platform::qt {
namespace {

Failure ReasonOf(int error_number) {
  const std::error_code error(error_number, std::generic_category());
  return {error.message(), KindOf(error)};
}

int Open(const std::string& path, int flags) {
  int file = -1;
  do {
    file = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
  } while (file < 0 && errno == EINTR);
  return file;
}

// How many bytes went out; fewer than given only with errno telling why.
std::size_t WriteAll(int file, std::string_view bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(file, bytes.data() + written, bytes.size() - written);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      break;
    }
  }
  return written;
}

}  // namespace

Failure LastReason() { return ReasonOf(errno); }

Reason OpenToRead(QFile& file, const std::string& path) {
  const int handle = Open(path, O_RDONLY);
  if (handle < 0) return ReasonOf(errno);
  file.open(handle, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
  return {};
}

Reason OpenToWrite(QFile& file, const std::string& path, int flags) {
  const int handle = Open(path, O_WRONLY | flags);
  if (handle < 0) return ReasonOf(errno);
  file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
  return {};
}

FileKind KindOfFile(const std::string& path) {
  struct stat file {};
  if (::stat(path.c_str(), &file) != 0) return FileKind::kMissing;
  if (S_ISDIR(file.st_mode)) return FileKind::kFolder;
  return S_ISREG(file.st_mode) ? FileKind::kFile : FileKind::kOther;
}

bool MayWrite(const std::string& path) { return ::access(path.c_str(), W_OK) == 0; }

std::vector<FileEntry> FilesOf(const std::string& folder) {
  std::vector<FileEntry> files;
  DIR* const open = ::opendir(folder.c_str());
  if (open == nullptr) return files;
  while (const dirent* entry = ::readdir(open)) {
    struct stat file {};
    if (::fstatat(::dirfd(open), entry->d_name, &file, 0) != 0 || !S_ISREG(file.st_mode)) continue;
    files.push_back({entry->d_name, static_cast<std::uint64_t>(file.st_size), std::int64_t{file.st_mtime}});
  }
  ::closedir(open);
  std::ranges::sort(files, {}, &FileEntry::name);
  return files;
}

namespace {

bool LeadsOut(const std::filesystem::path& link) {
  std::error_code error;
  const std::filesystem::path folder = link.has_parent_path() ? link.parent_path() : ".";
  const auto home = std::filesystem::canonical(folder, error);
  // What leads to nothing counts by where it leads.
  const auto target =
      std::filesystem::weakly_canonical(folder / std::filesystem::read_symlink(link, error), error);
  const auto way = target.lexically_relative(home);
  return error || way.empty() || *way.begin() == "..";
}

}  // namespace

Result<FileState> StateOfFile(const std::string& path) {
  struct stat file {};
  if (::lstat(path.c_str(), &file) != 0) return ReasonOf(errno);
  FileState state;
  if (S_ISLNK(file.st_mode)) {
    state.leads_out = LeadsOut(path);
    if (::stat(path.c_str(), &file) != 0) {
      if (!state.leads_out) return ReasonOf(errno);
      return state;
    }
  }
  state.device = file.st_dev;
  state.file = file.st_ino;
  state.size = static_cast<std::uint64_t>(file.st_size);
  return state;
}

Result<std::int64_t> ModifiedSecond(const std::string& path) {
  struct stat file {};
  if (::stat(path.c_str(), &file) != 0) return ReasonOf(errno);
  return std::int64_t{file.st_mtime};
}

Reason FindFile(const std::string& path) {
  if (::access(path.c_str(), F_OK) == 0) return {};
  return ReasonOf(errno);
}

bool IsSameFile(const std::string& path, const std::string& other) {
  struct stat one {};
  struct stat another {};
  return ::stat(path.c_str(), &one) == 0 && ::stat(other.c_str(), &another) == 0 &&
         one.st_dev == another.st_dev && one.st_ino == another.st_ino;
}

Reason AppendBytes(const std::string& path, std::string_view bytes) {
  const int file = Open(path, O_WRONLY | O_APPEND | O_NONBLOCK);  // a pipe must not stop us
  if (file < 0) return ReasonOf(errno);
  Reason reason;
  const std::size_t written = WriteAll(file, bytes);
  if (written < bytes.size()) {
    reason = ReasonOf(errno);
    // After an appending write the position is the end of what it wrote, wherever the file ended before.
    const off_t end = ::lseek(file, 0, SEEK_CUR);
    if (written > 0 && end >= 0 && ::ftruncate(file, end - static_cast<off_t>(written)) != 0) {
      reason->text += "; a part of it stays in the file";
    }
  }
  // A network file system may notice a full disk only now. After an interruption the file is closed
  // all the same.
  if (::close(file) != 0 && errno != EINTR && !reason) reason = ReasonOf(errno);
  return reason;
}

Reason SyncToDevice(int open_file) {
  while (::fsync(open_file) != 0) {
    if (errno == EINVAL || errno == EROFS)
      break;  // a pipe, a terminal: nothing is kept, so nothing can be late
    if (errno != EINTR) return ReasonOf(errno);
  }
  return {};
}

Reason SyncToDevice(const std::string& path) {
  int file = Open(path, O_RDONLY | O_NONBLOCK);  // a pipe without its other end must not stop us
  if (file < 0 && errno == EACCES) file = Open(path, O_WRONLY | O_NONBLOCK);
  if (file < 0) return ReasonOf(errno);
  Reason reason = SyncToDevice(file);
  ::close(file);
  return reason;
}

void CopyPermissions(const std::string& from, int open_file) {
  struct stat model {};
  if (::stat(from.c_str(), &model) != 0) return;
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  // Only root gives files away, but a member gives one to the group. The mode comes last, giving
  // away trims it.
  const bool is_given = ::fchown(open_file, model.st_uid, model.st_gid) == 0 ||
                        ::fchown(open_file, kSameOwner, model.st_gid) == 0;
  const mode_t mode = model.st_mode & (is_given ? 07777 : 0777);
  std::ignore = ::fchmod(open_file, mode);
}

void SyncFolder(const std::string& path) {
  const int folder = Open(path, O_RDONLY | O_DIRECTORY);
  if (folder < 0) return;
  ::fsync(folder);
  ::close(folder);
}

Reason RenameFile(const std::string& from, const std::string& to) {
#ifdef RENAME_NOREPLACE
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS) return ReasonOf(errno);
#endif
  // Some network file systems cannot refuse a name that is taken; a second link always does.
  if (::link(from.c_str(), to.c_str()) != 0) return ReasonOf(errno);
  if (::unlink(from.c_str()) == 0) return {};
  const int error = errno;
  ::unlink(to.c_str());
  return ReasonOf(error);
}

}  // namespace quenlor::platform::qt
