// SPDX-License-Identifier: MIT
#include "graph/legend_plan.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

using testing::Each;
using testing::ElementsAre;

// Letters come in whole heights, and are half as wide.
double TextWidth(std::string_view text, double height) {
  return std::round(height) / 2 * static_cast<double>(text.size());
}

// Ten columns of 70, and the heading's.
constexpr LegendRoom kRoom{760, 0.5, 100, 20, 14, 8};
const LegendEntry kHeading("Final\rValue");

LegendPlan Plan(const std::vector<std::string>& captions, int rows = 1, const LegendRoom& room = kRoom) {
  std::vector<LegendEntry> entries;
  for (const std::string& caption : captions) entries.emplace_back(caption);
  return PlanLegend(kHeading, entries, rows, room, TextWidth);
}

TEST(LegendPlan, ACaptionIsANameAndBelowItAValue) {
  EXPECT_EQ(LegendEntry("No.1\r12.5").name, "No.1");
  EXPECT_EQ(LegendEntry("No.1\r12.5").value, "12.5");
  EXPECT_EQ(LegendEntry("No.1").value, "");
}

TEST(LegendPlan, ShortTextsStandInUsualColumnsWhereThereIsRoomAndInNarrowerOnesElse) {
  EXPECT_THAT(Plan({"a\r1", "b\r2", "c\r3"}).columns, ElementsAre(100, 100, 100));
  EXPECT_THAT(Plan(std::vector<std::string>(10, "a\r1")).columns, Each(70));
}

TEST(LegendPlan, ALongTextTakesThePlacesThatAreFree) {
  const LegendPlan plan = Plan({"No.1\r1360000000.12345", "No.2\r1"});
  EXPECT_EQ(plan.text_height, 20);
  EXPECT_THAT(plan.columns, ElementsAre(170, 170));
}

TEST(LegendPlan, ALongTextTakesWhatShortOnesBesideItLeaveFree) {
  std::vector<std::string> captions(10, "a\r1");
  captions[3] = "Suspension 11, slow\r5";
  const LegendPlan plan = Plan(captions);
  EXPECT_EQ(plan.text_height, 20);
  EXPECT_TRUE(plan.complete);
  EXPECT_GE(plan.columns[3], 200);
  EXPECT_LE(plan.Width(), 760);
}

TEST(LegendPlan, LettersShrinkToWhatFitsAsTheyAreDrawn) {
  const LegendPlan plan = Plan(std::vector<std::string>(10, "No.1\r1234567"));
  EXPECT_TRUE(plan.complete);
  EXPECT_LE(TextWidth("1234567", plan.text_height), 60);
  EXPECT_EQ(std::round(plan.text_height), 17);
}

TEST(LegendPlan, NamesGiveWayToValues) {
  const LegendPlan names = Plan(std::vector<std::string>(10, "a name that is too long\r1"));
  EXPECT_FALSE(names.complete);
  EXPECT_EQ(names.text_height, kRoom.smallest_name);

  std::vector<std::string> captions(10, "a name that is too long\r1");
  captions[7] += "23456789.12345";
  const LegendPlan plan = Plan(captions);
  EXPECT_GE(plan.columns[7], plan.gap + TextWidth("123456789.12345", plan.text_height) - 1e-6);
  EXPECT_LE(plan.Width(), 760.1);
}

TEST(LegendPlan, RestsWhileDigitsChange) {
  // The digit 1 is narrow.
  const auto measure = [](std::string_view text, double height) {
    double width = 0;
    for (const char c : text) width += (c == '1' ? 0.3 : 0.6) * height;
    return width;
  };
  const auto columns = [&](const char* caption) {
    const std::vector<LegendEntry> entries(8, LegendEntry(caption));
    return PlanLegend(kHeading, entries, 1, kRoom, measure).columns;
  };
  EXPECT_EQ(columns("a\r11111.1"), columns("a\r98765.4"));
}

TEST(LegendPlan, TwoRowsHaveHalfTheColumns) {
  const LegendPlan plan = Plan(std::vector<std::string>(9, "Suspension\r1"), 2);
  EXPECT_THAT(plan.columns, ElementsAre(110, 110, 110, 110, 110));
  EXPECT_TRUE(plan.complete);
}

TEST(LegendPlan, NoRoomAtAllLeavesTheSmallestLetters) {
  for (const double width : {0.0, -5.0, 20.0}) {
    LegendRoom room = kRoom;
    room.width = width;
    const LegendPlan plan = Plan(std::vector<std::string>(10, "a\r1234"), 1, room);
    EXPECT_EQ(plan.text_height, room.smallest);
    EXPECT_FALSE(plan.complete);
    for (const double column : plan.columns) EXPECT_TRUE(std::isfinite(column));
  }
  EXPECT_TRUE(Plan({}).columns.empty());
}

}  // namespace
}  // namespace quenlor::graph
