// SPDX-License-Identifier: MIT
#include "platform/qt/replacement_file.h"

#include <QFile>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <climits>
#include <cstdio>
#include <filesystem>
#include <random>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace quenlor::platform::qt {

#ifdef Q_OS_UNIX

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

std::string RandomSuffix() {
  static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
  std::random_device random;
  std::string suffix = ".";
  while (suffix.size() < 7) suffix += kLetters[random() % kLetters.size()];
  return suffix;
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
  Reason reason;
  for (int tries = 0; tries < kMostTries; ++tries) {
    const std::string name = parts_->target.string() + RandomSuffix();
    reason = OpenToWrite(parts_->file, name, O_CREAT | O_EXCL);
    if (!reason) parts_->beside = name;
    if (!reason || KindOfFile(name) == FileKind::kMissing) break;
  }
  const bool too_long = parts_->target.filename().native().size() + RandomSuffix().size() > NAME_MAX;
  if (!reason || (reason->kind != FailureKind::kPermission && !too_long)) return reason;
  return OpenToWrite(parts_->file, parts_->target.string(), O_CREAT | O_TRUNC);
}

QFileDevice& ReplacementFile::Device() { return parts_->file; }

Reason ReplacementFile::TakeItsPlace() {
  parts_->file.close();
  if (parts_->beside.empty()) return {};
  if (std::rename(parts_->beside.c_str(), parts_->target.c_str()) != 0) return LastReason();
  parts_->beside.clear();
  const std::filesystem::path folder = parts_->target.parent_path();
  SyncFolder(folder.empty() ? "." : folder.string());
  return {};
}

#else

struct ReplacementFile::Parts {
  QSaveFile file;
};

ReplacementFile::ReplacementFile(const std::string& path) : parts_(std::make_unique<Parts>()) {
  parts_->file.setFileName(QString::fromStdString(path));
  parts_->file.setDirectWriteFallback(true);
}

ReplacementFile::~ReplacementFile() = default;

Reason ReplacementFile::Open() {
  if (parts_->file.open(QIODevice::WriteOnly)) return {};
  return LastReason(parts_->file);
}

QFileDevice& ReplacementFile::Device() { return parts_->file; }

Reason ReplacementFile::TakeItsPlace() {
  if (parts_->file.commit()) return {};
  return LastReason(parts_->file);
}

#endif

}  // namespace quenlor::platform::qt
