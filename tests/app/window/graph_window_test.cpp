// SPDX-License-Identifier: MIT
// The graph in its window: legend, readings as they arrive, sizes, drops and odd values.

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/text_number.h"
#include "graph/color_table.h"
#include "graph/screen_color.h"
#include "tests/app/window/change_editor.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using platform::Answer;

const QColor kRed(255, 0, 0);
const QColor kGreen(0, 187, 0);

class GraphWindowTest : public WindowTest {
 protected:
  graph::TableAndGraph& Halves() { return *window->findChild<graph::TableAndGraph*>(); }
  const data::AxisRanges& Ranges() { return window->Document().Ranges(); }
  QImage Pane() { return Find<QWidget>("Picture1")->grab().toImage(); }

  void PressBar() { QTest::mousePress(Find<QWidget>("Posi"), Qt::LeftButton, {}, QPoint(3, 50)); }
  void MoveBar(int pixels) { QTest::mouseMove(Find<QWidget>("Posi"), QPoint(3 + pixels, 50)); }
  void ReleaseBar() { QTest::mouseRelease(Find<QWidget>("Posi"), Qt::LeftButton, {}, QPoint(3, 50)); }
};

// Legend.

TEST_F(GraphWindowTest, LegendAppearsWithTheFirstReadingOfItsRun) {
  Open();
  for (const char* caption : {"Label10[0]", "Label10[1]", "Label10[2]"})
    EXPECT_FALSE(Shown(caption)) << caption;
  Click("Command1");
  EXPECT_FALSE(Shown("Label10[1]")) << "nothing is measured yet";
  Reading("12.5");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n12.5"));
  EXPECT_TRUE(Shown("Label10[1]"));
  EXPECT_TRUE(Shown("Label10[0]"));
  EXPECT_EQ(Text("Label10[0]"), "Final\nValue");
  EXPECT_FALSE(Shown("Label10[2]"));
  Reading("13.5");
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n13.5"));
}

TEST_F(GraphWindowTest, TenRunsHaveALegendInTheirColoursTheEleventhHasNone) {
  Open();
  for (int run = 1; run <= 11; ++run) Run({std::to_string(run).c_str()});
  ASSERT_EQ(window->Document().RunCount(), 11);
  ASSERT_TRUE(Becomes("Label10[10]", "No.10\n10"));
  for (int run = 1; run <= 10; ++run) {
    const std::string caption = "Label10[" + std::to_string(run) + "]";
    EXPECT_TRUE(Shown(caption.c_str())) << run;
    EXPECT_EQ(ColorOf(caption.c_str()), graph::ToQColor(graph::RunColor(graph::kDefaultColors, run))) << run;
  }
  EXPECT_EQ(ColorOf("Label10[0]"), QColor(Qt::black));
  EXPECT_EQ(window->findChild<QWidget*>("Label10[11]"), nullptr);
}

TEST_F(GraphWindowTest, LegendFollowsDeletionAndNew) {
  Open();
  Run({"1", "2", "3"});
  Run({"7"});
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n7"));
  SelectRows(2, 3);
  dialogs.Answer(Answer::kOk);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n2"));
  EXPECT_FALSE(Shown("Label10[2]")) << "no reading of that run is left";
  dialogs.Answer(Answer::kYes);
  Pick("mFile", "mNew");
  EXPECT_TRUE(WaitFor([&] { return !Shown("Label10[1]") && !Shown("Label10[0]"); }));
}

// Readings as they arrive.

TEST_F(GraphWindowTest, EveryReadingIsDrawnWhenItArrives) {
  Open();
  Click("Command1");
  for (int i = 0; i < 10; ++i) {
    const QImage before = Picture();
    Reading(std::to_string(10 + 7 * i));
    EXPECT_TRUE(PictureChanges(before)) << i;
  }
}

TEST_F(GraphWindowTest, ReadingsAreDrawnInEveryKindOfGraphOnBothAxes) {
  for (const char* axis : {"mLog[0]", "mLog[1]"}) {
    for (const char* kind : {"Option1[0]", "Option1[1]", "Option1[2]"}) {
      Open();
      Pick("mAxis", axis);
      Tick(kind);
      Click("Command1");
      for (int i = 0; i < 5; ++i) {
        const QImage before = Picture();
        Reading(std::to_string(10 + 15 * i) + " mPa.s," + std::to_string(20 + 13 * i) + " C");
        EXPECT_TRUE(PictureChanges(before)) << axis << " " << kind << " " << i;
      }
      Click("Command1");
      window.reset();
      files.Remove(std::string(kFolder) + "/quenlor.ini");
    }
  }
}

