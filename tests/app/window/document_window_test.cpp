// SPDX-License-Identifier: MIT
//
// Documents in the main window: New, Open, Save, dropped files, and the end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::HasSubstr;

using DocumentWindowTest = WindowTest;

TEST_F(DocumentWindowTest, SaveWritesTheDocumentAndTakesItsName) {
  Open();
  Start();
  Reading("1.0 mPa.s,25.1 C");
  dialogs.Path("/data/run.csv");
  Choose("mSave");
  EXPECT_THAT(dialogs.Names(), ElementsAre("New.csv"));
  EXPECT_EQ(
      files.Content("/data/run.csv"),
      "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00:00:00,1.0,mPa.s,25.1,C\r\n"
      "Info,Sample No.,Sample Name,Analysis Time,Date,Time\r\nInfo,No.1,No.1,00:00:00,2026/11/21,09:30:00\r\n"
      "Axis,2,4,0,180,-2,8,20,30,0,2,1,0,2,0\r\nDate,2026/11/21 09:30:00\r\nMemo,Remarks:,,,,,,,,,,\r\n");
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "run.csv");
  EXPECT_FALSE(window->Document().DataChanged());
}

TEST_F(DocumentWindowTest, FailedSaveLeavesTheOldFileAndTheDataUnsaved) {
  Open();
  Start();
  Reading("1");
  files.Put("/data/run.csv", "old");
  files.Refuse("/data", "No space left on device", platform::FailureKind::kFull);
  dialogs.Path("/data/run.csv");
  Choose("mSave");
  EXPECT_EQ(files.Content("/data/run.csv"), "old");
  EXPECT_TRUE(window->Document().DataChanged());
  EXPECT_THAT(Find<QLabel>("Status")->text().toStdString(), HasSubstr("No space left on device"));
}

TEST_F(DocumentWindowTest, CancelledSaveChangesNothing) {
  Open();
  Start();
  Reading("1");
  dialogs.Cancel();
  Choose("mSave");
  EXPECT_TRUE(window->Document().DataChanged());
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
}

TEST_F(DocumentWindowTest, OpenStopsTheMeasurementAsksAndReads) {
  Open();
  Start();
  Reading("1");
  files.Put("/data/old.csv", "No.;Time;Data1\r\n3;00.0;7,5\r\nDate;2002/03/20 12:00:00\r\n");
  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/old.csv");
  Choose("mOpen");
  EXPECT_FALSE(Running());
  EXPECT_EQ(dialogs.Boxes()[0].text, "Will you clear this data?");
  EXPECT_EQ(dialogs.Boxes()[0].buttons, platform::Buttons::kYesNo);
  EXPECT_EQ(dialogs.Boxes()[0].default_answer, Answer::kNo);
  EXPECT_EQ(dialogs.Filters()[0], "CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*");
  EXPECT_EQ(Readings(), "3|00.0|7,5\n");
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "old.csv");
  EXPECT_EQ(Find<QLabel>("Label6[3]")->text(), "2002/03/20 12:00:00");
  EXPECT_EQ(window->Document().RunCount(), 3);
  EXPECT_EQ(window->Document().FieldSeparator(), ';');
}

TEST_F(DocumentWindowTest, NoKeepsEverythingWhenOpenAsks) {
  Open();
  Start();
  Reading("1");
  dialogs.Answer(Answer::kNo);
  Choose("mOpen");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
  EXPECT_TRUE(window->Document().DataChanged());
}

TEST_F(DocumentWindowTest, AFileThatCannotBeReadLeavesTheOpenDocument) {
  Open();
  Start();
  Reading("1");
  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/missing.csv");
  Choose("mOpen");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
  EXPECT_TRUE(window->Document().DataChanged());
}

TEST_F(DocumentWindowTest, AxisLineSetsTheMenus) {
  Open();
  Tick("Check2");
  files.Put("/data/a.csv", "No.,Time,A,B\r\nAxis,3,2,0,600,0,50,20,30,-1,3,0,1,1,4\r\n");
  dialogs.Path("/data/a.csv");
  Choose("mOpen");
  for (const char* item : {"TimeS[0]", "mLog[1]", "LW[1]", "MK[4]"}) {
    EXPECT_TRUE(Find<QAction>(item)->isChecked()) << item;
  }
  EXPECT_EQ(window->Document().ViscoColumn(), 3);
  EXPECT_EQ(window->Document().TempColumn(), 2);
  EXPECT_EQ(window->Document().Ranges().TimeMax, 600);
}

