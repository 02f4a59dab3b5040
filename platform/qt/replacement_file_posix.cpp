// SPDX-License-Identifier: MIT
#include "platform/qt/replacement_file.h"

#include <QFile>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <random>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quenlor::platform::qt {

// QSaveFile would do all of this, but not for a name that is no UTF-8.

namespace {

constexpr int kMostLinks = 40;  // as many as the system follows
constexpr int kMostTries = 100;

std::filesystem::path WhereItPoints(std::filesystem::path path) {
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(path, error); ++links) {
    const std::filesystem::path next = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / next;
  }
  return path;
}

constexpr std::string_view kMark = ".quenlor-";  // an ending that nobody else gives a file
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kRandomLetters = 6;
constexpr std::size_t kSuffix = kMark.size() + kRandomLetters;

std::string RandomSuffix() {
  std::random_device random;
  std::string suffix(kMark);
  while (suffix.size() < kSuffix) suffix += kLetters[random() % kLetters.size()];
  return suffix;
}

bool IsBeside(std::string_view name, std::string_view target) {
  return name.size() == target.size() + kSuffix && name.starts_with(target) &&
         name.substr(target.size()).starts_with(kMark) &&
         name.substr(target.size() + kMark.size()).find_first_not_of(kLetters) == name.npos;
}

bool IsNamed(int file, const std::string& path) {
  struct stat open {};
  struct stat named {};
  return ::fstat(file, &open) == 0 && ::lstat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
         open.st_ino == named.st_ino;
}

// Whoever writes such a file holds its lock, so that one without a holder is of a program that was killed.
void RemoveLeftBeside(const std::filesystem::path& target) {
  const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!IsBeside(entry->path().filename().native(), target.filename().native())) continue;
    const std::string path = entry->path().native();
    const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) continue;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 && IsNamed(file, path)) ::unlink(path.c_str());
    ::close(file);
  }
}

}  // namespace

struct ReplacementFile::Parts {
  std::filesystem::path target;
  std::string beside;  // empty when written in place
  QFile file;
};

ReplacementFile::ReplacementFile(const std::string& path) : parts_(std::make_unique<Parts>()) {
  parts_->target = WhereItPoints(path);
}

ReplacementFile::~ReplacementFile() {
  if (!parts_->beside.empty()) ::unlink(parts_->beside.c_str());
}

Reason ReplacementFile::Open() {
  RemoveLeftBeside(parts_->target);
  Reason reason;
  for (int tries = 0; tries < kMostTries; ++tries) {
    const std::string name = parts_->target.string() + RandomSuffix();
    reason = OpenToWrite(parts_->file, name, O_CREAT | O_EXCL);
    if (reason && KindOfFile(name) == FileKind::kMissing) break;
    if (reason) continue;
    // Another program that tidies up may have been faster than the lock.
    ::flock(parts_->file.handle(), LOCK_EX | LOCK_NB);
    if (IsNamed(parts_->file.handle(), name)) {
      parts_->beside = name;
      break;
    }
    parts_->file.close();
  }
  const bool too_long = parts_->target.filename().native().size() + kSuffix > NAME_MAX;
  if (!reason || (reason->kind != FailureKind::kPermission && !too_long)) return reason;
  return OpenToWrite(parts_->file, parts_->target.string(), O_CREAT | O_TRUNC);
}

QFileDevice& ReplacementFile::Device() { return parts_->file; }

Reason ReplacementFile::TakeItsPlace() {
  if (parts_->beside.empty()) return {};
  // Closed only afterwards, with its lock: it is nobody's leftover. All of it is on the device already.
  if (std::rename(parts_->beside.c_str(), parts_->target.c_str()) != 0) return LastReason();
  parts_->beside.clear();
  const std::filesystem::path folder = parts_->target.parent_path();
  SyncFolder(folder.empty() ? "." : folder.string());
  return {};
}

}  // namespace quenlor::platform::qt
