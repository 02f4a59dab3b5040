// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDevice>
#include <memory>
#include <string>

#include "platform/qt/native_file.h"

namespace quenlor::platform::qt {

// A file written beside the one of that name, which takes its place when all of it is on the disk; before, or
// without that, the old one stays as it is. A symbolic link keeps pointing. Where nothing can be made beside
// a file, it is written in place.
class ReplacementFile {
 public:
  explicit ReplacementFile(const std::string& path);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  Reason Open();
  QFileDevice& Device();  // to write to, once it is open
  Reason TakeItsPlace();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace quenlor::platform::qt
