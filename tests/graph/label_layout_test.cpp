// SPDX-License-Identifier: MIT
#include "graph/label_layout.h"

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

// Letters as wide as six tenths of their height, like those of a usual font.
double TextWidth(std::string_view text, double height) {
  return 0.6 * height * static_cast<double>(text.size());
}

struct Placed {
  std::string name;
  PlacedLabel label;
};

std::vector<Placed> Visible(const LabelLayout& layout) {
  std::vector<Placed> visible;
  const auto add = [&](const auto& labels, const char* name) {
    for (std::size_t i = 0; i < labels.size(); ++i) {
      if (labels[i].visible) visible.push_back({name + std::to_string(i), labels[i]});
    }
  };
  add(layout.Label5, "Label5.");
  add(layout.Label6, "Label6.");
  add(layout.Label7, "Label7.");
  add(layout.Label8, "Label8.");
  add(layout.Label9, "Label9.");
  add(layout.Label10, "Label10.");
  return visible;
}

Captions Labels(ViscoAxis axis, int log_min = 0, int log_max = 2) {
  data::AxisRanges ranges;
  ranges.ViscoLogMin = static_cast<std::int16_t>(log_min);
  ranges.ViscoLogMax = static_cast<std::int16_t>(log_max);
  Captions captions{LabelsOf(ranges, {TimeUnit::Minute, axis}), {}, {}};
  captions.Label6 = {"Time", "Viscosity", "Temp", "2026/11/21 09:30:00", "oil.csv", "(min)", "Remarks: none"};
  captions.Label10.fill("sample\r1128.0");
  captions.Label10[0] = "Final\rValue";
  return captions;
}

LabelLayout Layout(GraphKind kind, ViscoAxis axis = ViscoAxis::Linear, double width = 8000,
                   double height = 7000) {
  return LayoutLabels(width, height, kind, Labels(axis), TextWidth);
}

TEST(LabelLayout, TimeAxisStandsBelowTheTimeGraphs) {
  const LabelLayout layout = Layout(GraphKind::ViscoTime);
  for (int i = 1; i <= 5; ++i) EXPECT_TRUE(layout.Label7[static_cast<std::size_t>(i)].visible) << i;
  EXPECT_TRUE(layout.Label5[0].visible);
  EXPECT_TRUE(layout.Label6[5].visible);
  EXPECT_GT(layout.Label7[1].box.top, 11 * 7000 / 13.5);
}

TEST(LabelLayout, TemperatureStandsOnTheRightOfTheGraphWithBothCurvesAlone) {
  EXPECT_FALSE(Layout(GraphKind::ViscoTime).Label9[5].visible);
  EXPECT_FALSE(Layout(GraphKind::ViscoTime).Label5[4].visible);
  const LabelLayout layout = Layout(GraphKind::ViscoTempTime);
  EXPECT_TRUE(layout.Label9[5].visible);
  EXPECT_TRUE(layout.Label6[2].visible);
  EXPECT_GT(layout.Label9[5].box.left, 7 * 1000);
}

TEST(LabelLayout, TemperatureStandsBelowAndTimeIsHiddenInTheGraphWithoutTime) {
  const LabelLayout layout = Layout(GraphKind::ViscoTemp);
  EXPECT_FALSE(layout.Label7[3].visible);
  EXPECT_FALSE(layout.Label5[0].visible);
  EXPECT_FALSE(layout.Label6[0].visible);
  EXPECT_FALSE(layout.Label6[5].visible);
  EXPECT_TRUE(layout.Label9[5].visible);
  EXPECT_GT(layout.Label9[5].box.top, 11 * 7000 / 13.5);
  EXPECT_TRUE(layout.Label6[2].visible);
}

TEST(LabelLayout, ALabelStandsBesideItsGridLine) {
  const LabelLayout layout = Layout(GraphKind::ViscoTime);
  const double unit_y = 7000 / 13.5;
  const Box& box = layout.Label8[3].box;  // three tenths up
  EXPECT_NEAR(box.top + box.height / 2, (11 - 3) * unit_y, 1);
  EXPECT_LT(box.left + box.width, 0.9 * 1000);
}

