// SPDX-License-Identifier: MIT
#include "data/text_lines.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> result;
  TextLines lines(text);
  while (const auto line = lines.Next()) result.emplace_back(*line);
  return result;
}

TEST(TextLines, CrLfAndLfAndCrEachEndALine) {
  EXPECT_THAT(Lines("a\r\nb\r\n"), ElementsAre("a", "b"));
  EXPECT_THAT(Lines("a\nb\n"), ElementsAre("a", "b"));
  EXPECT_THAT(Lines("a\rb\r"), ElementsAre("a", "b"));
  EXPECT_THAT(Lines("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
}

TEST(TextLines, TheLastLineNeedsNoEnd) { EXPECT_THAT(Lines("a\nb"), ElementsAre("a", "b")); }

TEST(TextLines, AnEmptyTextHasNoLines) {
  EXPECT_THAT(Lines(""), IsEmpty());
  EXPECT_THAT(Lines("\xEF\xBB\xBF"), IsEmpty());
}

TEST(TextLines, BlankLinesAreLines) {
  EXPECT_THAT(Lines("\n"), ElementsAre(""));
  EXPECT_THAT(Lines("\r\n\r\n"), ElementsAre("", ""));
  EXPECT_THAT(Lines("a\n\r\nb"), ElementsAre("a", "", "b"));
  EXPECT_THAT(Lines("a\r\r\nb"), ElementsAre("a", "", "b"));
}

TEST(TextLines, AByteOrderMarkIsSkippedAtTheStartAlone) {
  EXPECT_THAT(Lines("\xEF\xBB\xBF"
                    "a\n\xEF\xBB\xBF"
                    "b"),
              ElementsAre("a",
                          "\xEF\xBB\xBF"
                          "b"));
}

TEST(TextLines, BlanksAndNulsBelongToTheLine) {
  EXPECT_THAT(Lines(std::string_view(" a\0 \nb", 6)), ElementsAre(std::string(" a\0 ", 4), "b"));
}

TEST(TextLines, NothingComesAfterTheLastLine) {
  TextLines lines("a");
  EXPECT_EQ(lines.Next(), "a");
  EXPECT_EQ(lines.Next(), std::nullopt);
  EXPECT_EQ(lines.Next(), std::nullopt);
}

TEST(SplitFields, AreDividedByTheSeparatorAlone) {
  EXPECT_THAT(SplitFields("Info,No.1,a b;c", ','), ElementsAre("Info", "No.1", "a b;c"));
  EXPECT_THAT(SplitFields("Info;No.1;1,5", ';'), ElementsAre("Info", "No.1", "1,5"));
}

TEST(SplitFields, EmptyFieldsCount) {
  EXPECT_THAT(SplitFields("", ','), ElementsAre(""));
  EXPECT_THAT(SplitFields(",", ','), ElementsAre("", ""));
  EXPECT_THAT(SplitFields(",a,,b,", ','), ElementsAre("", "a", "", "b", ""));
}

TEST(Trimmed, LosesBlanksAndTabsAtBothEndsAlone) {
  EXPECT_EQ(Trimmed(" \t a b\t "), "a b");
  EXPECT_EQ(Trimmed(" \t "), "");
  EXPECT_EQ(Trimmed(""), "");
  EXPECT_EQ(Trimmed("a\r"), "a\r");
}

}  // namespace
}  // namespace quenlor::data
