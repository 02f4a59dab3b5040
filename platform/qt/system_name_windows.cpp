// SPDX-License-Identifier: MIT
#include "platform/qt/system_name.h"

#include <QDir>
#include <QString>
#include <cwctype>

#include <qt_windows.h>

#include "platform/qt/native_file.h"

namespace quenlor::platform::qt {
namespace {

// Longer ones are only understood whole and with a mark in front. A folder may have 12 characters less than a
// file, for the short name of a file in it.
constexpr std::size_t kLongest = MAX_PATH - 12;

constexpr unsigned long kDiskQuotaExceeded = 1295;  // some headers lack its name

std::wstring WholeName(const std::wstring& name) {
  const DWORD size = ::GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
  if (size == 0) return name;
  std::wstring whole(size, L'\0');
  whole.resize(::GetFullPathNameW(name.c_str(), size, whole.data(), nullptr));
  return whole;
}

std::errc MeaningOf(unsigned long error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
      return std::errc::no_such_file_or_directory;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
      return std::errc::permission_denied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return std::errc::no_space_on_device;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return std::errc::file_exists;
    default:
      return std::errc::io_error;
  }
}

std::string TextOf(unsigned long error) {
  wchar_t* text = nullptr;
  // A system that has no English tells in the user's language.
  for (const DWORD language : {MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 0}) {
    constexpr DWORD kFlags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    if (::FormatMessageW(kFlags, nullptr, error, language, reinterpret_cast<wchar_t*>(&text), 0, nullptr) !=
        0)
      break;
  }
  if (text == nullptr) return "the system's error " + std::to_string(error);
  std::wstring told(text);
  ::LocalFree(text);
  while (!told.empty() && (std::iswspace(told.back()) || told.back() == L'.')) told.pop_back();
  return QString::fromStdWString(told).toStdString();
}

}  // namespace

std::wstring SystemName(const std::string& path) {
  std::wstring name = QDir::toNativeSeparators(QString::fromStdString(path)).toStdWString();
  if (name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)")) return name;
  const std::wstring whole = WholeName(name);
  if (whole.size() < kLongest) return name;
  if (whole.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + whole.substr(1);
  return LR"(\\?\)" + whole;
}

// What every system knows is told in the same words on each.
Failure ReasonOf(unsigned long error) {
  const std::errc meaning = MeaningOf(error);
  const FailureKind kind = KindOf(std::make_error_code(meaning));
  if (error == ERROR_SHARING_VIOLATION) return {"it is open in another program", kind};
  return {meaning == std::errc::io_error ? TextOf(error) : std::make_error_code(meaning).message(), kind};
}

OpenHandle::~OpenHandle() {
  if (*this) ::CloseHandle(handle_);
}

OpenHandle::operator bool() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }

std::string WhereItPoints(const std::string& path) {
  const std::wstring name = SystemName(path);
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const OpenHandle file(::CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file) return path;
  std::wstring target(::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  if (target.empty()) return path;
  target.resize(::GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()),
                                            FILE_NAME_NORMALIZED));
  return QString::fromStdWString(target).toStdString();
}

}  // namespace quenlor::platform::qt