TEST(LabelLayout, NothingOverlapsOrLeavesTheAreaInAnyKindAxisAndSize) {
  for (const double width : {5000.0, 7000.0, 12000.0, 50000.0}) {
    for (const double height : {5200.0, 8000.0, 30000.0}) {
      for (const auto kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
        for (int decades = 0; decades <= 7; ++decades) {
          Captions labels =
              decades == 0 ? Labels(ViscoAxis::Linear) : Labels(ViscoAxis::Log, -1, decades - 1);
          for (std::size_t run = 1; decades % 2 == 1 && run <= 10; ++run)
            labels.Label10[run] = "Suspension of resin no. 1\r1128.0";
          const auto visible = Visible(LayoutLabels(width, height, kind, labels, TextWidth));
          for (std::size_t i = 0; i < visible.size(); ++i) {
            const Box& one = visible[i].label.box;
            EXPECT_GE(one.left, -1) << visible[i].name;
            EXPECT_LE(one.left + one.width, width + 1) << visible[i].name;
            for (std::size_t j = i + 1; j < visible.size(); ++j) {
              const Box& other = visible[j].label.box;
              // Boxes have room above and below their letters; a fifth of a line of it may be shared.
              const double air = 0.2 * std::min(one.height, other.height);
              const bool apart =
                  one.left + one.width <= other.left + 1 || other.left + other.width <= one.left + 1 ||
                  one.top + one.height <= other.top + air || other.top + other.height <= one.top + air;
              EXPECT_TRUE(apart) << visible[i].name << " and " << visible[j].name << " at " << width << " x "
                                 << height << ", " << decades << " decades";
            }
          }
        }
      }
    }
  }
}

TEST(LabelLayout, NoTextIsCutFromTheSmallestUsualWindowOn) {
  const Captions labels = Labels(ViscoAxis::Log, 2, 5);
  for (const double width : {5430.0, 9000.0, 40000.0}) {
    for (const double height : {6330.0, 9000.0, 30000.0}) {
      const LabelLayout layout = LayoutLabels(width, height, GraphKind::ViscoTempTime, labels, TextWidth);
      EXPECT_LE(TextWidth("100000", layout.text_height), layout.Label5[3].box.width + 1);
      EXPECT_LE(TextWidth("2026/11/21 09:30:00", layout.text_height), layout.Label6[3].box.width + 1);
      EXPECT_LE(TextWidth("1128.0", layout.Label10[10].text_height), layout.Label10[10].box.width + 1);
      EXPECT_LE(layout.Label6[6].box.top + layout.Label6[6].box.height, height + 1);
      EXPECT_GE(layout.text_height, 7 * 15);
    }
  }
}

TEST(LabelLayout, ASizeOfNothingLeavesReadableLettersInPlaces) {
  for (const double size : {0.0, 1.0, -5.0}) {
    const LabelLayout layout =
        LayoutLabels(size, size, GraphKind::ViscoTempTime, Labels(ViscoAxis::Log), TextWidth);
    EXPECT_GE(layout.text_height, 7 * 15) << size;
    EXPECT_GE(layout.Label10[1].text_height, 7 * 15) << size;
    for (const Placed& placed : Visible(layout)) {
      const Box& box = placed.label.box;
      for (const double value : {box.left, box.top, box.width, box.height})
        EXPECT_TRUE(std::isfinite(value)) << placed.name << " at " << size;
    }
  }
}

