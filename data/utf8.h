// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quenlor::data {

// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsUtf8(std::string_view bytes);

// The bytes as UTF-8 text: well-formed sequences stand as they are, every other byte above 127 is taken as
// the Latin-1 character of that number. The result never holds the bytes FE and FF.
std::string ToUtf8(std::string bytes);

// The longest prefix of at most `limit` bytes that does not cut a character of well-formed text.
std::string_view Utf8Prefix(std::string_view text, std::size_t limit);

}  // namespace quenlor::data
