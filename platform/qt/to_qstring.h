// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

#include "data/utf8.h"

namespace quenlor::platform::qt {

// A text of ours as Qt has it. Bytes that are no UTF-8 become replacement characters.
inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Its first thousand bytes: a view, a menu or a label lays out all of a text to show an inch of it.
inline QString ToShortQString(std::string_view text) { return ToQString(data::Utf8Prefix(text, 1000)); }

}  // namespace quenlor::platform::qt
