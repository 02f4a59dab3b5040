// SPDX-License-Identifier: MIT
#include "app/desk/document_commands.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/desk/desk_bench.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

struct DocumentCommandsTest : testing::Test, protected DeskBench {
  void TearDown() override {
    EXPECT_TRUE(dialogs.AsScripted()) << testing::PrintToString(dialogs.Unexpected());
    EXPECT_EQ(busy, 0) << "the waiting pointer was taken away as often as it was shown";
  }

  data::Document& Document() { return session.Document(); }
};

TEST_F(DocumentCommandsTest, NewReadsTheTemplateAndScalesAllAxes) {
  session.Graph().SetAutoScaling(graph::Axis::Temp, false);
  commands.New();
  EXPECT_EQ(Document().FileName(), "New.csv");
  EXPECT_EQ(Document().Grid1().Cols(), 6);
  EXPECT_TRUE(session.Graph().Scaling().Check4);
  EXPECT_EQ(files.Content("/lab/New.txt"), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
  EXPECT_EQ(choices_shown, 1);
  EXPECT_EQ(received_data_cleared, 1);
}

// So long that reading it, dividing it and copying it for the graph tell how far they have come.
std::string LongFile() {
  std::string text = "No.,Time,Viscosity,Temp\r\n";
  for (int i = 0; i < 200'000; ++i) text += "1,00:00:00,12345.678901234567890,25.0123456789\r\n";
  return text;
}

TEST_F(DocumentCommandsTest, HowFarAnOpeningHasComeOnlyGrows) {
  files.Put("/data/long.csv", LongFile());
  commands.ReadDataFile("/data/long.csv");
  EXPECT_EQ(said.back(), "Opened long.csv: 1 run, 200,000 readings");
  EXPECT_TRUE(std::ranges::is_sorted(parts)) << testing::PrintToString(parts);
  EXPECT_GT(parts.size(), 4U);
  EXPECT_LT(parts.front(), 0.3);
  EXPECT_GT(parts.back(), 0.9);
  EXPECT_LE(parts.back(), 1);
}

TEST_F(DocumentCommandsTest, AnOpeningThatIsLeftLeavesTheDocumentAsItWas) {
  files.Put("/data/a.csv", "No.,Time,Viscosity\r\n1,0,5\r\n");
  files.Put("/data/long.csv", LongFile());
  commands.ReadDataFile("/data/a.csv");
  for (const double part : {0.1, 0.4}) {
    leaves_at = part;
    commands.ReadDataFile("/data/long.csv");
    EXPECT_THAT(said.back(), EndsWith(" /data/long.csv was left"));
    EXPECT_EQ(Document().FileName(), "a.csv");
    EXPECT_EQ(Document().Grid1().TextMatrix(1, 2), "5");
  }
  EXPECT_THAT(commands.Recent(), ElementsAre("/data/a.csv"));
}

TEST_F(DocumentCommandsTest, AppendAddsTheRunsOfAFileAsUnsavedReadings) {
  files.Put("/data/monday.csv", "No.,Time,Viscosity\r\n1,0,5\r\n");
  files.Put("/data/tuesday.csv", "No.,Time,Viscosity\r\n1,0,6\r\n2,0,7\r\n");
  commands.ReadDataFile("/data/monday.csv");
  dialogs.Path("/data/tuesday.csv");
  commands.Append();
  EXPECT_EQ(said.back(), "Appended tuesday.csv: 2 runs, 2 readings");
  EXPECT_EQ(Document().RunCount(), 3);
  EXPECT_EQ(Document().FileName(), "monday.csv") << "it is the same document";
  EXPECT_EQ(Document().UnsavedReadings(), 2);
  EXPECT_THAT(commands.Recent(), ElementsAre("/data/tuesday.csv", "/data/monday.csv"));
}

TEST_F(DocumentCommandsTest, AppendStopsAMeasurementAndKeepsItsReadings) {
  files.Put("/data/a.csv", "No.,Time,Viscosity\r\n1,0,5\r\n");
  commands.New();
  session.List().Set(data::setting::kVisco, 0);
  measurement.Start();
  MSComm1.Feed("1,2,3,4\r");
  dialogs.Path("/data/a.csv");
  commands.Append();
  EXPECT_FALSE(measurement.Running());
  EXPECT_EQ(Document().RunCount(), 2);
  EXPECT_EQ(Document().Grid1().TextMatrix(1, 2), "1");
  EXPECT_EQ(Document().Grid1().TextMatrix(2, 2), "5");
}

TEST_F(DocumentCommandsTest, AppendThatIsCancelledOrFailsChangesNothing) {
  files.Put("/data/full.csv", "No.,Time,Viscosity\r\n32767,0,5\r\n");
  files.Put("/data/more.csv", "No.,Time,Viscosity\r\n1,0,5\r\n");
  commands.ReadDataFile("/data/full.csv");
  dialogs.Cancel();
  commands.Append();
  dialogs.Path("/data/missing.csv");
  commands.Append();
  EXPECT_THAT(said.back(), HasSubstr("/data/missing.csv"));
  dialogs.Path("/data/more.csv");
  commands.Append();
  EXPECT_EQ(said.back(), "/data/more.csv has more runs than there are numbers left");
  EXPECT_FALSE(Document().DataChanged());
  EXPECT_EQ(Document().Grid1().EntryRow(), 2);
  EXPECT_THAT(commands.Recent(), ElementsAre("/data/full.csv"));
}

TEST_F(DocumentCommandsTest, NewNeedsNoTemplate) {
  files.Refuse("/lab", "Permission denied");
  commands.New();
  EXPECT_EQ(Document().Grid1().Cols(), 6);
}

TEST_F(DocumentCommandsTest, UnsavedReadingsAreAskedForOnceAndKeptOnNo) {
  commands.New();
  Measure({"1,2,3,4"});
  for (const auto& command : {std::function<void()>([this] { commands.New(); }),
                              {[this] { commands.Open(); }},
                              {[this] { commands.Drop("/data/a.csv"); }}}) {
    dialogs.Answer(Answer::kNo);
    command();
    EXPECT_EQ(dialogs.Boxes().back().text, "Will you clear this data?");
    EXPECT_EQ(Document().Grid1().Rows(), 3);
  }
}

TEST_F(DocumentCommandsTest, OpenReadsTheFileThatIsChosen) {
  files.Put("/data/a.csv", "No.,Time,x\r\n1,0,5\r\n");
  dialogs.Path("/data/a.csv");
  commands.Open();
  EXPECT_EQ(Document().FileName(), "a.csv");
  EXPECT_EQ(Document().Grid1().TextMatrix(1, 2), "5");
  EXPECT_THAT(dialogs.Filters(), ElementsAre("CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*"));
}

TEST_F(DocumentCommandsTest, WhatCannotBeReadIsToldAndChangesNothing) {
  commands.New();
  dialogs.Path("/data/missing.csv");
  commands.Open();
  EXPECT_THAT(said, ElementsAre(HasSubstr("missing.csv")));
  EXPECT_EQ(Document().FileName(), "New.csv");
}

TEST_F(DocumentCommandsTest, ADropIsTakenByItsEndingAlone) {
  files.Put("/data/data.txt", "No.,Time\r\n1,0\r\n");
  files.Put("/data/data.CSV", "No.,Time\r\n1,0\r\n");
  commands.Drop("/data/data.txt");
  EXPECT_EQ(Document().Grid1().Rows(), 2);
  commands.Drop("/data/data.CSV");
  EXPECT_EQ(Document().Grid1().Rows(), 3);
}

TEST_F(DocumentCommandsTest, SaveWritesTheDocumentAndTakesItsName) {
  commands.New();
  Measure({"1,2,3,4"});
  dialogs.Path("/data/run.csv");
  commands.Save();
  EXPECT_FALSE(Document().DataChanged());
  EXPECT_EQ(Document().FileName(), "run.csv");
  EXPECT_THAT(dialogs.Names(), ElementsAre("New.csv"));
  EXPECT_THAT(files.Content("/data/run.csv"), HasSubstr("\r\n1,00:00:00,1,2,3,4\r\n"));
  EXPECT_EQ(said.back(), "Saved /data/run.csv");
}

TEST_F(DocumentCommandsTest, SaveProposesTheFolderThatTheDocumentCameFrom) {
  files.Put("/data/week 7/a.csv", "No.,Time\r\n1,0\r\n");
  commands.ReadDataFile("/data/week 7/a.csv");
  dialogs.Cancel();
  commands.Save();
  EXPECT_EQ(dialogs.Folders().back(), "/data/week 7");
  EXPECT_EQ(dialogs.Names().back(), "a.csv") << "the name stays bare";

  dialogs.Path("/data/other/b.csv");
  commands.Save();
  dialogs.Cancel();
  commands.Save();
  EXPECT_EQ(dialogs.Folders().back(), "/data/other");
}

TEST_F(DocumentCommandsTest, AFailedSaveLeavesTheReadingsUnsaved) {
  commands.New();
  Measure({"1,2,3,4"});
  files.Refuse("/data", "Permission denied");
  dialogs.Path("/data/run.csv");
  commands.Save();
  EXPECT_TRUE(Document().DataChanged());
  EXPECT_EQ(Document().FileName(), "New.csv");
  EXPECT_THAT(said.back(), HasSubstr("Permission denied"));
}

TEST_F(DocumentCommandsTest, TheProgramMayEndWithoutAQuestionWhenNothingIsUnsaved) {
  commands.New();
  EXPECT_TRUE(commands.ExitProgram());
  EXPECT_THAT(dialogs.Boxes(), IsEmpty());
}

TEST_F(DocumentCommandsTest, TheEndStopsTheMeasurementAndAsks) {
  commands.New();
  Measure({"1,2,3,4"});
  measurement.Start();
  dialogs.Answer(Answer::kCancel);
  EXPECT_FALSE(commands.ExitProgram());
  EXPECT_FALSE(measurement.Running());
  EXPECT_EQ(dialogs.Boxes().back().text, "Will you save this data?");

  dialogs.Answer(Answer::kYes);
  dialogs.Cancel();
  EXPECT_FALSE(commands.ExitProgram()) << "the save was cancelled";

  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/run.csv");
  EXPECT_TRUE(commands.ExitProgram());
}

TEST_F(DocumentCommandsTest, NoEndsWithoutSaving) {
  commands.New();
  Measure({"1,2,3,4"});
  dialogs.Answer(Answer::kNo);
  EXPECT_TRUE(commands.ExitProgram());
}

TEST_F(DocumentCommandsTest, CommasInFieldsAreToldOnceAndAtSave) {
  commands.New();
  Measure({"1,2,3,4"});
  Document().SetSampleName(1, "resin, 20 C");
  EXPECT_THAT(said.back(), HasSubstr("Decimal Point Comma would keep them apart"));
  dialogs.Path("/data/run.csv");
  commands.Save();
  EXPECT_THAT(said.back(), HasSubstr("Saved /data/run.csv; some fields hold \",\""));
  EXPECT_THAT(files.Content("/data/run.csv"), HasSubstr("Info,No.1,resin, 20 C,"))
      << "and nothing else changes";
}

TEST_F(DocumentCommandsTest, AnOwnTemplateKeepsItsSeparatorUntilTheMenuSaysOtherwise) {
  files.Put("/lab/New.txt", "No.;Time;Viscosity;Temp\r\n");
  commands.New();
  EXPECT_EQ(Document().FieldSeparator(), ';');
  session.List().Set(data::setting::kDP, 1);
  files.Put("/lab/New.txt", "No.,Time,Viscosity,Temp\r\n");
  commands.New();
  EXPECT_EQ(Document().FieldSeparator(), ';') << "the decimal comma keeps fields apart";
}

}  // namespace
}  // namespace quenlor::app
