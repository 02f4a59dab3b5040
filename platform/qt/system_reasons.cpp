// SPDX-License-Identifier: MIT
#include "platform/qt/system_reasons.h"

#include <clocale>

namespace quenlor::platform::qt {

void SystemReasonsInEnglish() {
#ifdef LC_MESSAGES
  std::setlocale(LC_MESSAGES, "C");
#endif
}

}  // namespace quenlor::platform::qt
