// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "data/document.h"
#include "data/progress.h"
#include "data/settings_list.h"

namespace quenlor::data {

// Hands the document as a data file to `write`, in large pieces. What the graph looks like goes along: its
// ranges are the document's, time scale, visco axis, line and marker stand in the settings. The file
// has the encoding of the one that the document came from, or UTF-8 where a text has letters that Latin-1 has
// not. `progress` cannot leave it.
void WriteDataFile(const Document& document, const SettingsList& settings,
                   const std::function<void(std::string_view)>& write, const Progress& progress = {});

}  // namespace quenlor::data
