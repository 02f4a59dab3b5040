// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quenlor::data {

// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsUtf8(std::string_view bytes);

// The bytes as UTF-8 text: well-formed sequences stand as they are, every other byte above 127 is taken as
// the Latin-1 character of that number. The result never holds the bytes FE and FF.
std::string ToUtf8(std::string bytes);

// The bytes that a text has in a file: UTF-8, perhaps with a byte-order mark before it, or Latin-1.
enum class TextEncoding { kUtf8, kUtf8WithMark, kLatin1 };
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// How the text of a file is encoded. Bytes that are neither UTF-8 nor free of its sequences count as UTF-8
// with damage in it.
TextEncoding EncodingOf(std::string_view bytes);

// UTF-8 text as Latin-1; nothing when it holds a character that Latin-1 has not.
std::optional<std::string> ToLatin1(std::string_view text);

// The longest prefix of at most `limit` bytes that does not cut a character of well-formed text.
std::string_view Utf8Prefix(std::string_view text, std::size_t limit);

}  // namespace quenlor::data
