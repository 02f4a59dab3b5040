// SPDX-License-Identifier: MIT
#include "app/main_window.h"

#include <QHeaderView>
#include <QMimeData>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/version.h"
#include "tests/app/window_bench.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
namespace setting = data::setting;

class MainWindowTest : public testing::Test, protected WindowBench {
 protected:
  void TearDown() override {
    window.reset();
    EXPECT_TRUE(dialogs.AsScripted()) << testing::PrintToString(dialogs.Unexpected());
  }

  void SelectRows(int first, int last) {
    auto* header = Find<GridView>("Grid1")->verticalHeader();
    const auto middle = [&](int section) {
      return QPoint(4, header->sectionViewportPosition(section) + header->sectionSize(section) / 2);
    };
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, middle(first));
    QTest::mouseMove(header->viewport(), middle(last));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, middle(last));
  }

  void ShowRows(int rows) {
    ASSERT_TRUE(WaitFor([&] { return Find<GridView>("Grid1")->model()->rowCount() == rows; }));
  }

  // A drag enters the window and lets the file fall; the answer is what the window said to the drag.
  bool DropFile(const QString& path) {
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    if (enter.isAccepted()) {
      QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(window.get(), &drop);
      QApplication::processEvents();
    }
    return enter.isAccepted();
  }
};

TEST(WindowCaption, RevisionStandsRightBehindTheMinorVersion) {
  EXPECT_EQ(WindowCaption({"1", "0", "2", ""}), "Quenlor Ver.1.02");
  EXPECT_EQ(WindowCaption({"1", "0", "2", " beta"}), "Quenlor Ver.1.02 beta");
}

TEST_F(MainWindowTest, FirstStartWritesSettingsCommandsAndTemplate) {
  Open();
  EXPECT_EQ(
      File("quenlor.ini"),
      "16\r\n6\r\n1\r\n2\r\n0\r\n0\r\n0\r\n0\r\n0\r\n5\r\n2\r\n1\r\n0\r\n1\r\n1\r\n0\r\n0\r\n0\r\n0\r\n");
  EXPECT_EQ(File("Command_V.txt"), "STOP\r\nSTART\r\nQ\r\nQM\r\n");
  EXPECT_EQ(File("New.txt"), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), "QM");
  EXPECT_EQ(window->windowTitle().toStdString(), WindowCaption(ThisVersion()));
}

TEST_F(MainWindowTest, DefaultsArePort1At2400BaudEvenParity7Bits1StopBitAndCrLf) {
  Open();
  for (const char* item :
       {"Port[1]", "BPS[2]", "Parity[0]", "Length[0]", "Bit[0]", "Term[0]", "TimeS[1]", "DP[0]"}) {
    EXPECT_TRUE(Find<QAction>(item)->isChecked()) << item;
  }
  EXPECT_EQ(Find<QAction>("BPS[2]")->text(), "2400");
}

TEST_F(MainWindowTest, DecimalPointDefaultsToCommaWhereTheSystemWritesOne) {
  system_writes_comma = true;
  Open();
  EXPECT_TRUE(Find<QAction>("DP[1]")->isChecked());
  EXPECT_EQ(Setting(setting::kDP), "1");
}

TEST_F(MainWindowTest, BeginsWithANewDocument) {
  Open();
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->rowCount(), 1) << "the entry row";
  for (const char* box : {"Check2", "Check3", "Check4"})
    EXPECT_TRUE(Find<QCheckBox>(box)->isChecked()) << box;
}

TEST_F(MainWindowTest, UnwritableFolderStillGivesAWorkingProgram) {
  files.Refuse(kFolder, "Read-only file system");
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), "QM");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
}

TEST_F(MainWindowTest, NoiseInItsFilesDoesNotKeepItFromStarting) {
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise.push_back(static_cast<char>(i * 37 + i / 7));
  for (const char* name : {"quenlor.ini", "Command_V.txt", "New.txt"}) PutFile(name, noise);
  Open();
  EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindowTest, EachMenuChoiceMovesTheCheckMarkAndIsSavedAtOnce) {
  Open();
  struct Choice {
    const char* item;
    int element;
    const char* saved;
  };
  for (const Choice& choice :
       {Choice{"Port[3]", setting::kPort, "3"}, Choice{"BPS[7]", setting::kBPS, "7"},
        Choice{"Parity[2]", setting::kParity, "2"}, Choice{"Length[1]", setting::kLength, "1"},
        Choice{"Bit[1]", setting::kBit, "1"}, Choice{"Term[1]", setting::kTerm, "1"},
        Choice{"TimeS[2]", setting::kTimeS, "2"}, Choice{"DP[1]", setting::kDP, "1"},
        Choice{"mNum", setting::kNum, "True"}, Choice{"mVisco", setting::kVisco, "False"}}) {
    Choose(choice.item);
    EXPECT_EQ(Setting(choice.element), choice.saved) << choice.item;
  }
  EXPECT_TRUE(Find<QAction>("BPS[7]")->isChecked());
  EXPECT_FALSE(Find<QAction>("BPS[2]")->isChecked());
}

