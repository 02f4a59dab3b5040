// SPDX-License-Identifier: MIT
// What the window tells: the status line, the newest value, progress, readings that were left, and the keys.

#include <QAccessible>
#include <QClipboard>
#include <QStatusBar>
#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/current_value.h"
#include "app/window/guide_window.h"
#include "app/window/progress_bar.h"
#include "tests/app/window/change_editor.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using testing::HasSubstr;
namespace setting = data::setting;

class StatusWindowTest : public WindowTest {
 protected:
  std::string Field(const char* name) { return Find<QLabel>(name)->text().toStdString(); }
  std::string Message() { return Field("Status"); }
  void Key(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(window.get(), key, with); }
};

TEST_F(StatusWindowTest, TellsInFieldsWhatGoesOn) {
  PutFile("New.txt", "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
  Open();
  window->resize(1900, 700);
  EXPECT_EQ(Field("StatusState"), "Stopped");
  EXPECT_EQ(Field("StatusPort"), "Port 1 ttyV1 · 2400 E71 CR/LF");
  Start();
  EXPECT_TRUE(WaitFor([&] { return Field("StatusState") == "Measuring"; }));
  Reading("611.4,mPa.s,26.9,C");
  Line("612,mPa.s,27,C");
  EXPECT_TRUE(WaitFor([&] { return Field("StatusRun") == "Run 1 · 2 readings · 00:00:01"; }));
  EXPECT_THAT(Field("StatusAges"), HasSubstr("next in 4 s"));
  EXPECT_EQ(Field("StatusDocument"), "New.csv · 2 unsaved readings");
  for (const char* name : {"StatusState", "StatusPort", "StatusRun", "StatusAges", "StatusDocument"})
    EXPECT_TRUE(Find<QLabel>(name)->isVisible()) << name;
  Click("Command1");
  EXPECT_TRUE(WaitFor([&] { return Field("StatusState").starts_with("Stopped by hand 09:30:0"); }));
  EXPECT_THAT(Message(), HasSubstr("stopped by hand"));
}

TEST_F(StatusWindowTest, ADeviceIsNamedOnceItHasBeenFound) {
  devices.clear();
  Open();
  ASSERT_TRUE(WaitFor([&] { return looks_for_devices > 0; }));
  EXPECT_EQ(Field("StatusPort").find("ttyV1"), std::string::npos);

  devices = {{1, "/dev/ttyV1"}};
  emit Find<QMenu>("mRS")->aboutToShow();
  EXPECT_TRUE(WaitFor([&] { return Field("StatusPort") == "Port 1 ttyV1 · 2400 E71 CR/LF"; }));
}

TEST_F(StatusWindowTest, InANarrowWindowTheLessImportantFieldsGo) {
  const std::string name = std::string(60, 'm') + ".csv";
  PutFile(name, "No.,Time,Visco\r\n");
  Open().OpenFile("/lab/" + name);
  window->resize(window->minimumSizeHint());
  Start();
  Reading("1");
  ASSERT_TRUE(WaitFor([&] { return !Field("StatusRun").empty(); }));
  EXPECT_TRUE(Find<QLabel>("StatusState")->isVisible());
  EXPECT_FALSE(Find<QLabel>("StatusAges")->isVisible());
  Click("Command1");
}

TEST_F(StatusWindowTest, ARefusedStartSaysWhyBeforeTheBoxIsClosed) {
  Open();
  MSComm1.RefuseOpen({"/dev/ttyV1", "Permission denied", "log in again"});
  std::string seen;
  dialogs.Answer(platform::Answer::kOk, [&] { seen = Message(); });
  Start();
  EXPECT_EQ(seen, "/dev/ttyV1: Permission denied: log in again");
}

TEST_F(StatusWindowTest, TheNewestReadingStandsLargeBesideTheFrames) {
  Open();
  window->resize(1600, 800);
  auto* value = Find<CurrentValue>("CurrentValue");
  const QImage empty = value->grab().toImage();
  Start();
  Reading("611.4,mPa.s,26.9,C");
  ASSERT_TRUE(WaitFor([&] { return value->accessibleName() == "611.4 mPa.s, 26.9 C, No.1 · 00:00:00"; }));
  const QImage shown = value->grab().toImage();
  EXPECT_NE(shown, empty);
  EXPECT_TRUE(Has(shown, QColor(255, 0, 0))) << "the colour of run 1";
  window->resize(window->minimumSizeHint().width(), 600);
  QApplication::processEvents();
  EXPECT_FALSE(Has(value->grab().toImage(), QColor(255, 0, 0))) << "no room";
  Click("Command1");
}

TEST_F(StatusWindowTest, LineErrorsAreCountedAndTheirWindowComesUpAgain) {
  Open();
  window->resize(1900, 700);
  Start();
  MSComm1.Raise(platform::comm_event::kParity);
  MSComm1.Raise(platform::comm_event::kParity);
  EXPECT_TRUE(WaitFor([&] { return Field("StatusErrors") == "2 line errors, last 09:30:00"; }));
  auto* errors = Find<QWidget>("Form5");
  EXPECT_TRUE(errors->testAttribute(Qt::WA_ShowWithoutActivating));
  errors->showMinimized();
  MSComm1.Raise(platform::comm_event::kParity);
  EXPECT_FALSE(errors->isMinimized());
  Click("Command1");
}

TEST_F(StatusWindowTest, AppendingShowsTheRunsOfTwoFilesSideBySide) {
  files.Put("/data/monday.csv", "No.,Time,Visco\r\n1,0,5\r\n1,1,6\r\n");
  files.Put("/data/tuesday.csv", "No.,Time,Torque,Visco\r\n1,0,2,7\r\n");
  Open();
  dialogs.Path("/data/monday.csv");
  Choose("mOpen");
  dialogs.Path("/data/tuesday.csv");
  Choose("mAppend");
  EXPECT_EQ(Message(), "Appended tuesday.csv: 1 run, 1 reading");
  EXPECT_EQ(Field("StatusDocument"), "monday.csv · 1 unsaved reading");
  EXPECT_EQ(Readings(), "1|0|5|\n1|1|6|\n2|0|7|2\n");
  const QAbstractItemModel& grid = *Find<GridView>("Grid1")->model();
  EXPECT_EQ(grid.rowCount(), 4) << "the entry row stays the last";
  EXPECT_EQ(grid.columnCount(), 3);
  EXPECT_EQ(grid.index(2, 2).data().toString(), "2");
  EXPECT_EQ(window->Document().Grid4().TextMatrix(2, 1), "tuesday");
  dialogs.Answer(platform::Answer::kNo);
  window->close();
  EXPECT_EQ(dialogs.Boxes().back().text, "Will you save this data?");
}

TEST_F(StatusWindowTest, OpeningTellsWhatWasOpenedAndKeepsItAtHand) {
  files.Put("/data/monday.csv", "No.,Time,Visco\r\n1,0,5\r\n1,1,6\r\n2,0,7\r\n");
  Open();
  dialogs.Path("/data/monday.csv");
  Choose("mOpen");
  EXPECT_EQ(Message(), "Opened monday.csv: 2 runs, 3 readings");
  Find<QMenu>("mFile")->popup({0, 0});
  EXPECT_EQ(Find<QAction>("Recent[1]")->text(), "&1 monday.csv");
  Find<QMenu>("mFile")->close();
  Choose("mNew");
  EXPECT_EQ(Message(), "");
  Find<QMenu>("mFile")->popup({0, 0});
  Find<QAction>("Recent[1]")->trigger();
  EXPECT_EQ(window->Document().FileName(), "monday.csv");
  Find<QMenu>("mFile")->close();

  window.reset();
  Open();
  dialogs.Cancel();
  Choose("mOpen");
  EXPECT_EQ(dialogs.OpenFolders().back(), "/data") << "also after a restart";
}

TEST_F(StatusWindowTest, ReadingsOfAnEarlierLifeAreOffered) {
  PutFile("Com_1.txt", "No.,Time,Visco\r\n1,0,5\r\n1,1,6\r\n");
  Open();
  auto* offer = Find<QLabel>("StatusOffer");
  ASSERT_TRUE(WaitFor([&] { return offer->isVisible(); }));
  EXPECT_EQ(Message(), "Com_1.txt holds 2 readings that were never saved");
  emit offer->linkActivated(QStringLiteral("take"));
  EXPECT_EQ(Readings(), "1|0|5\n1|1|6\n");
  EXPECT_FALSE(offer->isVisible());

  window.reset();
  Open();
  QTest::qWait(400);
  EXPECT_FALSE(Find<QLabel>("StatusOffer")->isVisible()) << "it was looked at";
}

TEST_F(StatusWindowTest, AnOfferIsDismissedForGood) {
  PutFile("Com_1.txt", "No.,Time,Visco\r\n1,0,5\r\n");
  Open();
  ASSERT_TRUE(WaitFor([&] { return Find<QLabel>("StatusOffer")->isVisible(); }));
  emit Find<QLabel>("StatusOffer")->linkActivated(QStringLiteral("dismiss"));
  EXPECT_EQ(Message(), "");
  EXPECT_THAT(File("Seen.txt"), HasSubstr("Com_1.txt"));
}

TEST_F(StatusWindowTest, ALongOpeningCanBeLeft) {
  Open();
  ProgressBar bar(window.get());
  EXPECT_TRUE(bar.Tell("Opening a.csv", 0.1, true));
  EXPECT_FALSE(bar.isVisible()) << "it may be short";
  QTest::qWait(300);
  EXPECT_TRUE(bar.Tell("Opening a.csv", 0.2, true));
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.text(), "Opening a.csv 20%");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(bar.Tell("Opening a.csv", 0.3, true));
  bar.Done();
  EXPECT_FALSE(bar.isVisible());
  EXPECT_TRUE(bar.Tell("Opening b.csv", 0.1, true)) << "the next one begins anew";
  bar.Done();
}

