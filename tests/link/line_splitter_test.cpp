// SPDX-License-Identifier: MIT
#include "link/line_splitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/table_text.h"

namespace quenlor::link {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr LineForm kSeparators{};
constexpr LineForm kNumbers{.numeric = true};
constexpr LineForm kCommaNumbers{.numeric = true, .decimal_comma = true};

Texts Split(std::string_view line, LineForm form) {
  Texts fields;
  SplitLine(line, form, fields);
  return fields;
}

struct Example {
  std::string_view line;
  Texts fields;
};

void ExpectFields(LineForm form, const std::vector<Example>& examples) {
  for (const Example& example : examples) {
    EXPECT_EQ(Split(example.line, form), example.fields) << "of the line \"" << example.line << "\"";
  }
}

// Fields between separators.

TEST(LineSplitter, ACommaDividesFields) {
  ExpectFields(kSeparators,
               {{"12.3,25.0", {"12.3", "25.0"}}, {"a,b,c", {"a", "b", "c"}}, {"12.3", {"12.3"}}});
}

TEST(LineSplitter, ASpaceAfterTheSeparatorOpensTheField) {
  EXPECT_THAT(Split("12.3, 25.0", kSeparators), ElementsAre("12.3", " 25.0"));
}

TEST(LineSplitter, ASpaceAfterADigitEndsTheField) {
  EXPECT_THAT(Split("12.3 25.0", kSeparators), ElementsAre("12.3", "25.0"));
}

TEST(LineSplitter, ASpaceAfterAnythingElseBelongsToTheField) {
  ExpectFields(kSeparators, {{"mPa s", {"mPa s"}},
                             {"V= 12", {"V= 12"}},
                             {"12. 5", {"12. 5"}},
                             {"- 12", {"- 12"}},
                             {"  12", {"  12"}},
                             {" ", {" "}}});
}

TEST(LineSplitter, OfSeveralSpacesAfterADigitOnlyTheFirstEndsTheField) {
  EXPECT_THAT(Split("12.3   25.0", kSeparators), ElementsAre("12.3", "  25.0"));
}

TEST(LineSplitter, ASpaceBetweenDigitAndSeparatorLeavesAnEmptyField) {
  EXPECT_THAT(Split("12.3 ,25.0", kSeparators), ElementsAre("12.3", "", "25.0"));
}

TEST(LineSplitter, UnitsAfterABlankAreFieldsOfTheirOwn) {
  EXPECT_THAT(Split("1234.5 mPa.s,25.1 C", kSeparators), ElementsAre("1234.5", "mPa.s", "25.1", "C"));
}

TEST(LineSplitter, ASemicolonAnywhereMakesItTheSeparator) {
  ExpectFields(kSeparators, {{"1,5;2,5", {"1,5", "2,5"}},
                             {"1,5,2,5;", {"1,5,2,5", ""}},
                             {";1,5", {"", "1,5"}},
                             {"1,5;2.5 x", {"1,5", "2.5", "x"}}});
}

TEST(LineSplitter, TheSeparatorIsChosenForEachLine) {
  Texts fields;
  SplitLine("1;2,3", kSeparators, fields);
  EXPECT_THAT(fields, ElementsAre("1", "2,3"));

  SplitLine("1,2", kSeparators, fields);

  EXPECT_THAT(fields, ElementsAre("1", "2"));
}

TEST(LineSplitter, SignsLettersAndAcknowledgesStayInTheField) {
  ExpectFields(kSeparators, {{"+1.5,-2.5", {"+1.5", "-2.5"}},
                             {"<AK>", {"<AK>"}},
                             {"<AK>12,E2", {"<AK>12", "E2"}},
                             {"12:30,2024/03/15", {"12:30", "2024/03/15"}},
                             {"\t5", {"\t5"}}});
}

TEST(LineSplitter, TheDecimalCommaMakesNoDifferenceBetweenSeparators) {
  constexpr LineForm kCommaSeparators{.numeric = false, .decimal_comma = true};
  ExpectFields(kCommaSeparators, {{"1,5", {"1", "5"}}, {"1.5", {"1.5"}}, {"1,5;2.5", {"1,5", "2.5"}}});
}

TEST(LineSplitter, ADividerWithNothingAfterItLeavesAnEmptyLastField) {
  ExpectFields(kSeparators, {{"1,", {"1", ""}}, {"1 ", {"1", ""}}, {"1;", {"1", ""}}, {"a, ", {"a", " "}}});
  ExpectFields(kNumbers, {{"1 ", {"1", ""}}, {"25.1C", {"25.1", ""}}, {"1,", {"1", ""}}});
}

TEST(LineSplitter, SeparatorsWithNothingBetweenThemLeaveEmptyFields) {
  ExpectFields(kSeparators, {{",", {"", ""}}, {",,5", {"", "", "5"}}, {"1;;2", {"1", "", "2"}}});
}

// Fields made of numbers.

TEST(LineSplitter, NumbersAreFoundAmongLetters) {
  ExpectFields(kNumbers, {{"V= 1234 mPa.s T= 25.1C", {"1234", ".", "25.1", ""}},
                          {"V=1234", {"1234"}},
                          {"no 1 and 2", {"1", "2"}},
                          {"12e5", {"12", "5"}}});
}

TEST(LineSplitter, SignsDatesAndTimesBelongToNumbers) {
  ExpectFields(kNumbers, {{"+1.5 -2.5", {"+1.5", "-2.5"}},
                          {"2024/03/15 12:30:45 7", {"2024/03/15", "12:30:45", "7"}},
                          {"5-3", {"5-3"}},
                          {"-", {"-"}},
                          {"x:y", {":", ""}}});
}

TEST(LineSplitter, SeveralOtherCharactersInARowEndOneField) {
  ExpectFields(kNumbers, {{"1 , ; 2", {"1", "2"}}, {"1 mm = 2", {"1", "2"}}, {"1\t\x01<>2", {"1", "2"}}});
}

TEST(LineSplitter, OtherCharactersBeforeTheFirstNumberAreDropped) {
  ExpectFields(kNumbers, {{"   5", {"5"}}, {",,5", {"5"}}, {"abc;5", {"5"}}});
}

TEST(LineSplitter, UnderDotACommaEndsTheNumber) {
  ExpectFields(kNumbers, {{"1,5", {"1", "5"}}, {"1.5", {"1.5"}}, {"1.5,2.5", {"1.5", "2.5"}}});
}

TEST(LineSplitter, UnderCommaACommaBetweenDigitsBelongsToTheNumber) {
  ExpectFields(kCommaNumbers, {{"1,5", {"1,5"}}, {"1,5 2,5", {"1,5", "2,5"}}, {"1,2,3", {"1,2,3"}}});
}

TEST(LineSplitter, UnderCommaAnyOtherCommaEndsTheNumber) {
  ExpectFields(kCommaNumbers, {{"1, 5", {"1", "5"}},
                               {",5", {"5"}},
                               {"5,", {"5", ""}},
                               {"1,-5", {"1", "-5"}},
                               {"1,,5", {"1", "5"}},
                               {"+,5", {"+", "5"}},
                               {",", {}}});
}

TEST(LineSplitter, UnderCommaAPointIsShownAsAComma) {
  ExpectFields(kCommaNumbers, {{"1.5", {"1,5"}}, {"mPa.s", {",", ""}}, {"1.5,2.5", {"1,5,2,5"}}});
}

TEST(LineSplitter, ALineWithoutNumbersHasNoFields) {
  for (const std::string_view line : {"", "<AK>", "   ", "mPa s", ";,;", "\xC3\xA9"}) {
    EXPECT_THAT(Split(line, kNumbers), IsEmpty()) << line;
    EXPECT_THAT(Split(line, kCommaNumbers), IsEmpty()) << line;
  }
}

TEST(LineSplitter, AnEmptyLineHasNoFields) { EXPECT_THAT(Split("", kSeparators), IsEmpty()); }

// Lines that no instrument should send.

TEST(LineSplitter, FourThousandSeparatorsMakeOneFieldMore) {
  const Texts fields = Split(Repeated(",", 4000), kSeparators);

  EXPECT_THAT(fields, SizeIs(4001));
  EXPECT_THAT(fields, Each(""));
}

TEST(LineSplitter, FourThousandFieldsKeepTheirOrder) {
  std::string line;
  Texts expected;
  for (int i = 0; i < 4000; ++i) {
    line += (i > 0 ? ";" : "") + std::to_string(i);
    expected.push_back(std::to_string(i));
  }

  EXPECT_EQ(Split(line, kSeparators), expected);
  EXPECT_EQ(Split(line, kNumbers), expected);
}

TEST(LineSplitter, BytesWithoutAMeaningBelongToTheirField) {
  using namespace std::string_view_literals;
  EXPECT_THAT(Split("a\0b,\xC3\xA9\xFF"sv, kSeparators), ElementsAre("a\0b"sv, "\xC3\xA9\xFF"sv));
  EXPECT_THAT(Split("1\0002"sv, kNumbers), ElementsAre("1", "2"));
}

TEST(LineSplitter, NothingOfTheLineBeforeStays) {
  Texts fields;
  SplitLine("1,2,3,4", kSeparators, fields);

  SplitLine("5,", kSeparators, fields);
  EXPECT_THAT(fields, ElementsAre("5", ""));

  SplitLine("6,7,8", kSeparators, fields);
  EXPECT_THAT(fields, ElementsAre("6", "7", "8"));

  SplitLine("", kSeparators, fields);
  EXPECT_THAT(fields, IsEmpty());
}

}  // namespace
}  // namespace quenlor::link
