// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The pieces that texts for scripts are put together from.
namespace quenlor::data {

// A field of a comma-separated line, quoted where it has to be (RFC 4180).
void AppendCsvField(std::string_view text, std::string& line);

void AppendJsonString(std::string_view text, std::string& json);

// With as many digits as it takes to read the same number back; null for none.
void AppendJsonNumber(std::optional<double> number, std::string& json);

}  // namespace quenlor::data