TEST_F(MainWindowTest, APortAboveTheFirstFourWorksLikeThem) {
  Open();
  Choose("Port[12]");
  Start();
  EXPECT_EQ(MSComm1.CommPort(), 12);
  Line("1");
  EXPECT_NE(File("Com_12.txt"), "");
}

TEST_F(MainWindowTest, SettingWithoutAnItemFailsTheNextStart) {
  PutFile("quenlor.ini", "16\r\n6\r\n1\r\n99\r\n");
  Open();
  dialogs.Answer(Answer::kOk);
  Start();
  ASSERT_EQ(dialogs.Boxes().size(), 1u);
  EXPECT_EQ(dialogs.Boxes()[0].text, "Can not Open !\rPlease Check Setting of Com Port !");
  EXPECT_EQ(dialogs.Boxes()[0].icon, platform::Icon::kCritical);
  EXPECT_EQ(dialogs.Boxes()[0].title, "Quenlor");
  EXPECT_FALSE(Running());
}

TEST_F(MainWindowTest, FailedStartSaysWhichDeviceAndWhatWouldHelp) {
  Open();
  MSComm1.RefuseOpen({"/dev/ttyS0", "Permission denied", "sudo usermod -aG dialout you"});
  dialogs.Answer(Answer::kOk);
  Start();
  EXPECT_EQ(Find<QLabel>("Status")->text(), "/dev/ttyS0: Permission denied: sudo usermod -aG dialout you");
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
  EXPECT_FALSE(Find<QPushButton>("Command2")->isEnabled());
  EXPECT_TRUE(Find<QMenu>("mRS")->isEnabled());
}

TEST_F(MainWindowTest, ControlsFollowTheMeasurement) {
  Open();
  Start();
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Stop");
  EXPECT_TRUE(Find<QPushButton>("Command2")->isEnabled());
  EXPECT_FALSE(Find<QMenu>("mRS")->isEnabled());
  Click("Command1");
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
  EXPECT_FALSE(Find<QPushButton>("Command2")->isEnabled());
  EXPECT_TRUE(Find<QMenu>("mRS")->isEnabled());
}

TEST_F(MainWindowTest, StopWaitsTwoSecondsInWhichItsButtonAndTheMenusAreRefused) {
  Open();
  Start();
  Reading("1.0");
  bool looked = false;
  loop.during_wait = [&] {
    looked = true;
    EXPECT_TRUE(Running());
    EXPECT_FALSE(Find<QPushButton>("Command1")->isEnabled());
    EXPECT_FALSE(window->menuBar()->isEnabled());
    Find<QAction>("mNew")->trigger();
    EXPECT_FALSE(DropFile("/x.csv"));
    Line("2.0");
  };
  Click("Command1");
  EXPECT_TRUE(looked);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Readings(), "1|00:00:00|1.0|||\n1|00:00:01|2.0|||\n")
      << "the line of the wait counts, New was refused";
  EXPECT_TRUE(window->menuBar()->isEnabled());
}

TEST_F(MainWindowTest, ClosingDuringStopsWaitEndsTheProgramAfterIt) {
  Open();
  Start();
  loop.during_wait = [&] {
    window->close();
    EXPECT_TRUE(window->isVisible());
  };
  Click("Command1");
  EXPECT_TRUE(WaitFor([&] { return !window->isVisible(); }));
}

TEST_F(MainWindowTest, ReadingsReachTableReceivedDataAndDate) {
  Open();
  Start();
  Line("12.3, 25.0");
  EXPECT_EQ(Readings(), "1|00:00:00|12.3| 25.0||\n");
  ShowRows(2);
  EXPECT_EQ(Find<QLineEdit>("Text3")->text(), "12.3, 25.0");
  EXPECT_EQ(Find<QLineEdit>("Text3")->toolTip(), "12.3, 25.0");
  EXPECT_EQ(Find<QLabel>("Label6[3]")->text(), "2026/11/21 09:30:00");
  EXPECT_EQ(Find<GridView>("Grid4")->model()->headerData(0, Qt::Vertical).toString(), "No.1");
}

