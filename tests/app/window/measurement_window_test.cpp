// SPDX-License-Identifier: MIT
//
// A measurement as the main window runs it.

#include <QApplication>
#include <QStyle>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using testing::HasSubstr;
namespace setting = data::setting;

using MeasurementWindowTest = WindowTest;

TEST_F(MeasurementWindowTest, SettingWithoutAnItemFailsTheNextStart) {
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

TEST_F(MeasurementWindowTest, FailedStartSaysWhichDeviceAndWhatWouldHelp) {
  Open();
  MSComm1.RefuseOpen({"/dev/ttyS0", "Permission denied", "sudo usermod -aG dialout you"});
  dialogs.Answer(Answer::kOk);
  Start();
  EXPECT_EQ(Find<QLabel>("Status")->text(), "/dev/ttyS0: Permission denied: sudo usermod -aG dialout you");
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
  EXPECT_FALSE(Find<QPushButton>("Command2")->isEnabled());
  EXPECT_TRUE(Find<QMenu>("mRS")->isEnabled());
}

TEST_F(MeasurementWindowTest, ControlsFollowTheMeasurement) {
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

TEST_F(MeasurementWindowTest, StopWaitsTwoSecondsInWhichItsButtonAndTheMenusAreRefused) {
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
    EXPECT_FALSE(Drop("/x.csv"));
    Line("2.0");
  };
  Click("Command1");
  EXPECT_TRUE(looked);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Readings(), "1|00:00:00|1.0|||\n1|00:00:01|2.0|||\n")
      << "the line of the wait counts, New was refused";
  EXPECT_TRUE(window->menuBar()->isEnabled());
}

TEST_F(MeasurementWindowTest, ClosingDuringStopsWaitEndsTheProgramAfterIt) {
  Open();
  Start();
  loop.during_wait = [&] {
    window->close();
    EXPECT_TRUE(window->isVisible());
  };
  Click("Command1");
  EXPECT_TRUE(WaitFor([&] { return !window->isVisible(); }));
}

