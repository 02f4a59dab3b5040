// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quenlor::data {

constexpr std::string_view kEmptyRemarks = "Remarks:          ";

// What an edited text becomes.

// The text as one line: line ends at its end are dropped, others become blanks. A text that was copied from
// elsewhere often brings some, and they would tear the file's lines.
std::string OneLine(std::string_view text);

// A file name as it may stand on any disk: each of \ / : ; * ? < > " | becomes a blank. An empty text or a
// single blank gives "File Name".
std::string FileNameFrom(std::string_view text);

// The remarks as typed; an empty text or a single blank gives the empty remarks, "Remarks:" and ten blanks.
std::string RemarksFrom(std::string_view text);

}  // namespace quenlor::data
