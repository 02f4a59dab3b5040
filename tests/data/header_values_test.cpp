// SPDX-License-Identifier: MIT
#include "data/header_values.h"

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

TEST(HeaderValues, PastedLineEndsBecomeBlanksAndAreDroppedAtTheEnd) {
  EXPECT_EQ(OneLine("Sample A\r\n"), "Sample A");
  EXPECT_EQ(OneLine("a\nb\r\nc"), "a b  c");
  EXPECT_EQ(OneLine("\n"), "");
  EXPECT_EQ(OneLine("plain "), "plain ");
}

TEST(HeaderValues, ForbiddenCharactersOfAFileNameBecomeBlanks) {
  EXPECT_EQ(FileNameFrom("a/b"), "a b");
  EXPECT_EQ(FileNameFrom("1\\2/3:4;5*6?7<8>9\"0|x"), "1 2 3 4 5 6 7 8 9 0 x");
  EXPECT_EQ(FileNameFrom("run 1, 25°C.csv"), "run 1, 25°C.csv");
}

TEST(HeaderValues, NoFileNameIsCalledFileName) {
  EXPECT_EQ(FileNameFrom(""), "File Name");
  EXPECT_EQ(FileNameFrom(" "), "File Name");
  EXPECT_EQ(FileNameFrom("  "), "  ");
  EXPECT_EQ(FileNameFrom("/"), " ") << "typed characters are not nothing";
}

TEST(HeaderValues, NoRemarksAreTheEmptyRemarks) {
  EXPECT_EQ(RemarksFrom(""), "Remarks:          ");
  EXPECT_EQ(RemarksFrom(" "), "Remarks:          ");
  EXPECT_EQ(RemarksFrom("spindle 3"), "spindle 3");
}

}  // namespace
}  // namespace quenlor::data
