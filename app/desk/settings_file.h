// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/settings_list.h"
#include "platform/kept_file.h"

namespace quenlor::app {

// The settings list and the file that mirrors it, one element a line.
//
// A file that cannot be read or written changes nothing for the running program; its choices hold until it
// ends, and `tell` hears why.
class SettingsFile {
 public:
  SettingsFile(platform::FileSystem& files, std::string path, bool system_writes_comma,
               platform::KeptFile::Tell tell = {})
      : file_(files, std::move(path), std::move(tell)), system_writes_comma_(system_writes_comma) {}

  data::SettingsList& List() { return list_; }
  const data::SettingsList& List() const { return list_; }

  // Reads the file; a missing one is made with the defaults.
  void LoadSettings();
  platform::Done SaveSettings();

 private:
  void WriteDefaultSettings();

  platform::KeptFile file_;
  bool system_writes_comma_;
  data::SettingsList list_;
};

}  // namespace quenlor::app