TEST_F(MeasurementWindowTest, ReadingsReachTableReceivedDataAndDate) {
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

TEST_F(MeasurementWindowTest, ReceivedMarkupIsShownAsItCame) {
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

TEST_F(MeasurementWindowTest, ChoosingCommaShowsTheNextReadingWithCommaAndDividesFieldsBySemicolon) {
  Open();
  Choose("mNum");
  Choose("DP[1]");
  Start();
  Line("1.5");
  EXPECT_EQ(Readings(), "1|00:00:00|1,5|||\n");
  EXPECT_THAT(File("Com_1.txt"), HasSubstr("1;00:00:00;1,5"));
}

TEST_F(MeasurementWindowTest, TogglingNumberChangesTheNextLineOnly) {
  Open();
  Start();
  Line("V= 1");
  Choose("mNum");
  Line("V= 2");
  EXPECT_EQ(Readings(), "1|00:00:00|V= 1|||\n1|00:00:00|2|||\n");
}

TEST_F(MeasurementWindowTest, CommandButtonSendsWhatIsTyped) {
  Open();
  Start();
  MSComm1.TakeSent();
  auto* box = Find<QComboBox>("Combo1");
  box->lineEdit()->selectAll();
  QTest::keyClicks(box->lineEdit(), "stop 7");
  Click("Command2");
  EXPECT_EQ(MSComm1.TakeSent(), "stop 7\r\n");
}

TEST_F(MeasurementWindowTest, CommandQMAfterAReadingStopsASilentMeasurement) {
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

TEST_F(MeasurementWindowTest, EmptyCommandFileSendsOnlyTheTerminatorAtStart) {
  PutFile("Command_V.txt", "");
  Open();
  Choose("mVisco");
  Start();
  EXPECT_EQ(Find<QComboBox>("Combo1")->count(), 0);
  EXPECT_EQ(MSComm1.TakeSent(), "\r\n");
}

TEST_F(MeasurementWindowTest, BoxesOfRepeatAndAutoStopAreSavedAtOnceTheirNumbersWithTheNextSave) {
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

TEST_F(MeasurementWindowTest, ErrorWindowGathersLinesAndForgetsThemWhenClosed) {
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

TEST_F(MeasurementWindowTest, ErrorWindowKeepsItsLast10000Lines) {
  Open();
  Start();
  MSComm1.Raise(platform::comm_event::kBreak);
  for (int i = 0; i < link::ErrorWindow::kMostLines; ++i) MSComm1.Raise(platform::comm_event::kParity);
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->blockCount(), 10'000);
  EXPECT_FALSE(Find<QPlainTextEdit>("Text1")->toPlainText().contains("1001"));
}

TEST_F(MeasurementWindowTest, AVanishedDeviceEndsTheMeasurementAndKeepsTheData) {
  Open();
  Start();
  Reading("1");
  MSComm1.VanishDevice();
  EXPECT_EQ(Find<QPushButton>("Command1")->text(), "Start");
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->toPlainText(), "Communication Error 1012");
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
}

TEST_F(MeasurementWindowTest, StopByKeyboardLeavesTheFocusOnTheButton) {
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

TEST_F(MeasurementWindowTest, DeletionAndEditingAreRefusedDuringStopsWait) {
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

TEST_F(MeasurementWindowTest, APastedLineEndDoesNotReachTheInstrument) {
  Open();
  Start();
  MSComm1.TakeSent();
  Find<QComboBox>("Combo1")->setEditText("QM\n");
  Click("Command2");
  EXPECT_EQ(MSComm1.TakeSent(), "QM\r\n");
}

TEST_F(MeasurementWindowTest, SpaceTwiceOnStopLeavesTheCommandAsItIs) {
  Open();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto* command = Find<QComboBox>("Combo1");
  const QString text = command->currentText();
  Start();
  Find<QPushButton>("Command1")->setFocus();
  loop.during_wait = [&] {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_FALSE(QApplication::focusWidget()->inherits("QLineEdit"))
        << "what is typed now would be a command";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  };
  QTest::keyClick(Find<QPushButton>("Command1"), Qt::Key_Space);
  EXPECT_FALSE(Running());
  EXPECT_EQ(command->currentText(), text);
}

TEST_F(MeasurementWindowTest, BoxesAnswerAToggleThatIsNoClickAndATextThatIsNotTyped) {
  Open();
  const bool before = Find<QCheckBox>("Check5")->isChecked();
  Find<QCheckBox>("Check5")->toggle();  // as assistive technology does
  EXPECT_EQ(Setting(setting::kAutoStop), before ? "0" : "1");
  Find<QLineEdit>("Text1")->setText(QStringLiteral("12"));
  Find<QCheckBox>("Check1")->toggle();  // saves
  EXPECT_EQ(Setting(setting::kAutoStopMinutes), "12");
}

TEST_F(MeasurementWindowTest, ButtonsAreCalledByTheirCaptions) {
  Open();
  for (const char* name : {"Command1", "Command2"}) {
    auto* button = Find<QPushButton>(name);
    EXPECT_TRUE(button->accessibleName().isEmpty()) << "the caption is the name";
    EXPECT_FALSE(button->accessibleDescription().isEmpty());
  }
}

TEST_F(MeasurementWindowTest, StartHasItsColoursWhereTheThemeOfTheSystemPaintsButtons) {
  const QString usual = QApplication::style()->objectName();
  QApplication::setStyle(QStringLiteral("windows"));

  Open();

  EXPECT_EQ(Find<QPushButton>("Command1")->style()->name(), "fusion");
  EXPECT_EQ(Find<QPushButton>("Command2")->style()->name(), "windows");
  window.reset();
  QApplication::setStyle(usual);
}

}  // namespace
}  // namespace quenlor::app