TEST_F(StatusWindowTest, WhatMayNotBeLeftPaintsOnlyItself) {
  Open();
  ProgressBar bar(window->statusBar());
  bar.KeepQuiet(Find<QWidget>("Picture1"));
  bar.Tell("Saving a.csv", 0.1, false);
  EXPECT_FALSE(Find<QWidget>("Picture1")->updatesEnabled());
  QTest::qWait(300);
  int turns = 0;
  QTimer::singleShot(0, window.get(), [&] { ++turns; });
  bar.Tell("Saving a.csv", 0.5, false);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(turns, 0) << "nothing else was served";
  bar.Done();
  EXPECT_TRUE(Find<QWidget>("Picture1")->updatesEnabled());
}

TEST_F(StatusWindowTest, WorkUponAWholeDocumentLetsTheWindowAnswerUnderAWaitingPointer) {
  Open();
  ProgressBar bar(window->statusBar());
  bar.KeepQuiet(Find<QWidget>("Picture1"));
  bar.TellAndAnswer("Writing the raw log", 0.1);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "it may be short";
  QTest::qWait(300);
  int turns = 0;
  QTimer::singleShot(0, window.get(), [&] { ++turns; });
  bar.TellAndAnswer("Writing the raw log", 0.5);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.text(), "Writing the raw log 50%");
  EXPECT_EQ(turns, 1);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  EXPECT_TRUE(Find<QWidget>("Picture1")->updatesEnabled());
  bar.Done();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StatusWindowTest, LinesOfThousandsOfCommasAreShownWithoutDelay) {
  Open();
  Click("Command1");
  const std::clock_t before = std::clock();
  for (int line = 0; line < 20; ++line) Line(std::string(8000, ','));
  Find<QTimer>("Refresh")->stop();
  QMetaObject::invokeMethod(Find<QTimer>("Refresh"), "timeout");
  QCoreApplication::processEvents();
  EXPECT_EQ(window->Document().Grid1().Cols(), 2 + 8001);
  EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 1) << "of the processor, some 30 ms";
}