TEST_F(MainWindowTest, ReceivedMarkupIsShownAsItCame) {
  Open();
  Start();
  Line("\x06");
  ShowRows(2);
  EXPECT_EQ(Find<QLineEdit>("Text3")->toolTip(), "<AK>");
  Line("<b>1</b>");
  ShowRows(3);
  EXPECT_EQ(Find<QLineEdit>("Text3")->text(), "<b>1</b>");
  EXPECT_EQ(Find<QLineEdit>("Text3")->toolTip(), "<qt>&lt;b&gt;1&lt;/b&gt;</qt>");
}

TEST_F(MainWindowTest, ChoosingCommaShowsTheNextReadingWithCommaAndDividesFieldsBySemicolon) {
  Open();
  Choose("mNum");
  Choose("DP[1]");
  Start();
  Line("1.5");
  EXPECT_EQ(Readings(), "1|00:00:00|1,5|||\n");
  EXPECT_THAT(File("Com_1.txt"), HasSubstr("1;00:00:00;1,5"));
}

TEST_F(MainWindowTest, TogglingNumberChangesTheNextLineOnly) {
  Open();
  Start();
  Line("V= 1");
  Choose("mNum");
  Line("V= 2");
  EXPECT_EQ(Readings(), "1|00:00:00|V= 1|||\n1|00:00:00|2|||\n");
}

TEST_F(MainWindowTest, InitializeLeavesEverySettingAsItIs) {
  Open();
  const std::string before = File("quenlor.ini");
  Choose("mDefault");
  EXPECT_EQ(File("quenlor.ini"), before);
}

TEST_F(MainWindowTest, CommandButtonSendsWhatIsTyped) {
  Open();
  Start();
  MSComm1.TakeSent();
  auto* box = Find<QComboBox>("Combo1");
  box->lineEdit()->selectAll();
  QTest::keyClicks(box->lineEdit(), "stop 7");
  Click("Command2");
  EXPECT_EQ(MSComm1.TakeSent(), "stop 7\r\n");
}

TEST_F(MainWindowTest, CommandQMAfterAReadingStopsASilentMeasurement) {
  Open();
  Tick("Check1");  // no repeat requests
  Start();
  Line("1");
  Click("Command2");
  clock.Advance(4.9);
  EXPECT_TRUE(Running());
  clock.Advance(0.2);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
}

TEST_F(MainWindowTest, EmptyCommandFileSendsOnlyTheTerminatorAtStart) {
  PutFile("Command_V.txt", "");
  Open();
  Choose("mVisco");
  Start();
  EXPECT_EQ(Find<QComboBox>("Combo1")->count(), 0);
  EXPECT_EQ(MSComm1.TakeSent(), "\r\n");
}

TEST_F(MainWindowTest, BoxesOfRepeatAndAutoStopAreSavedAtOnceTheirNumbersWithTheNextSave) {
  Open();
  auto* seconds = Find<QLineEdit>("Text2");
  seconds->selectAll();
  QTest::keyClicks(seconds, "2,50");
  EXPECT_EQ(Setting(setting::kRepeatSeconds), "5");
  Tick("Check5");
  EXPECT_EQ(Setting(setting::kAutoStop), "1");
  EXPECT_EQ(Setting(setting::kRepeatSeconds), "2.5");
  Tick("Check1");
  EXPECT_EQ(Setting(setting::kRepeat), "0");
}

TEST_F(MainWindowTest, RowsOfAHeaderClickAreDeletedAfterTheQuestion) {
  Open();
  Start();
  for (const char* line : {"1", "2", "3", "4"}) Reading(line);
  ShowRows(5);
  SelectRows(2, 1);  // from the bottom up
  dialogs.Answer(Answer::kCancel);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(window->Document().Grid1().Rows(), 6);
  dialogs.Answer(Answer::kOk, [this] { Reading("5"); });
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n1|00:00:03|4|||\n1|00:00:04|5|||\n");
  ASSERT_EQ(dialogs.Boxes().size(), 2u);
  EXPECT_EQ(dialogs.Boxes()[0].text, "Delete Data ?");
  EXPECT_EQ(dialogs.Boxes()[0].buttons, platform::Buttons::kOkCancel);
  EXPECT_EQ(dialogs.Boxes()[0].icon, platform::Icon::kQuestion);
  EXPECT_EQ(dialogs.Boxes()[0].default_answer, Answer::kCancel);
}