TEST_F(DocumentWindowTest, NewClearsTheDocumentTheReceivedDataAndKeepsAnOwnTemplate) {
  Open();
  Start();
  Reading("1");
  PutFile("New.txt", "No.;Time;Eta\r\n");
  dialogs.Answer(Answer::kYes);
  Choose("mNew");
  EXPECT_EQ(Readings(), "");
  EXPECT_EQ(window->Document().Grid1().TextMatrix(0, 2), "Eta");
  EXPECT_EQ(window->Document().FieldSeparator(), ';') << "the template's, until the menu says otherwise";
  EXPECT_EQ(Find<QLineEdit>("Text3")->text(), "");
  EXPECT_EQ(Find<QLineEdit>("Text3")->toolTip(), "");
  EXPECT_EQ(File("New.txt"), "No.;Time;Eta\r\n");
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
}

TEST_F(DocumentWindowTest, DeletedTemplateIsWrittenAnewByTheNextNew) {
  Open();
  Choose("mVisco");
  files.Remove(std::string(kFolder) + "/New.txt");
  Choose("mNew");
  EXPECT_EQ(File("New.txt"), "No.,Time,Data 1,Data 2,Data 3,Data 4\r\n");
}

TEST_F(DocumentWindowTest, OpenLeavesTheReceivedDataAlone) {
  Open();
  Start();
  Reading("12.3");
  ShowRows(2);
  files.Put("/data/a.csv", "No.,Time,A\r\n");
  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/a.csv");
  Choose("mOpen");
  EXPECT_EQ(Find<QLineEdit>("Text3")->text(), "12.3");
}

TEST_F(DocumentWindowTest, TogglingViscoNeverRewritesATemplate) {
  Open();
  Choose("mVisco");
  Choose("mNew");
  EXPECT_EQ(File("New.txt"), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
}

TEST_F(DocumentWindowTest, DroppedFilesAreTakenByTheirEndingAlone) {
  Open();
  for (const char* name : {"/d/data.txt", "/d/data.TXT", "/d/data.Csv", "/d/csv"}) {
    files.Put(name, "No.,Time,A\r\n1,0,1\r\n");
    Drop(name);
    EXPECT_EQ(Readings(), "") << name;
  }
  files.Put("/d/data.CSV", "No.,Time,A\r\n1,0,5\r\n");
  Drop("/d/data.CSV");
  EXPECT_EQ(Readings(), "1|0|5\n");
  files.Put("/d/data.csv", "No.,Time,A\r\n1,0,6\r\n");
  Drop("/d/data.csv");
  EXPECT_EQ(Readings(), "1|0|6\n");
}

TEST_F(DocumentWindowTest, CsvWithATrailingBlankEndingNeverMatchesText) {
  Open();
  files.Put("/d/data.txt ", "No.,Time,A\r\n1,0,1\r\n");
  Drop("/d/data.txt ");
  EXPECT_EQ(Readings(), "") << "four characters never equal five";
}

TEST_F(DocumentWindowTest, ADroppedFileIsThatOfExactlyItsName) {
  Open();
  files.Put("/d/\xF6l.csv", "No.,Time,A\r\n1,0,7\r\n");
  EXPECT_TRUE(Drop(QUrl::fromEncoded("file:///d/%F6l.csv")));
  EXPECT_EQ(Readings(), "1|0|7\n");
  EXPECT_EQ(window->DocumentFolder(), "/d");
}

TEST_F(DocumentWindowTest, ADropStopsTheMeasurementAndAsks) {
  Open();
  Start();
  Reading("1");
  files.Put("/d/x.csv", "No.,Time,A\r\n");
  dialogs.Answer(Answer::kNo);
  Drop("/d/x.csv");
  EXPECT_FALSE(Running());
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
}

TEST_F(DocumentWindowTest, EndingWithUnsavedDataStopsTheInstrumentThenAsks) {
  Open();
  Start();
  Reading("1");
  MSComm1.TakeSent();
  dialogs.Answer(Answer::kCancel, [this] {
    EXPECT_FALSE(Running());
    EXPECT_EQ(MSComm1.TakeSent(), "STOP\r\n");
  });
  window->close();
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(loop.waits.empty()) << "no wait at the end of the program";
  EXPECT_EQ(dialogs.Boxes()[0].text, "Will you save this data?");
  EXPECT_EQ(dialogs.Boxes()[0].buttons, platform::Buttons::kYesNoCancel);
  EXPECT_EQ(dialogs.Boxes()[0].icon, platform::Icon::kExclamation);
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");

  dialogs.Answer(Answer::kYes);
  dialogs.Cancel();  // the save box
  Choose("mEnd");
  EXPECT_TRUE(window->isVisible()) << "still unsaved";

  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/run.csv");
  Choose("mEnd");
  EXPECT_FALSE(window->isVisible());
  EXPECT_THAT(files.Content("/data/run.csv"), HasSubstr("1,00:00:00,1"));
}

TEST_F(DocumentWindowTest, EndingWithoutDataOrWithNoIsSilent) {
  Open();
  Start();
  Reading("1");
  dialogs.Answer(Answer::kNo);
  window->close();
  EXPECT_FALSE(window->isVisible());
  Open();
  window->close();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace quenlor::app
