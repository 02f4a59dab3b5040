// SPDX-License-Identifier: MIT
#include "graph/fit_text.h"

#include <algorithm>
#include <cmath>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/utf8.h"

namespace quenlor::graph {
namespace {

using testing::ElementsAre;

// Every character is ten wide.
double Width(std::string_view text) {
  return 10.0 * static_cast<double>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

TEST(FitText, WhatFitsStaysAsItIs) {
  EXPECT_EQ(FitText("sample", 60, Width), "sample");
  EXPECT_EQ(FitText("", 0, Width), "");
}

TEST(FitText, ALongerTextEndsInAnEllipsisWithinTheWidth) {
  EXPECT_EQ(FitText("sample", 59, Width), "samp…");
  EXPECT_EQ(FitText("sample", 20, Width), "s…");
  EXPECT_EQ(FitText("sample", 10, Width), "…");
}

TEST(FitText, NothingIsShownWhereNotEvenTheEllipsisFits) { EXPECT_EQ(FitText("sample", 9, Width), ""); }

TEST(FitText, CharactersAreNeverCut) { EXPECT_EQ(FitText("測定試料名", 30, Width), "測定…"); }

TEST(FitText, WhereverATextIsCutItFitsAndIsWhole) {
  for (int width = 0; width < 120; width += 10) {
    const std::string text = FitText("粘度ß𝜂測定 🧪 Öl", width, Width);
    EXPECT_TRUE(data::IsUtf8(text)) << width;
    EXPECT_LE(Width(text), width);
  }
}

TEST(FitText, NoBlankStandsBeforeTheEllipsis) { EXPECT_EQ(FitText("Polymer 12", 90, Width), "Polymer…"); }

TEST(FitText, AHugeTextCostsLittle) {
  const std::string huge(50'000'000, 'x');
  std::size_t measured = 0;
  const auto measure = [&](std::string_view text) {
    measured += text.size();
    return Width(text);
  };
  EXPECT_EQ(Width(FitText(huge, 400, measure)), 400);
  EXPECT_LT(measured, 1'000'000U);
}

TEST(FitText, AnEndlessTextIsCutEvenWhereThereIsRoom) {
  const std::string text = FitText(std::string(100'000, 'x'), 1e12, Width);
  EXPECT_LT(text.size(), 5000U);
  EXPECT_TRUE(text.ends_with("…"));
}

TEST(FitNumber, ANumberIsShownWholeOrNotAtAll) {
  EXPECT_EQ(FitNumber("1360000000", 100, Width), "1360000000");
  EXPECT_EQ(FitNumber("1360000000", 99, Width), "…");
  EXPECT_EQ(FitNumber("12,5 mPa.s", 99, Width), "…");
  EXPECT_EQ(FitNumber("12455.0", 9, Width), "");
  EXPECT_EQ(FitNumber("overload", 50, Width), "over…") << "no number";
}

std::vector<std::string> Names(const std::vector<std::string>& names, double width) {
  return FitNames(names, std::vector<double>(names.size(), width), Width);
}

TEST(FitNames, WhatFitsStaysAsItIs) {
  EXPECT_THAT(Names({"batch 41", "batch 42"}, 80), ElementsAre("batch 41", "batch 42"));
  EXPECT_THAT(Names({"", "a"}, 0), ElementsAre("", ""));
}

TEST(FitNames, ALongerNameKeepsBothOfItsEnds) {
  EXPECT_THAT(Names({"Suspension 11 no. 3"}, 110), ElementsAre("Suspe…no. 3"));
  EXPECT_THAT(Names({"Suspension 11 no. 3"}, 100), ElementsAre("Suspe…o. 3"));
  EXPECT_THAT(Names({"sample"}, 10), ElementsAre("…"));
  EXPECT_THAT(Names({"sample"}, 9), ElementsAre(""));
}

TEST(FitNames, WhereverANameIsCutItFitsAndIsWhole) {
  for (int width = 0; width < 160; width += 10) {
    for (const std::string& name :
         Names({"粘度ß𝜂測定 🧪 Öl 粘度", "粘度ß𝜂測定 🧫 Öl 粘度"}, width)) {
      EXPECT_TRUE(data::IsUtf8(name)) << width;
      EXPECT_LE(Width(name), width) << name;
    }
  }
}

TEST(FitNames, NamesThatDifferInTheMiddleShowWhere) {
  EXPECT_THAT(Names({"batch 41 of resin", "batch 42 of resin"}, 110),
              ElementsAre("…1 of resin", "…2 of resin"));
  EXPECT_THAT(Names({"batch 41 of resin, slow", "batch 42 of resin, slow"}, 80),
              ElementsAre("…1 of r…", "…2 of r…"));
}

TEST(FitNames, NamesOfTwoSortsShowBothDifferences) {
  const std::vector<std::string> names = {"resin A, vessel 1, slow", "resin A, vessel 2, slow",
                                          "resin B, vessel 1, slow", "resin B, vessel 2, slow"};
  EXPECT_THAT(Names(names, 80), ElementsAre("…A,…1,…", "…A,…2,…", "…B,…1,…", "…B,…2,…"));
  EXPECT_THAT(Names(names, 60), ElementsAre("…A…1…", "…A…2…", "…B…1…", "…B…2…"));
}

TEST(FitNames, AShorterNameDiffersFromOneThatGoesOn) {
  const auto names =
      Names({"a very long name of 1", "a very long name of 10", "a very long name of 100"}, 50);
  EXPECT_EQ(std::set(names.begin(), names.end()).size(), 3U) << testing::PrintToString(names);
}

TEST(FitNames, EqualNamesStayEqual) {
  EXPECT_THAT(Names({"Suspension 11 no. 3", "Suspension 11 no. 3"}, 110),
              ElementsAre("Suspe…no. 3", "Suspe…no. 3"));
}

TEST(FitNames, EachHasItsOwnWidth) {
  EXPECT_THAT(FitNames(std::vector<std::string>{"sample", "sample"}, std::vector<double>{60, 30}, Width),
              ElementsAre("sample", "s…e"));
}

TEST(FitNames, AnEndlessNameKeepsItsEnds) {
  const std::string endless = "A" + std::string(5'000'000, 'x') + "Z";
  const std::string name = Names({endless}, 300).front();
  EXPECT_EQ(Width(name), 300);
  EXPECT_TRUE(name.starts_with("A") && name.ends_with("Z")) << name;
}

// Letters of whole heights, half as wide.
double WholeDots(std::string_view text, double height) {
  return std::round(height) / 2 * static_cast<double>(text.size());
}

TEST(HeightToFit, LettersShrinkUntilTheTextFitsAsItIsDrawn) {
  EXPECT_EQ(HeightToFit("1360000000", 100, 20, 7, WholeDots), 20);
  for (double width = 40; width < 100; width += 0.5) {
    const double height = HeightToFit("1360000000", width, 20, 7, WholeDots);
    EXPECT_LE(WholeDots("1360000000", height), width) << width;
    EXPECT_GT(WholeDots("1360000000", std::round(height) + 1), width) << width;
  }
}

TEST(HeightToFit, TheSmallestLettersAreTheLast) {
  EXPECT_EQ(HeightToFit("1360000000", 10, 20, 7, WholeDots), 7);
  EXPECT_EQ(HeightToFit("1360000000", -3, 20, 7, WholeDots), 7);
  EXPECT_EQ(HeightToFit("1", 1, 5, 7, WholeDots), 5) << "they were smaller";
}

}  // namespace
}  // namespace quenlor::graph