TEST(LabelLayout, WhatALowGraphHasNoRoomForIsAwayInsteadOfCut) {
  for (double height = 2500; height < 9000; height += 250) {
    const LabelLayout layout =
        LayoutLabels(9000, height, GraphKind::ViscoTime, Labels(ViscoAxis::Linear), TextWidth);
    for (const Placed& placed : Visible(layout))
      EXPECT_LE(placed.label.box.top + placed.label.box.height, height + 0.2 * layout.text_height + 1)
          << placed.name << " at " << height;
    EXPECT_EQ(layout.Label10[1].visible, layout.Label10[2].visible);
  }
  const LabelLayout low =
      LayoutLabels(9000, 3000, GraphKind::ViscoTime, Labels(ViscoAxis::Linear), TextWidth);
  EXPECT_FALSE(low.Label10[1].visible);
  EXPECT_TRUE(low.Label7[1].visible);
}

TEST(LabelLayout, TheDateStaysAboveThePlotOrIsAway) {
  for (double height = 1500; height < 9000; height += 60) {
    const LabelLayout layout =
        LayoutLabels(9000, height, GraphKind::ViscoTime, Labels(ViscoAxis::Linear), TextWidth);
    const PlacedLabel& date = layout.Label6[3];
    const double plot_top = height / 13.5;
    EXPECT_EQ(date.visible, height > 2906) << height;
    if (date.visible) {
      EXPECT_LE(date.box.top + date.box.height, plot_top + 0.2 * layout.text_height) << height;
    }
  }
}

TEST(LabelLayout, LettersGrowWithTheAreaUpToWhatIsSaid) {
  const auto letters = [](double size, double largest) {
    return LayoutLabels(1.5 * size, size, GraphKind::ViscoTime, Labels(ViscoAxis::Linear), TextWidth, largest)
        .text_height;
  };
  EXPECT_EQ(letters(6000, 16 * 15), letters(6000, kLargestText));
  EXPECT_EQ(letters(15000, 16 * 15), 16 * 15);
  EXPECT_GT(letters(15000, kLargestText), 16 * 15);
  EXPECT_GE(letters(15000, 0), 7 * 15);  // legible, whatever is said
}

TEST(LabelLayout, ASingleLongValueTakesTheFreePlacesBesideIt) {
  Captions captions = Labels(ViscoAxis::Linear);
  for (std::size_t run = 2; run <= 10; ++run) captions.Label10[run].clear();
  captions.Label10[1] = "No.1\r1360000000.125";
  const LabelLayout layout = LayoutLabels(9000, 8000, GraphKind::ViscoTime, captions, TextWidth);
  EXPECT_THAT(layout.Label10[1].lines, testing::ElementsAre("No.1", "1360000000.125"));
  EXPECT_EQ(layout.Label10[1].text_height, layout.text_height);
  EXPECT_FALSE(layout.Label10[2].visible);
}

TEST(LabelLayout, ATitleTakesTheRoomThatFileNameAndDateLeaveIt) {
  Captions captions = Labels(ViscoAxis::Linear);
  captions.Label6[1] = "Viscosity (mPa.s)";
  captions.Label6[2] = "Temperature (C)";
  for (const double width : {7000.0, 9000.0, 12000.0}) {
    const LabelLayout layout = LayoutLabels(width, 5200, GraphKind::ViscoTempTime, captions, TextWidth);
    EXPECT_THAT(layout.Label6[1].lines, testing::ElementsAre("Viscosity (mPa.s)")) << width;
    EXPECT_THAT(layout.Label6[2].lines, testing::ElementsAre("Temperature (C)")) << width;
    EXPECT_TRUE(layout.Label6[1].whole);
  }
  captions.Label6[1] = "Apparent viscosity of the resin with hardener (mPa.s)";
  captions.Label6[4] = std::string(60, 'm') + ".csv";
  const LabelLayout layout = LayoutLabels(9000, 7000, GraphKind::ViscoTempTime, captions, TextWidth);
  EXPECT_FALSE(layout.Label6[1].whole);
  EXPECT_TRUE(layout.Label6[1].lines.front().ends_with("…"));
  EXPECT_TRUE(layout.Label6[3].whole) << "the date has its room in any case";
}

// Letters of whole pixels, rounded as a picture does.
double WholePixels(std::string_view text, double height) {
  return TextWidth(text, 15 * std::round(height / 15));
}

