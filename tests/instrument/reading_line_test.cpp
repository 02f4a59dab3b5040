// SPDX-License-Identifier: MIT
#include "instrument/reading_line.h"

#include <limits>
#include <locale>

#include <gtest/gtest.h>

#include "instrument/number_text.h"

namespace quenlor::instrument {
namespace {

TEST(ReadingLine, EachFormIsWrittenItsWay) {
  EXPECT_EQ(ReadingLine(LineForm::kVisco, 7, 1234.5, 25.1), "1234.5 mPa.s,25.1 C");
  EXPECT_EQ(ReadingLine(LineForm::kBare, 7, 1234.5, 25.1), "1234.5,25.1");
  EXPECT_EQ(ReadingLine(LineForm::kComma, 7, 1234.5, 25.1), "1234,5;25,1");
  EXPECT_EQ(ReadingLine(LineForm::kSemicolon, 7, 1234.5, 25.1), "1234.5;25.1");
  EXPECT_EQ(ReadingLine(LineForm::kNumbered, 7, 1234.5, 25.1), "7,1234.5,25.1");
}

TEST(ReadingLine, NumbersHaveOneDecimal) {
  EXPECT_EQ(OneDecimal(25), "25.0");
  EXPECT_EQ(OneDecimal(-3.26), "-3.3");
  EXPECT_EQ(OneDecimal(1e9), "1000000000.0");
  EXPECT_EQ(OneDecimal(std::numeric_limits<double>::max()).size(), 311u);
}

TEST(ReadingLine, ZeroHasNoSign) {
  EXPECT_EQ(OneDecimal(-0.04), "0.0");
  EXPECT_EQ(OneDecimal(-0.0), "0.0");
  EXPECT_EQ(OneDecimal(-0.06), "-0.1");
}

TEST(ReadingLine, LocaleDoesNotMatter) {
  struct CommaForPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const auto before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));

  const auto line = ReadingLine(LineForm::kNumbered, 1234567, 1234.5, 25.1);
  const auto number = ParseNumber("1234.5");
  std::locale::global(before);

  EXPECT_EQ(line, "1234567,1234.5,25.1");
  EXPECT_EQ(number, 1234.5);
}

}  // namespace
}  // namespace quenlor::instrument