TEST_F(MainWindowTest, DeleteIsIgnoredWithTheEntryRowOrPartOfARowSelected) {
  Open();
  Start();
  Reading("1,2");
  ShowRows(2);
  SelectRows(0, 1);  // the entry row is inside
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  auto* grid = Find<GridView>("Grid1");
  const QPoint cell = grid->visualRect(grid->model()->index(0, 1)).center();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
  QTest::keyClick(grid, Qt::Key_Delete);
  EXPECT_EQ(window->Document().Grid1().Rows(), 3);
}

TEST_F(MainWindowTest, ArrivingRowsLeaveTheSelectionAlone) {
  Open();
  Start();
  Reading("1");
  Reading("2");
  ShowRows(3);
  SelectRows(0, 0);
  const GridSelection before = Find<GridView>("Grid1")->Selection();
  for (int i = 0; i < 200; ++i) Line("3");
  ShowRows(203);
  const GridSelection after = Find<GridView>("Grid1")->Selection();
  EXPECT_EQ(after.Row, before.Row);
  EXPECT_EQ(after.RowSel, before.RowSel);
  EXPECT_EQ(after.ColSel, window->Document().Grid1().Cols() - 1);
  auto* grid = Find<GridView>("Grid1");
  EXPECT_GE(grid->rowAt(grid->viewport()->height() - 1), 201) << "the newest row is in view";
}

TEST_F(MainWindowTest, DoubleClickEditsACellOnlyWhileStopped) {
  Open();
  Start();
  Reading("1.0");
  ShowRows(2);
  auto* grid = Find<GridView>("Grid1");
  const auto double_click = [&](int row, int column) {
    const QPoint cell = grid->visualRect(grid->model()->index(row, column)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
  };
  double_click(0, 1);  // a box would wait for ever here
  Click("Command1");

  bool asked = false;
  QTimer::singleShot(0, [&] {
    auto* form = QApplication::activeModalWidget();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), "Data");
    auto* text = form->findChild<QLineEdit*>("Text1");
    EXPECT_EQ(text->selectedText(), "1.0");
    QTest::keyClicks(text, "7.5");
    QTest::mouseClick(form->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    asked = true;
  });
  double_click(0, 1);
  EXPECT_TRUE(asked);
  EXPECT_EQ(Readings(), "1|00:00:00|7.5|||\n");
  double_click(1, 1);  // the entry row is not edited
}

TEST_F(MainWindowTest, ErrorWindowGathersLinesAndForgetsThemWhenClosed) {
  Open();
  Start();
  MSComm1.Raise(platform::comm_event::kParity);
  MSComm1.Raise(platform::comm_event::kReceiveOverflow);
  auto* form = Find<QWidget>("Form5");
  ASSERT_TRUE(form->isVisible());
  EXPECT_EQ(form->findChild<QPlainTextEdit*>("Text1")->toPlainText(),
            "Communication Error 1009\nInput Buffer Overflowed");
  QTest::mouseClick(form->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  MSComm1.Raise(platform::comm_event::kBreak);
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->toPlainText(), "Communication Error 1001");
  EXPECT_TRUE(Running());
}

TEST_F(MainWindowTest, ErrorWindowKeepsItsLast10000Lines) {
  Open();
  Start();
  MSComm1.Raise(platform::comm_event::kBreak);
  for (int i = 0; i < link::ErrorWindow::kMostLines; ++i) MSComm1.Raise(platform::comm_event::kParity);
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->blockCount(), 10'000);
  EXPECT_FALSE(Find<QPlainTextEdit>("Text1")->toPlainText().contains("1001"));
}

TEST_F(MainWindowTest, AVanishedDeviceEndsTheMeasurementAndKeepsTheData) {
  Open();
  Start();
  Reading("1");
  MSComm1.VanishDevice();
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->toPlainText(), "Communication Error 1012");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
}

TEST_F(MainWindowTest, SaveWritesTheDocumentAndTakesItsName) {
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
      "Axis,2,4,0,180,0,100,0,100,0,2,1,0,2,0\r\nDate,2026/11/21 09:30:00\r\nMemo,Remarks:,,,,,,,,,,\r\n");
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "run.csv");
  EXPECT_FALSE(window->Document().DataChanged());
}