TEST_F(StatusWindowTest, KeysDoWhatClicksDo) {
  Open();
  QApplication::setActiveWindow(window.get());
  Key(Qt::Key_F5);
  EXPECT_TRUE(Running());
  MSComm1.TakeSent();
  Key(Qt::Key_F6);
  EXPECT_EQ(MSComm1.TakeSent(), "QM\r\n");
  Key(Qt::Key_F5);
  EXPECT_FALSE(Running());
  Key(Qt::Key_3, Qt::ControlModifier);
  EXPECT_TRUE(Find<QAbstractButton>("Option1[2]")->isChecked());
  Key(Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(Setting(setting::kLog), "1");
  Key(Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(Setting(setting::kLog), "0");
}

TEST_F(StatusWindowTest, DeletedRowsComeBackByCtrlZ) {
  PutFile("a.csv", "No.,Time,Visco\r\n1,0,5\r\n1,1,6\r\n1,2,7\r\n");
  Open().OpenFile("/lab/a.csv");
  QApplication::setActiveWindow(window.get());
  ShowRows(4);
  SelectRows(0, 1);
  dialogs.Answer(platform::Answer::kOk);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(Readings(), "1|2|7\n");
  EXPECT_EQ(Message(), "Rows 1 to 2 are deleted; Ctrl+Z brings back what was deleted");
  EXPECT_EQ(Field("StatusDocument"), "a.csv · edited since saved");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Readings(), "1|0|5\n1|1|6\n1|2|7\n");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->rowCount(), 4);
  EXPECT_EQ(Message(), "2 rows are back");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Message(), "Nothing is left to undo");
}

