// SPDX-License-Identifier: MIT
#include "platform/qt/replacement_file.h"

#include <QFile>
#include <random>

#include <fcntl.h>
#include <qt_windows.h>

#include "platform/qt/system_name.h"

namespace quenlor::platform::qt {
namespace {

constexpr int kMostTries = 100;
constexpr std::string_view kMark = ".quenlor-";  // an ending that nobody else gives a file
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kRandomLetters = 6;

std::string RandomSuffix() {
  std::random_device random;
  std::string suffix(kMark);
  while (suffix.size() < kMark.size() + kRandomLetters) suffix += kLetters[random() % kLetters.size()];
  return suffix;
}

bool IsBeside(std::string_view name, std::string_view target) {
  return name.size() == target.size() + kMark.size() + kRandomLetters && name.starts_with(target) &&
         name.substr(target.size()).starts_with(kMark) &&
         name.substr(target.size() + kMark.size()).find_first_not_of(kLetters) == name.npos;
}

// One that a living program writes is open there, and cannot be had alone.
void RemoveLeftBeside(const std::string& target) {
  const std::size_t slash = target.find_last_of("/\\:");
  const std::size_t name_begin = slash == target.npos ? 0 : slash + 1;
  const std::string folder = target.substr(0, name_begin);
  for (const FileEntry& entry : FilesOf(folder.empty() ? "." : folder)) {
    if (!IsBeside(entry.name, target.substr(name_begin))) continue;
    const OpenHandle gone(::CreateFileW(SystemName(folder + entry.name).c_str(), DELETE, 0, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  }
}

}  // namespace

struct ReplacementFile::Parts {
  std::string target;
  std::string beside;  // empty when written in place
  QFile file;
};

ReplacementFile::ReplacementFile(const std::string& path) : parts_(std::make_unique<Parts>()) {
  parts_->target = WhereItPoints(path);
}

ReplacementFile::~ReplacementFile() {
  parts_->file.close();
  if (!parts_->beside.empty()) ::DeleteFileW(SystemName(parts_->beside).c_str());
}

Reason ReplacementFile::Open() {
  RemoveLeftBeside(parts_->target);
  Reason reason;
  for (int tries = 0; tries < kMostTries; ++tries) {
    const std::string name = parts_->target + RandomSuffix();
    reason = OpenToWrite(parts_->file, name, O_CREAT | O_EXCL);
    if (!reason) parts_->beside = name;
    if (!reason || KindOfFile(name) == FileKind::kMissing) break;
  }
  if (!reason || NotFound(reason) || reason->kind == FailureKind::kFull) return reason;
  // The folder takes no new file, or none of so long a name.
  const bool is_there = KindOfFile(parts_->target) != FileKind::kMissing;
  return OpenToWrite(parts_->file, parts_->target, is_there ? O_TRUNC : O_CREAT);
}

QFileDevice& ReplacementFile::Device() { return parts_->file; }

// Closed only afterwards: it is nobody's leftover. All of it is on the device already.
Reason ReplacementFile::TakeItsPlace() {
  if (parts_->beside.empty()) return {};
  constexpr DWORD kPause = 50;  // ms; whoever looks for viruses or makes an index lets go soon
  constexpr int kMostPauses = 10;
  const std::wstring from = SystemName(parts_->beside);
  const std::wstring to = SystemName(parts_->target);
  const DWORD old = ::GetFileAttributesW(to.c_str());
  if (old != INVALID_FILE_ATTRIBUTES && (old & FILE_ATTRIBUTE_READONLY) != 0)
    return ReasonOf(ERROR_ACCESS_DENIED);
  for (int pauses = 0;
       ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0;
       ++pauses) {
    const DWORD error = ::GetLastError();
    const bool may_be_held = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!may_be_held) return ReasonOf(error);
    if (pauses >= kMostPauses) return Failure{"it is open in another program", FailureKind::kPermission};
    ::Sleep(kPause);
  }
  parts_->beside.clear();
  return {};
}

}  // namespace quenlor::platform::qt
