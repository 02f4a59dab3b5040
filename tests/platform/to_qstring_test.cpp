// SPDX-License-Identifier: MIT
#include "platform/qt/to_qstring.h"

#include <string>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

TEST(ToQString, KeepsEveryCharacterAndReplacesWhatIsNone) {
  EXPECT_EQ(ToQString("25 \xC2\xB0"
                      "C \xE7\xB2\x98"),
            QStringLiteral("25 °C 粘"));
  EXPECT_EQ(ToQString(std::string_view("a\0b", 3)).size(), 3);
  EXPECT_EQ(ToQString("a\xFF"), QStringLiteral("a\uFFFD"));
  EXPECT_TRUE(ToQString({}).isEmpty());
}

TEST(ToShortQString, EndsAfterAThousandBytesAndNeverInsideACharacter) {
  EXPECT_EQ(ToShortQString("µ"), QStringLiteral("µ"));
  EXPECT_EQ(ToShortQString(std::string(5000, 'x')).size(), 1000);
  std::string text = "x";
  for (int i = 0; i < 1000; ++i) text += "µ";
  EXPECT_EQ(ToShortQString(text), QStringLiteral("x") + QString(499, u'µ'));
}

}  // namespace
}  // namespace quenlor::platform::qt
