// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quenlor::platform::qt {

// A tool tip takes what looks like markup for markup; received and typed texts are shown as they are.
QString PlainTip(const QString& text);

}  // namespace quenlor::platform::qt
