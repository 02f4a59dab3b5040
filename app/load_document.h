// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/document.h"
#include "data/settings_list.h"
#include "platform/file_system.h"

namespace quenlor::app {

// The bytes of the data file at that path become the document, and the settings take over what it tells of
// its axes. A file without a date of its own gets the one that the disk has for it.
void LoadDocument(const std::string& path, std::string bytes, const platform::FileSystem& files,
                  data::SettingsList& settings, data::Document& document);

// The last part of a path.
std::string NameWithoutFolder(const std::string& path);

}  // namespace quenlor::app
