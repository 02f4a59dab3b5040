// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/settings_list.h"
#include "platform/file_system.h"

namespace quenlor::app {

// The settings list and the file that mirrors it, one element a line.
//
// A file that cannot be written changes nothing for the running program; its choices hold until it ends.
class SettingsFile {
 public:
  SettingsFile(platform::FileSystem& files, std::string path, bool system_writes_comma)
      : files_(files), path_(std::move(path)), system_writes_comma_(system_writes_comma) {}

  data::SettingsList& List() { return list_; }
  const data::SettingsList& List() const { return list_; }

  // Reads the file; a missing one is made with the defaults.
  void LoadSettings();
  void SaveSettings();

 private:
  void WriteDefaultSettings();

  platform::FileSystem& files_;
  std::string path_;
  bool system_writes_comma_;
  data::SettingsList list_;
};

}  // namespace quenlor::app