TEST(LabelLayout, NumbersAreShownWholeOrNotAtAll) {
  Captions captions = Labels(ViscoAxis::Linear);
  for (std::string& end : captions.Label5) end = "1360000000";
  for (TickLabel& tick : captions.Label8) tick.text = "1234567.8";
  for (TickLabel& tick : captions.Label9) tick.text = "-12345.678";
  for (std::size_t run = 1; run <= 10; ++run) captions.Label10[run] = "No.1\r1360000000";
  for (const auto kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
    for (double width = 2000; width < 30000; width += 250) {
      const LabelLayout layout = LayoutLabels(width, 9000, kind, captions, WholePixels);
      for (const Placed& placed : Visible(layout)) {
        const std::string& text = placed.label.lines.back();
        const bool number = text.find_first_of("0123456789") != text.npos;
        const bool titles = placed.name.starts_with("Label6.");
        EXPECT_TRUE(titles || !number || text.find("…") == text.npos) << placed.name << ' ' << text;
        EXPECT_TRUE(width < 8000 || placed.label.whole) << placed.name << ' ' << text << " at " << width;
        EXPECT_LE(WholePixels(text, placed.label.text_height), placed.label.box.width + 1)
            << placed.name << ' ' << text << " at " << width;
      }
    }
  }
}

LabelLayout WithNames(const std::function<std::string(int)>& name, int runs = 10) {
  Captions captions = Labels(ViscoAxis::Linear);
  for (std::size_t run = 1; run <= 10; ++run) captions.Label10[run].clear();
  for (int run = 1; run <= runs; ++run)
    captions.Label10[static_cast<std::size_t>(run)] = name(run) + "\r1128.0";
  return LayoutLabels(11000, 9000, GraphKind::ViscoTime, captions, TextWidth);
}

TEST(LabelLayout, LongNamesTakeASecondRow) {
  const LabelLayout one = WithNames([](int run) { return "No." + std::to_string(run); });
  EXPECT_EQ(one.Label10[1].box.top, one.Label10[10].box.top);
  const LabelLayout two = WithNames([](int run) { return "batch no. " + std::to_string(run); });
  EXPECT_EQ(two.Label10[1].box.top, two.Label10[5].box.top);
  EXPECT_GT(two.Label10[6].box.top, two.Label10[1].box.top + two.Label10[1].box.height);
  EXPECT_EQ(two.Label10[6].box.left, two.Label10[1].box.left);
  for (std::size_t run = 1; run <= 10; ++run) EXPECT_TRUE(two.Label10[run].whole) << run;
  EXPECT_LT(two.text_height, one.text_height) << "the letters make the room";
  EXPECT_LE(two.Label10[10].box.top + two.Label10[10].box.height, two.Label6[6].box.top + 1);
  EXPECT_LE(two.Label6[6].box.top + two.Label6[6].box.height, 9000);
}

TEST(LabelLayout, AFewLongNamesStandInOneRow) {
  const LabelLayout layout = WithNames([](int run) { return "Suspension no. " + std::to_string(run); }, 3);
  EXPECT_EQ(layout.Label10[1].box.top, layout.Label10[3].box.top);
  EXPECT_EQ(layout.Label10[3].lines.front(), "Suspension no. 3");
}

TEST(LabelLayout, NamesThatAreCutStillDiffer) {
  for (const char* end : {"", " of quartz in glycerol, slow and without the lid"}) {
    const LabelLayout layout =
        WithNames([&](int run) { return "Suspension of resin, vessel no. " + std::to_string(run) + end; });
    std::set<std::string> shown;
    for (std::size_t run = 1; run <= 10; ++run) {
      EXPECT_FALSE(layout.Label10[run].whole);
      shown.insert(layout.Label10[run].lines.front());
    }
    EXPECT_EQ(shown.size(), 10U) << testing::PrintToString(shown);
  }
}

}  // namespace
}  // namespace quenlor::graph
