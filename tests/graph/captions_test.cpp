// SPDX-License-Identifier: MIT
#include "graph/captions.h"

#include <gtest/gtest.h>

#include "tests/graph/opened_file.h"

namespace quenlor::graph {
namespace {

constexpr const char* kFile =
    "No.,Time,Viscosity,Unit1,Temp,Unit2\n"
    "1,00:00:00,50,mPa.s,25.0,C\n"
    "1,00:01:00,55,mPa.s,25.5,C\n"
    "2,00:00:00,70,mPa.s,26.0,C\n"
    "Info,Sample No.,Sample Name,Analysis Time,Date,Time\n"
    "Info,No.1,oil,,,\n"
    "Info,No.2,glycerol,,,\n"
    "Date,2026/11/21 09:30:00\n"
    "Memo,first batch\n";

TEST(Captions, HeaderTextsStandAtTheirIndices) {
  const OpenedFile file(kFile, "oil.csv");
  const Captions captions = CaptionsOf(file.document, file.graph);
  EXPECT_EQ(captions.Label6[0], "Time");
  EXPECT_EQ(captions.Label6[1], "Viscosity");
  EXPECT_EQ(captions.Label6[2], "Temp");
  EXPECT_EQ(captions.Label6[3], "2026/11/21 09:30:00");
  EXPECT_EQ(captions.Label6[4], "oil.csv");
  EXPECT_EQ(captions.Label6[5], captions.TimeUnitText);
  EXPECT_EQ(captions.Label6[6], "first batch");
}

TEST(Captions, TheLegendHasAHeadingAndEveryRunWithReadings) {
  const OpenedFile file(kFile, "oil.csv");
  const Captions captions = CaptionsOf(file.document, file.graph);
  EXPECT_EQ(captions.Label10[0], "Final\rValue");
  EXPECT_EQ(captions.Label10[1], "oil\r55");
  EXPECT_EQ(captions.Label10[2], "glycerol\r70");
  EXPECT_EQ(captions.Label10[3], "");
}

TEST(Captions, WithoutReadingsThereIsNoLegend) {
  const OpenedFile file("No.,Time,Viscosity,Unit1,Temp,Unit2\n", "empty.csv");
  for (const std::string& text : CaptionsOf(file.document, file.graph).Label10) EXPECT_EQ(text, "");
}

TEST(Captions, WithoutARunFromOneToTenTheLegendHasNoHeading) {
  const std::string titles = "No.,Time,Viscosity,Unit1,Temp,Unit2\n";
  for (const char* rows : {"11,0,50,,25\n12,0,60,,25\n", "x,0,50,,25\n"}) {
    const OpenedFile file(titles + rows, "late.csv");
    EXPECT_GT(file.graph.Values().Size(), 0);
    for (const std::string& text : CaptionsOf(file.document, file.graph).Label10) EXPECT_EQ(text, "") << rows;
  }
  const OpenedFile both(titles + "10,0,50,,25\n11,0,60,,25\n", "both.csv");
  EXPECT_EQ(CaptionsOf(both.document, both.graph).Label10[0], "Final\rValue");
}

TEST(Captions, NumbersAreThoseOfTheAxes) {
  const OpenedFile file(kFile, "oil.csv");
  const Captions captions = CaptionsOf(file.document, file.graph);
  const AxisLabels labels = file.graph.Labels();
  EXPECT_EQ(captions.Label5, labels.Label5);
  for (std::size_t i = 1; i <= 9; ++i) {
    EXPECT_EQ(captions.Label8[i].text, labels.Label8[i].text);
    EXPECT_EQ(captions.Label9[i].text, labels.Label9[i].text);
  }
}

}  // namespace
}  // namespace quenlor::graph
