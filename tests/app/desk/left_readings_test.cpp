// SPDX-License-Identifier: MIT
#include "app/desk/left_readings.h"

#include <gtest/gtest.h>

#include "tests/app/desk/desk_bench.h"

namespace quenlor::app {
namespace {

class LeftReadingsTest : public testing::Test, protected DeskBench {
 protected:
  std::string Told() {
    const auto left = LeftReadings(files, "/lab").Find();
    return left ? left->text : std::string();
  }
};

TEST_F(LeftReadingsTest, NothingIsToldWhereNothingIs) {
  EXPECT_EQ(Told(), "");
  commands.New();
  Measure({});
  EXPECT_EQ(Told(), "") << "a log of titles alone";
}

TEST_F(LeftReadingsTest, ReadingsThatNobodySavedAreTold) {
  commands.New();
  Measure({"1", "2", "3"});
  EXPECT_EQ(Told(), "Com_1.txt holds 3 readings that were never saved");
  dialogs.Path("/lab/a.csv");
  commands.Save();
  EXPECT_EQ(Told(), "");
}

TEST_F(LeftReadingsTest, OnceLookedAtTheyDoNotComeBack) {
  commands.New();
  Measure({"1"});
  LeftReadings left(files, "/lab");
  left.Seen("/lab/Com_1.txt");
  EXPECT_EQ(Told(), "");
  Measure({"2"});
  EXPECT_EQ(Told(), "Com_1.txt holds 2 readings that were never saved") << "it is another log now";
}

TEST_F(LeftReadingsTest, OpeningThemIsLooking) {
  files.Put("/lab/Com_2.txt", "No.,Time\r\n1,0\r\n");
  commands.ReadDataFile("/lab/Com_2.txt");
  EXPECT_EQ(Told(), "");
}

TEST_F(LeftReadingsTest, TheLatestOfSeveralIsOffered) {
  files.Put("/lab/Com_1_20261120-093000.txt", "No.,Time\r\n1,0\r\n");
  files.Put("/lab/Com_2.txt", "No.,Time\r\n1,0\r\n1,1\r\n");
  files.Put("/lab/Command_V.txt", "QM\r\n");
  files.Put("/lab/Com_x.txt", "QM\r\n");
  files.SetModifiedAt("/lab/Com_1_20261120-093000.txt", 100);
  files.SetModifiedAt("/lab/Com_2.txt", 200);
  EXPECT_EQ(Told(), "Com_2.txt holds 2 readings that were never saved, and so do 1 other log");
  EXPECT_EQ(LeftReadings(files, "/lab").Find()->path, "/lab/Com_2.txt");
}

TEST_F(LeftReadingsTest, AFolderThatCannotBeWrittenIsNoTrouble) {
  files.Put("/lab/Com_2.txt", "No.,Time\r\n1,0\r\n");
  files.Refuse("/lab", "Read-only file system");
  LeftReadings left(files, "/lab");
  left.Seen("/lab/Com_2.txt");
  EXPECT_NE(Told(), "");
}

}  // namespace
}  // namespace quenlor::app
