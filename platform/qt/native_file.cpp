// SPDX-License-Identifier: MIT
#include "platform/qt/native_file.h"

#include <QFileDevice>
#include <cerrno>

namespace quenlor::platform::qt {

FailureKind KindOf(std::error_code error) {
  using std::errc;
#ifdef EDQUOT
  if (error == std::error_code(EDQUOT, std::generic_category())) return FailureKind::kFull;
#endif
  for (const errc missing : {errc::no_such_file_or_directory, errc::not_a_directory}) {
    if (error == missing) return FailureKind::kNotFound;
  }
  for (const errc denied :
       {errc::permission_denied, errc::operation_not_permitted, errc::read_only_file_system}) {
    if (error == denied) return FailureKind::kPermission;
  }
  for (const errc full : {errc::no_space_on_device, errc::file_too_large}) {
    if (error == full) return FailureKind::kFull;
  }
  return FailureKind::kOther;
}

// Qt's own errors tell which operation failed, not why; the system's number is still there.
Failure LastReason(const QFileDevice& file) {
  const FailureKind kind = LastReason().kind;
  return {file.errorString().toStdString(), kind};
}

}  // namespace quenlor::platform::qt