TEST_F(StatusWindowTest, TheChangeWindowSaysWhatItChanges) {
  PutFile("a.csv", "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n2,00:00:15,5,mPa.s,25,C\r\n");
  Open().OpenFile("/lab/a.csv");
  ShowRows(2);
  auto* grid = Find<GridView>("Grid1");
  std::string about;
  const auto look = [&](QDialog& form) {
    about = form.findChild<QLabel*>("About")->text().toStdString();
    form.reject();
  };
  grid->setCurrentIndex(grid->model()->index(0, 1));
  Edit([&] { QTest::keyClick(grid, Qt::Key_Return); }, look);
  EXPECT_EQ(about, "Run 2, 00:00:15, Viscosity, in mPa.s");
  Edit([&] { DoubleClick("Label5[1]"); }, look);
  EXPECT_EQ(about, "Upper end of the time axis, in minutes");
}

TEST_F(StatusWindowTest, ALimitThatIsNotTakenSaysWhy) {
  Open();
  Edit([&] { DoubleClick("Label5[0]"); }, Enter("5"));
  EXPECT_EQ(Message(), "Time mini stays 0: \"5\" is not below Time max, 3");
}

TEST_F(StatusWindowTest, AnEmptyDocumentSaysWhereToBegin) {
  Open();
  auto* grid = Find<GridView>("Grid1");
  const QImage with_hint = grid->viewport()->grab().toImage();
  grid->SetHint({});
  EXPECT_NE(grid->viewport()->grab().toImage(), with_hint);
}

TEST_F(StatusWindowTest, CaptionsCanBeWorkedWithoutAMouse) {
  Open();
  auto* caption = Find<graph::Caption>("Label5[1]");
  EXPECT_NE(caption->focusPolicy() & Qt::TabFocus, 0);
  EXPECT_EQ(caption->cursor().shape(), Qt::PointingHandCursor);
  EXPECT_TRUE(Edit([&] { QTest::keyClick(caption, Qt::Key_Return); }, Cancel("")));
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(caption);
  EXPECT_EQ(told->role(), QAccessible::Button);
  EXPECT_EQ(told->text(QAccessible::Name), "Time max: 3");
  EXPECT_EQ(told->text(QAccessible::Description), "Enter changes it");
  EXPECT_TRUE(Edit([&] { told->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); },
                   Cancel("")));
  QAccessibleInterface* tick = QAccessible::queryAccessibleInterface(Find<graph::Caption>("Label8[1]"));
  EXPECT_EQ(tick->role(), QAccessible::StaticText);
  EXPECT_EQ(tick->text(QAccessible::Name), "10");
}

