// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/document.h"
#include "data/settings_list.h"
#include "platform/file_system.h"

namespace quenlor::app {

// The bytes of the data file of that path become the document, and the settings take over what it tells of
// its axes. A file without a date of its own gets `file_date`.
void LoadDocument(const std::string& path, std::string bytes, const std::string& file_date,
                  data::SettingsList& settings, data::Document& document);

// When the disk says that the file was written; empty when it says nothing.
std::string FileDate(const platform::FileSystem& files, const std::string& path);

// The last part of a path.
std::string NameWithoutFolder(const std::string& path);

}  // namespace quenlor::app