TEST_F(GraphWindowTest, SecondRunIsDrawnInItsOwnColourBesideTheFirst) {
  Open();
  Run({"30", "30", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  EXPECT_TRUE(Has(Picture(), kRed));
  EXPECT_FALSE(Has(Picture(), kGreen));
  Click("Command1");
  QImage before = Picture();
  for (int i = 0; i < 4; ++i) {
    before = Picture();
    Reading("70");
    EXPECT_TRUE(PictureChanges(before)) << i;
  }
  EXPECT_TRUE(Has(Picture(), kRed));
  EXPECT_TRUE(Has(Picture(), kGreen));
}

TEST_F(GraphWindowTest, AReadingBeyondTheRangeRescalesItsAxis) {
  Open();
  Click("Command1");
  Reading("50");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n50"));
  EXPECT_EQ(Text("Label5[3]"), "120");
  Reading("1000");
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n1000"));
  EXPECT_GE(Ranges().ViscoMax, 1000);
  EXPECT_TRUE(Becomes("Label5[3]", data::GeneralText(Ranges().ViscoMax)));
}

TEST_F(GraphWindowTest, WhatWasDrawnLiveIsWhatTheSavedFileShows) {
  Open();
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  Tick("Option1[1]");
  const QImage empty = Picture();
  Run({"10 mPa.s,20 C", "35.5 mPa.s,25 C", "20 mPa.s,90 C", "150 mPa.s,-5 C", "60 mPa.s,50 C"});
  Run({"80 mPa.s,21 C", "55.5 mPa.s,29 C", "20 mPa.s,41 C"});
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n20"));
  ASSERT_TRUE(PictureChanges(empty));
  const QImage live = Picture();
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mSave");
  Pick("mFile", "mNew");
  ASSERT_TRUE(PictureChanges(live));
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mOpen");
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n20"));
  EXPECT_TRUE(WaitFor([&] { return Picture() == live; }));
}

TEST_F(GraphWindowTest, DeletedReadingsLeaveThePicture) {
  Open();
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  Run({"10", "20", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  const QImage before = Picture();
  Run({"90", "95"});
  ASSERT_TRUE(PictureChanges(before));
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n95"));
  SelectRows(3, 4);
  dialogs.Answer(Answer::kOk);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_TRUE(WaitFor([&] { return Picture() == before; }));
}

TEST_F(GraphWindowTest, AnEditedReadingMovesItsPoint) {
  Open();
  Run({"10", "20", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  const QImage before = Picture();
  auto* grid = Find<GridView>("Grid1");
  EXPECT_TRUE(Edit(
      [&] {
        const QPoint cell = grid->visualRect(grid->model()->index(2, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
      },
      Enter("80")));
  EXPECT_TRUE(PictureChanges(before));
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n80"));
}

// Bar and sizes.

TEST_F(GraphWindowTest, TableAndReceivedDataTakeTheWidthLeftOfTheBarWhileItMoves) {
  Open();
  PressBar();
  for (const int pixels : {30, 30, -90}) {
    MoveBar(pixels);
    QApplication::processEvents();
    const int left = Find<QWidget>("Posi")->x();
    const auto right_edge = [&](const char* name) {
      auto* widget = Find<QWidget>(name);
      return widget->mapTo(&Halves(), QPoint(widget->width(), 0)).x();
    };
    EXPECT_NEAR(right_edge("Tables"), left - 100 / 15, 2);
    EXPECT_NEAR(right_edge("Text3"), right_edge("Tables"), 2);
    EXPECT_EQ(Find<QWidget>("Picture1")->x(), std::lround((Halves().PosiLeft() + 100) / 15));
  }
  ReleaseBar();
}

TEST_F(GraphWindowTest, ReadingsOfADragAreDrawnWhenTheButtonIsReleased) {
  Open();
  Click("Command1");
  Reading("10");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n10"));
  const QImage before = Picture();
  PressBar();
  MoveBar(30);
  Reading("60");
  EXPECT_TRUE(PictureStays(before));
  EXPECT_EQ(Text("Label10[1]"), "No.1\n10");
  ReleaseBar();
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n60"));
  EXPECT_TRUE(PictureChanges(before));
}

TEST_F(GraphWindowTest, PointerMovesWithoutAButtonLeaveTheBarAlone) {
  Open();
  const double before = Halves().PosiLeft();
  MoveBar(60);
  EXPECT_EQ(Halves().PosiLeft(), before);
  PressBar();
  MoveBar(30);
  ReleaseBar();
  const double moved = Halves().PosiLeft();
  EXPECT_EQ(moved, before + 450);
  MoveBar(60);
  EXPECT_EQ(Halves().PosiLeft(), moved);
}

TEST_F(GraphWindowTest, AWiderWindowGivesItsWidthToTheGraph) {
  Open();
  const double bar = Halves().PosiLeft();
  const QSize before = Find<QWidget>("Picture2")->size();
  window->resize(window->width() + 300, window->height() + 200);
  ASSERT_TRUE(WaitFor([&] { return Find<QWidget>("Picture2")->size() != before; }));
  EXPECT_EQ(Halves().PosiLeft(), bar);
  EXPECT_EQ(Find<QWidget>("Posi")->height(), Halves().height());
  EXPECT_NEAR(Find<QWidget>("Picture1")->geometry().right() + 1 + 200 / 15, Halves().width(), 2);
  EXPECT_EQ(Find<QWidget>("Picture1")->height(), Halves().height());
  EXPECT_EQ(Picture().size(), Find<QWidget>("Picture2")->size() * window->devicePixelRatioF());
}

TEST_F(GraphWindowTest, ANarrowerWindowPullsTheBarInside) {
  Open();
  window->resize(1800, 760);
  ASSERT_TRUE(WaitFor([&] { return Halves().width() > 1700; }));
  PressBar();
  MoveBar(1100);
  ReleaseBar();
  ASSERT_GT(Halves().PosiLeft(), 1500 * 15);
  window->resize(1100, 760);
  ASSERT_TRUE(WaitFor([&] { return Halves().width() < 1100; }));
  EXPECT_EQ(Halves().PosiLeft(), Halves().width() * 15.0 - 50);
}

TEST_F(GraphWindowTest, CaptionsStayInsideTheGraphAndApartAtEverySize) {
  Open();
  Tick("Option1[1]");
  for (int run = 1; run <= 10; ++run) Run({"1234.5 mPa.s,25.1 C"});
  ASSERT_TRUE(Becomes("Label10[10]", "No.10\n1234.5"));
  for (const QSize size : {QSize(900, 600), QSize(1200, 760), QSize(1920, 1080), QSize(3840, 2160)}) {
    window->resize(size);
    QApplication::processEvents();
    const auto* pane = Find<QWidget>("Picture1");
    std::vector<const graph::Caption*> shown;
    for (const graph::Caption* caption : pane->findChildren<graph::Caption*>()) {
      if (caption->isVisible()) shown.push_back(caption);
    }
    EXPECT_GT(shown.size(), 30u);
    // Each reaches a pixel beyond its letters.
    for (std::size_t i = 0; i < shown.size(); ++i) {
      const auto name = [&](std::size_t at) {
        return shown[at]->objectName().toStdString() + " at " + std::to_string(size.width());
      };
      EXPECT_TRUE(pane->rect().adjusted(-2, -2, 2, 2).contains(shown[i]->geometry())) << name(i);
      for (std::size_t j = 0; j < i; ++j) {
        const QRect both = shown[i]->geometry() & shown[j]->geometry();
        EXPECT_LE(std::min(both.width(), both.height()), 2) << name(i) << " and " << name(j);
      }
    }
  }
}

// Files that fall on the graph.

TEST_F(GraphWindowTest, AFileMayFallOnEitherPictureAndOnACaption) {
  Open();
  int value = 10;
  for (const char* target : {"Picture1", "Picture2", "Label5[3]", "Label6[4]"}) {
    const std::string text = std::to_string(++value);
    files.Put("/d/x.csv", "No.,Time,A\r\n1,0," + text + "\r\n");
    EXPECT_TRUE(Drop("/d/x.csv", target)) << target;
    EXPECT_EQ(Readings(), "1|0|" + text + "\n") << target;
    EXPECT_TRUE(Becomes("Label10[1]", "No.1\n" + text)) << target;
  }
}

TEST_F(GraphWindowTest, AFileThatFallsOnTheGraphOfUnsavedDataIsAskedAbout) {
  Open();
  Click("Command1");
  Reading("1");
  files.Put("/d/x.csv", "No.,Time,A\r\n1,0,7\r\n");
  dialogs.Answer(Answer::kNo);
  EXPECT_TRUE(Drop("/d/x.csv"));
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n");
  EXPECT_FALSE(Running());
}

// Odd values.

TEST_F(GraphWindowTest, AnyValueInAnyKindOnBothAxesAtAnySizeLeavesTheWindowWorking) {
  for (const char* axis : {"mLog[0]", "mLog[1]"}) {
    for (const char* kind : {"Option1[0]", "Option1[1]", "Option1[2]"}) {
      Open();
      Pick("mAxis", axis);
      Tick(kind);
      Picture();
      Run({"abc mPa.s,abc C"});
      Picture();
      Run({"-5 mPa.s,-5 C", "0 mPa.s,0 C", "1e308 mPa.s,-1e308 C", "-1e308 mPa.s,1e308 C",
           "1e-308 mPa.s,1e-308 C", "nan mPa.s,inf C", ",", "1e999 mPa.s,-1e999 C", ""});
      Picture();
      const auto ended = static_cast<int>(window->Document().Grid1().Rows());
      for (const QSize size : {QSize(200, 150), QSize(4000, 300), QSize(300, 3000), QSize(1200, 760)}) {
        window->resize(size);
        QApplication::processEvents();
        Pane();
        Halves().SetPosiLeft(15.0 * Halves().width() - 1500 - 15);  // all but nothing is left to the graph
        Pane();
        Picture();
        Halves().SetPosiLeft(7500);
      }
      for (const char* box : {"Check2", "Check3", "Check4"}) {
        Tick(box);
        Tick(box);
      }
      Tick("Option2[0]");
      Picture();
      EXPECT_TRUE(Becomes("Label10[1]", "No.1\nabc mPa.s"));
      Run({"50 mPa.s,20 C"});
      EXPECT_EQ(window->Document().Grid1().Rows(), ended + 1) << axis << " " << kind;
      EXPECT_TRUE(Becomes("Label10[3]", "No.3\n50"));
      EXPECT_TRUE(std::isfinite(Ranges().ViscoMin) && std::isfinite(Ranges().ViscoMax));
      EXPECT_TRUE(std::isfinite(Ranges().TempMin) && std::isfinite(Ranges().TempMax));
      window.reset();
      files.Remove(std::string(kFolder) + "/quenlor.ini");
    }
  }
}

TEST_F(GraphWindowTest, AnEmptyDocumentHasAPictureInEveryKindOnBothAxes) {
  Open();
  QImage before;
  for (const char* axis : {"mLog[1]", "mLog[0]"}) {
    Pick("mAxis", axis);
    for (const char* kind : {"Option1[1]", "Option1[2]", "Option1[0]"}) {
      Tick(kind);
      for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
      for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
      EXPECT_TRUE(Has(Picture(), Qt::white));
      EXPECT_TRUE(Has(Picture(), Qt::black)) << "the frame of the plot";
      for (int run = 0; run <= 10; ++run)
        EXPECT_FALSE(Shown(("Label10[" + std::to_string(run) + "]").c_str())) << run;
    }
  }
  EXPECT_EQ(Text("Label5[1]"), "3");
  EXPECT_EQ(Text("Label5[3]"), "100");
}

TEST_F(GraphWindowTest, ChoicesOfTheGraphAnswerAToggleThatIsNoClick) {
  Open();
  Find<QRadioButton>("Option1[2]")->toggle();
  EXPECT_TRUE(WaitFor([&] { return !Shown("Label7[3]"); })) << "no time axis";
  Find<QCheckBox>("Check3")->toggle();
  EXPECT_FALSE(Find<QRadioButton>("Option2[0]")->isEnabled());
}

}  // namespace
}  // namespace quenlor::app
