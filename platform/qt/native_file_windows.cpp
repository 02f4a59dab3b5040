// SPDX-License-Identifier: MIT
#include "platform/qt/native_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <qt_windows.h>

#include "platform/qt/system_name.h"

namespace quenlor::platform::qt {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kOnlyToAsk = 0;

HANDLE Open(const std::string& path, DWORD access, DWORD creation = OPEN_EXISTING) {
  return ::CreateFileW(SystemName(path).c_str(), access, kShareAll, nullptr, creation,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

std::uint64_t Whole(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

// The system counts tenths of microseconds since 1601.
std::int64_t SecondOf(FILETIME time) {
  constexpr std::int64_t kSecond = 10'000'000;
  constexpr std::int64_t kFrom1601To1970 = 11'644'473'600;
  return static_cast<std::int64_t>(Whole(time.dwHighDateTime, time.dwLowDateTime)) / kSecond -
         kFrom1601To1970;
}

// The open file becomes Qt's, which closes it.
Reason HandOver(QFile& file, HANDLE handle, QIODevice::OpenMode mode, int flags) {
  if (handle == INVALID_HANDLE_VALUE) return LastReason();
  const int descriptor = ::_open_osfhandle(reinterpret_cast<intptr_t>(handle), flags | O_BINARY);
  file.open(descriptor, mode | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
  return {};
}

HANDLE HandleOf(int open_file) { return reinterpret_cast<HANDLE>(::_get_osfhandle(open_file)); }

DWORD CreationFor(int flags) {
  if ((flags & O_EXCL) != 0) return CREATE_NEW;
  if ((flags & O_CREAT) != 0) return (flags & O_TRUNC) != 0 ? CREATE_ALWAYS : OPEN_ALWAYS;
  return (flags & O_TRUNC) != 0 ? TRUNCATE_EXISTING : OPEN_EXISTING;
}

}  // namespace

Failure LastReason() { return ReasonOf(::GetLastError()); }

Reason OpenToRead(QFile& file, const std::string& path) {
  return HandOver(file, Open(path, GENERIC_READ), QIODevice::ReadOnly, O_RDONLY);
}

// A new file may also be given the permissions of another.
Reason OpenToWrite(QFile& file, const std::string& path, int flags) {
  const DWORD access = (flags & O_EXCL) != 0 ? GENERIC_WRITE | WRITE_DAC : GENERIC_WRITE;
  return HandOver(file, Open(path, access, CreationFor(flags)), QIODevice::WriteOnly, O_WRONLY);
}

FileKind KindOfFile(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(SystemName(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::kMissing;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FileKind::kFolder;
  const OpenHandle file(Open(path, kOnlyToAsk));
  return !file || ::GetFileType(file.get()) == FILE_TYPE_DISK ? FileKind::kFile : FileKind::kOther;
}

// One that another program has open alone is not forbidden.
bool MayWrite(const std::string& path) {
  const bool is_folder = KindOfFile(path) == FileKind::kFolder;
  const OpenHandle file(Open(path, is_folder ? FILE_ADD_FILE : GENERIC_WRITE));
  return file || ::GetLastError() == ERROR_SHARING_VIOLATION;
}

std::vector<FileEntry> FilesOf(const std::string& folder) {
  std::vector<FileEntry> files;
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(SystemName(folder + "/*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return files;
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
    files.push_back({QString::fromWCharArray(found.cFileName).toStdString(),
                     Whole(found.nFileSizeHigh, found.nFileSizeLow), SecondOf(found.ftLastWriteTime)});
  } while (::FindNextFileW(search, &found) != 0);
  ::FindClose(search);
  std::ranges::sort(files, {}, &FileEntry::name);
  return files;
}

namespace {

bool LeadsOut(const std::string& path) {
  const QFileInfo target(QString::fromStdString(WhereItPoints(path)));
  const QString folder = QFileInfo(QString::fromStdString(path)).dir().canonicalPath();
  const QString way = QDir(folder).relativeFilePath(target.canonicalFilePath());
  return folder.isEmpty() || way.startsWith(QStringLiteral("..")) || QDir::isAbsolutePath(way);
}

}  // namespace

Result<FileState> StateOfFile(const std::string& path) {
  FileState state;
  const DWORD attributes = ::GetFileAttributesW(SystemName(path).c_str());
  const bool is_link =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const OpenHandle file(Open(path, kOnlyToAsk));
  BY_HANDLE_FILE_INFORMATION told{};
  if (!file || ::GetFileInformationByHandle(file.get(), &told) == 0) {
    const Failure reason = LastReason();
    if (!is_link) return reason;
    state.leads_out = true;  // to nothing, wherever that is
    return state;
  }
  state.device = told.dwVolumeSerialNumber;
  state.file = Whole(told.nFileIndexHigh, told.nFileIndexLow);
  state.size = Whole(told.nFileSizeHigh, told.nFileSizeLow);
  state.leads_out = is_link && LeadsOut(path);
  return state;
}

Result<std::int64_t> ModifiedSecond(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA told{};
  if (::GetFileAttributesExW(SystemName(path).c_str(), GetFileExInfoStandard, &told) == 0)
    return LastReason();
  return SecondOf(told.ftLastWriteTime);
}

Reason FindFile(const std::string& path) {
  if (::GetFileAttributesW(SystemName(path).c_str()) != INVALID_FILE_ATTRIBUTES) return {};
  return LastReason();
}

bool IsSameFile(const std::string& path, const std::string& other) {
  const Result<FileState> one = StateOfFile(path);
  const Result<FileState> another = StateOfFile(other);
  return one.ok() && another.ok() && one.value().device == another.value().device &&
         one.value().file == another.value().file;
}

Reason AppendBytes(const std::string& path, std::string_view bytes) {
  const OpenHandle file(Open(path, GENERIC_WRITE));
  LARGE_INTEGER before{};
  const auto folder_or = [&path](const Failure& reason) {
    return KindOfFile(path) == FileKind::kFolder ? Failure{"Is a directory"} : reason;
  };
  if (!file || ::GetFileSizeEx(file.get(), &before) == 0) return folder_or(LastReason());
  OVERLAPPED at_the_end{};
  at_the_end.Offset = at_the_end.OffsetHigh = 0xFFFFFFFF;
  DWORD written = 0;
  if (::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, &at_the_end) != 0 &&
      written == bytes.size())
    return {};
  Reason reason = written > 0 ? ReasonOf(ERROR_DISK_FULL) : folder_or(LastReason());
  if (written > 0 &&
      (::SetFilePointerEx(file.get(), before, nullptr, FILE_BEGIN) == 0 || ::SetEndOfFile(file.get()) == 0)) {
    reason->text += "; a part of it stays in the file";
  }
  return reason;
}

Reason SyncToDevice(int open_file) {
  const HANDLE file = HandleOf(open_file);
  // Where nothing is kept, nothing can be late.
  if (::GetFileType(file) != FILE_TYPE_DISK || ::FlushFileBuffers(file) != 0) return {};
  return LastReason();
}

Reason SyncToDevice(const std::string& path) {
  const OpenHandle file(Open(path, GENERIC_WRITE));
  if (!file || ::FlushFileBuffers(file.get()) == 0) return LastReason();
  return {};
}

// What a file inherits from its folder the new one has inherited, too.
void CopyPermissions(const std::string& from, int open_file) {
  const HANDLE file = HandleOf(open_file);
  std::wstring name = SystemName(from);
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  FILE_BASIC_INFO basic{};
  basic.FileAttributes = attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                       FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED);
  if (basic.FileAttributes != 0) ::SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof basic);

  PACL rights = nullptr;
  PSECURITY_DESCRIPTOR security = nullptr;
  if (::GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              &rights, nullptr, &security) != ERROR_SUCCESS)
    return;
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  ::GetSecurityDescriptorControl(security, &control, &revision);
  bool has_its_own = (control & SE_DACL_PROTECTED) != 0;
  for (DWORD i = 0; rights != nullptr && i < rights->AceCount && !has_its_own; ++i) {
    void* right = nullptr;
    has_its_own = ::GetAce(rights, i, &right) != 0 &&
                  (static_cast<const ACE_HEADER*>(right)->AceFlags & INHERITED_ACE) == 0;
  }
  if (has_its_own) {
    const DWORD protection = (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                                : UNPROTECTED_DACL_SECURITY_INFORMATION;
    ::SetSecurityInfo(file, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | protection, nullptr, nullptr, rights,
                      nullptr);
  }
  ::LocalFree(security);
}

void SyncFolder(const std::string&) {}  // a name given with write-through lasts

Reason RenameFile(const std::string& from, const std::string& to) {
  if (::MoveFileExW(SystemName(from).c_str(), SystemName(to).c_str(), MOVEFILE_WRITE_THROUGH) != 0) return {};
  return LastReason();
}

}  // namespace quenlor::platform::qt
