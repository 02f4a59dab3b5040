// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QUrl;

namespace quenlor::platform::qt {

// The path that a local file's address stands for, byte for byte: Qt's own way leads by text, in which bytes
// that are no UTF-8 become other characters, and so the name of another file.
std::string PathOf(const QUrl& url);

}  // namespace quenlor::platform::qt
