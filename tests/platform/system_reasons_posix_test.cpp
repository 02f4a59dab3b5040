// SPDX-License-Identifier: MIT
#include "platform/qt/system_reasons.h"

#include <clocale>
#include <string>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

TEST(SystemReasons, AreEnglishAndNothingElseOfTheLocaleChanges) {
  const std::string usual = std::setlocale(LC_ALL, nullptr);
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);

  SystemReasonsInEnglish();

  EXPECT_STREQ(std::setlocale(LC_MESSAGES, nullptr), "C");
  EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
  std::setlocale(LC_ALL, usual.c_str());
}

}  // namespace
}  // namespace quenlor::platform::qt