TEST_F(StatusWindowTest, TheBarCanBeMovedWithoutAMouse) {
  Open();
  window->resize(1200, 700);
  QApplication::processEvents();
  auto* bar = Find<QWidget>("Posi");
  const int before = bar->x();
  QTest::keyClick(bar, Qt::Key_Right);
  EXPECT_GT(bar->x(), before);
  QTest::keyClick(bar, Qt::Key_Left);
  EXPECT_EQ(bar->x(), before);
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(bar);
  EXPECT_EQ(told->role(), QAccessible::Splitter);
  told->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
  EXPECT_LT(bar->x(), before);
  for (int i = 0; i < 200; ++i) QTest::keyClick(bar, Qt::Key_Left);
  EXPECT_GE(bar->x(), 3600 / 15);
}

TEST_F(StatusWindowTest, TheGraphGoesToTheClipboardAndIntoAFile) {
  Open();
  auto* picture = Find<graph::GraphPane>("Picture1");
  const auto pick = [&](int which) {
    QTimer::singleShot(0, window.get(), [&, which] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      QAction* item = menu->actions().at(which);
      menu->close();
      item->trigger();
    });
    emit picture->MenuWanted(QPoint(10, 10), 0);
  };
  pick(0);
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
  EXPECT_THAT(QApplication::clipboard()->mimeData()->data("image/svg+xml").toStdString(), HasSubstr("<svg"));
  dialogs.Path("/lab/graph.svg");
  pick(1);
  EXPECT_THAT(File("graph.svg"), HasSubstr("<svg"));
  EXPECT_EQ(Message(), "Saved /lab/graph.svg");
  for (const auto& [name, times] : {std::pair{"graph.png", 1}, {"graph@2x.png", 2}, {"graph@4x.png", 4}}) {
    dialogs.Path("/lab/" + std::string(name));
    pick(1);
    const QImage saved = QImage::fromData(QByteArray::fromStdString(File(name)), "PNG");
    EXPECT_EQ(saved.size(), picture->size() * times) << name;
    EXPECT_EQ(saved.dotsPerMeterX(), 3780 * times) << "as large on paper";
  }
  Find<QAbstractButton>("Check2")->setChecked(false);
  pick(3);
  EXPECT_TRUE(Find<QAbstractButton>("Check2")->isChecked());
}

TEST_F(StatusWindowTest, F1ShowsTheGuideWhichKnowsWhatTheStatusLineSays) {
  Open();
  QApplication::setActiveWindow(window.get());
  Key(Qt::Key_F1);
  auto* guide = Find<QTextBrowser>("Guide");
  ASSERT_TRUE(guide->isVisible());
  const QString text = guide->toPlainText();
  for (const char* said :
       {"Waiting for the first reading: nothing received", "bytes received, no line end",
        "The line damages characters", "No reading for", "No reply", "Auto Stop", "Device gone",
        "Run numbers used up", "Raw Log Not Written", "Raw Log Written Again", "line errors",
        "unsaved readings", "edited since saved", "that were never saved"})
    EXPECT_TRUE(text.contains(QLatin1String(said))) << said;
  QTest::keyClick(guide, Qt::Key_Escape);
  EXPECT_TRUE(WaitFor([&] { return window->findChild<QTextBrowser*>("Guide") == nullptr; }));
  const QList<QAction*> items = Find<QMenu>("mFile")->actions();
  EXPECT_EQ(items.last()->text(), "About Quenlor");
}

TEST_F(StatusWindowTest, AnEndThatNobodyChoseIsTold) {
  Open();
  Start();
  EXPECT_TRUE(desktop.awake);
  MSComm1.VanishDevice();
  EXPECT_FALSE(desktop.awake);
  EXPECT_THAT(Message(), HasSubstr("port 1 is gone"));
}

}  // namespace
}  // namespace quenlor::app
