// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_system.h"
#include "platform/result.h"

class QFile;
class QFileDevice;

namespace quenlor::platform::qt {

// The file operations that Qt does not offer, or not fast enough for one call per reading, or not for a name
// that is no UTF-8: here a name is the bytes that the system knows it by. Each returns why it did not work,
// in the system's words alone, and nothing when it did.
using Reason = Done;

FailureKind KindOf(std::error_code error);

// Why the system has refused what it, or that file, was asked for last; to be asked for at once.
Failure LastReason();
Failure LastReason(const QFileDevice& file);

Reason OpenToRead(QFile& file, const std::string& path);
Reason OpenToWrite(QFile& file, const std::string& path, int flags = 0);  // unbuffered; flags of the system's

Reason FindFile(const std::string& path);  // whatever stands under that name

enum class FileKind { kMissing, kFile, kFolder, kOther };
FileKind KindOfFile(const std::string& path);  // what stands there, or where it points
bool MayWrite(const std::string& path);
std::vector<FileEntry> FilesOf(const std::string& folder);  // by name; none of a folder that cannot be read
Result<FileState> StateOfFile(const std::string& path);
Result<std::int64_t> ModifiedSecond(const std::string& path);  // since 1970

// Whether both names are there and lead to one file: by a link, a folder's other name, another spelling.
bool IsSameFile(const std::string& path, const std::string& other);

Reason AppendBytes(const std::string& path, std::string_view bytes);

Reason SyncToDevice(const std::string& path);
Reason SyncToDevice(int open_file);

// Gives an open file the owner, group and mode of another, as far as the user and the file system allow.
void CopyPermissions(const std::string& from, int open_file);

// Makes new names in a folder last. A system that cannot do so keeps them in its own time.
void SyncFolder(const std::string& path);

// Never replaces, never copies.
Reason RenameFile(const std::string& from, const std::string& to);

}  // namespace quenlor::platform::qt
