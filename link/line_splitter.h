// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quenlor::link {

// How a line of the instrument is divided into fields.
struct LineForm {
  bool numeric = false;        // "Number": only what belongs to numbers, dates and times is kept
  bool decimal_comma = false;  // numbers are shown with "," (numeric form only)
};

// The fields of one line, in order, into `fields`.
//
// Without `numeric`, ";" divides fields when the line holds one, else "," does; a blank divides them when it
// follows a digit. With `numeric`, a field is a run of digits and the characters + - / : . (and the decimal
// comma between two digits), and anything else ends it. A divider with nothing after it leaves an empty last
// field; a line without any field gives none.
void SplitLine(std::string_view line, LineForm form, std::vector<std::string>& fields);

}  // namespace quenlor::link