TEST_F(MainWindowTest, FailedSaveLeavesTheOldFileAndTheDataUnsaved) {
  Open();
  Start();
  Reading("1");
  files.Put("/data/run.csv", "old");
  files.Refuse("/data", "No space left on device");
  dialogs.Path("/data/run.csv");
  Choose("mSave");
  EXPECT_EQ(files.Content("/data/run.csv"), "old");
  EXPECT_TRUE(window->Document().DataChanged());
  EXPECT_THAT(Find<QLabel>("Status")->text().toStdString(), HasSubstr("No space left on device"));
}

TEST_F(MainWindowTest, CancelledSaveChangesNothing) {
  Open();
  Start();
  Reading("1");
  dialogs.Cancel();
  Choose("mSave");
  EXPECT_TRUE(window->Document().DataChanged());
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
}

TEST_F(MainWindowTest, OpenStopsTheMeasurementAsksAndReads) {
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

TEST_F(MainWindowTest, NoKeepsEverythingWhenOpenAsks) {
  Open();
  Start();
  Reading("1");
  dialogs.Answer(Answer::kNo);
  Choose("mOpen");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
  EXPECT_TRUE(window->Document().DataChanged());
}

TEST_F(MainWindowTest, AFileThatCannotBeReadLeavesTheOpenDocument) {
  Open();
  Start();
  Reading("1");
  dialogs.Answer(Answer::kYes);
  dialogs.Path("/data/missing.csv");
  Choose("mOpen");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
  EXPECT_TRUE(window->Document().DataChanged());
}

TEST_F(MainWindowTest, AxisLineSetsTheMenus) {
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

TEST_F(MainWindowTest, ColumnMenusAreFilledWhenOpened) {
  Open();
  auto* menu = Find<QMenu>("mV");
  EXPECT_TRUE(menu->isEmpty());
  emit menu->aboutToShow();
  ASSERT_EQ(menu->actions().size(), 4);
  EXPECT_EQ(menu->actions()[2]->text(), "Temp");
  EXPECT_TRUE(menu->actions()[0]->isChecked());
  menu->actions()[3]->trigger();
  EXPECT_EQ(window->Document().ViscoColumn(), 5);
}

TEST_F(MainWindowTest, NewClearsTheDocumentTheReceivedDataAndKeepsAnOwnTemplate) {
  Open();
  Start();
  Reading("1");
  PutFile("New.txt", "No.;Time;Eta\r\n");
  dialogs.Answer(Answer::kYes);
  Choose("mNew");
  EXPECT_EQ(Readings(), "");
  EXPECT_EQ(window->Document().Grid1().TextMatrix(0, 2), "Eta");
  EXPECT_EQ(window->Document().FieldSeparator(), ',') << "the Decimal Point menu's, not the template's";
  EXPECT_EQ(Find<QLineEdit>("Text3")->text(), "");
  EXPECT_EQ(Find<QLineEdit>("Text3")->toolTip(), "");
  EXPECT_EQ(File("New.txt"), "No.;Time;Eta\r\n");
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
}

TEST_F(MainWindowTest, DeletedTemplateIsWrittenAnewByTheNextNew) {
  Open();
  Choose("mVisco");
  files.Remove(std::string(kFolder) + "/New.txt");
  Choose("mNew");
  EXPECT_EQ(File("New.txt"), "No.,Time,Data 1,Data 2,Data 3,Data 4\r\n");
}

TEST_F(MainWindowTest, OpenLeavesTheReceivedDataAlone) {
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

TEST_F(MainWindowTest, TogglingViscoNeverRewritesATemplate) {
  Open();
  Choose("mVisco");
  Choose("mNew");
  EXPECT_EQ(File("New.txt"), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
}

TEST_F(MainWindowTest, StopByKeyboardLeavesTheFocusOnTheButton) {
  Open();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto* button = Find<QPushButton>("Command1");
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Space);
  ASSERT_TRUE(Running());
  MSComm1.TakeSent();
  loop.during_wait = [&] {
    EXPECT_FALSE(Find<QPushButton>("Command2")->isEnabled());
    if (QApplication::focusWidget() != nullptr) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  };
  QTest::keyClick(button, Qt::Key_Space);
  EXPECT_EQ(MSComm1.TakeSent(), "STOP\r\n");
  EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(MainWindowTest, DeletionAndEditingAreRefusedDuringStopsWait) {
  Open();
  Start();
  Reading("1");
  Reading("2");
  ShowRows(3);
  SelectRows(0, 0);
  loop.during_wait = [&] {
    QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
    QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_F2);
  };
  Click("Command1");
  EXPECT_EQ(window->Document().Grid1().Rows(), 4);
}

TEST_F(MainWindowTest, APastedLineEndDoesNotReachTheInstrument) {
  Open();
  Start();
  MSComm1.TakeSent();
  Find<QComboBox>("Combo1")->setEditText("QM\n");
  Click("Command2");
  EXPECT_EQ(MSComm1.TakeSent(), "QM\r\n");
}

TEST_F(MainWindowTest, DroppedFilesAreTakenByTheirEndingAlone) {
  Open();
  for (const char* name : {"/d/data.txt", "/d/data.TXT", "/d/data.Csv", "/d/csv"}) {
    files.Put(name, "No.,Time,A\r\n1,0,1\r\n");
    DropFile(name);
    EXPECT_EQ(Readings(), "") << name;
  }
  files.Put("/d/data.CSV", "No.,Time,A\r\n1,0,5\r\n");
  DropFile("/d/data.CSV");
  EXPECT_EQ(Readings(), "1|0|5\n");
  files.Put("/d/data.csv", "No.,Time,A\r\n1,0,6\r\n");
  DropFile("/d/data.csv");
  EXPECT_EQ(Readings(), "1|0|6\n");
}

TEST_F(MainWindowTest, CsvWithATrailingBlankEndingNeverMatchesText) {
  Open();
  files.Put("/d/data.txt ", "No.,Time,A\r\n1,0,1\r\n");
  DropFile("/d/data.txt ");
  EXPECT_EQ(Readings(), "") << "four characters never equal five";
}

TEST_F(MainWindowTest, ADropStopsTheMeasurementAndAsks) {
  Open();
  Start();
  Reading("1");
  files.Put("/d/x.csv", "No.,Time,A\r\n");
  dialogs.Answer(Answer::kNo);
  DropFile("/d/x.csv");
  EXPECT_FALSE(Running());
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
}

TEST_F(MainWindowTest, EndingWithUnsavedDataStopsTheInstrumentThenAsks) {
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

TEST_F(MainWindowTest, EndingWithoutDataOrWithNoIsSilent) {
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

TEST_F(MainWindowTest, PortMenuNamesTheDeviceBehindEachNumber) {
  Open();
  const int looks = looks_for_devices;
  devices[2] = "/dev/serial/by-id/usb-x";
  emit Find<QMenu>("mRS")->aboutToShow();
  EXPECT_EQ(looks_for_devices, looks + 1);
  EXPECT_EQ(Find<QAction>("Port[2]")->text(), "2");
  EXPECT_EQ(Find<QAction>("Port[2]")->toolTip(), "Port 2: /dev/serial/by-id/usb-x");
  EXPECT_EQ(Find<QAction>("Port[3]")->statusTip(), "Port 3: there is no device");
}

TEST_F(MainWindowTest, ADeviceBeyondThePortMenuIsToldOf) {
  devices[17] = "/dev/serial/by-id/usb-seventeenth";
  Open();
  EXPECT_TRUE(WaitFor([&] {
    return Find<QLabel>("Status")->text().contains(
        QStringLiteral("Port 17 (/dev/serial/by-id/usb-seventeenth)"));
  }));
}

TEST_F(MainWindowTest, EveryControlTellsItsName) {
  Open();
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || !widget->isEnabled()) continue;
    if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const bool named =
        !widget->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
    EXPECT_TRUE(named || widget->objectName() == "Tables") << widget->objectName().toStdString();
  }
}

TEST_F(MainWindowTest, AMillionReadingsAndStillNoWaiting) {
  std::string bytes = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";
  for (int i = 0; i < 1'000'000; ++i) bytes += "1,00:00:00,1234.5,mPa.s,25.1,C\r\n";
  files.Put("/data/big.csv", bytes);
  Open();
  window->OpenFile("/data/big.csv");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->rowCount(), 1'000'001);
  Start();
  for (int i = 0; i < 1000; ++i) Line("1 mPa.s,2 C");
  ShowRows(1'001'001);
  EXPECT_EQ(window->Document().Grid1().TextMatrix(1'001'000, 0), "2");
}

}  // namespace
}  // namespace quenlor::app
