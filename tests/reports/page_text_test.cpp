// SPDX-License-Identifier: MIT
#include "reports/page_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::reports {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Every character is one wide.
double Characters(std::string_view text) {
  double count = 0;
  for (const char c : text) count += (c & 0xC0) != 0x80;
  return count;
}

Lines Wrap(std::string_view text, double width, std::size_t most_lines = 100) {
  return Wrapped(text, width, most_lines, Characters);
}

TEST(PageText, AHugeTextCostsLittle) {
  const std::string huge(50'000'000, 'x');
  std::size_t measured = 0;
  const auto measure = [&](std::string_view text) {
    measured += text.size();
    return Characters(text);
  };
  EXPECT_EQ(Wrapped(huge, 40, 20, measure).lines.size(), 20U);
  EXPECT_LT(measured, 1'000'000U);
}

TEST(PageText, LinesAreDividedAtBlanks) {
  EXPECT_THAT(Wrap("water bath at 25 degrees", 10).lines, ElementsAre("water bath", "at 25", "degrees"));
  EXPECT_THAT(Wrap("water  bath ", 6).lines, ElementsAre("water", "bath"));
  EXPECT_THAT(Wrap("Remarks:          ", 10).lines, ElementsAre("Remarks:"));
}

TEST(PageText, AWordLongerThanALineIsDividedWhereItIsFull) {
  EXPECT_THAT(Wrap("a viscoelastic fluid", 6).lines, ElementsAre("a", "viscoe", "lastic", "fluid"));
  EXPECT_THAT(Wrap("試料は二十五度", 3).lines, ElementsAre("試料は", "二十五", "度"));
}

TEST(PageText, BlanksAtTheBeginningStay) {
  EXPECT_THAT(Wrap("  one two", 6).lines, ElementsAre("  one", "two"));
}

TEST(PageText, WhatHasNoRoomIsCutAndSaysSo) {
  const Lines cut = Wrap("one two three four", 5, 2);
  EXPECT_THAT(cut.lines, ElementsAre("one", "two…"));
  EXPECT_FALSE(cut.complete);
  EXPECT_TRUE(Wrap("one two", 5, 2).complete);
  EXPECT_THAT(Wrap("three four", 5, 1).lines, ElementsAre("thre…"));
}

TEST(PageText, WithoutAnyRoomThereIsNoLineAndNoEnd) {
  EXPECT_THAT(Wrap("one", 5, 0).lines, IsEmpty());
  for (const std::string& line : Wrap("one two", 0.5, 10).lines) EXPECT_EQ(line, "");
}

TEST(PageText, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(PlainLine("a\tb\x01"
                      "c\x7F"),
            "a b c ");
  EXPECT_EQ(PlainLine("試料"), "試料");
  EXPECT_THAT(Wrap("one\ntwo", 10).lines, ElementsAre("one two"));
}

}  // namespace
}  // namespace quenlor::reports
