// SPDX-License-Identifier: MIT
// What the plot tells of its readings to a pointer, and how plot and tables point at each other.

#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <gtest/gtest.h>

#include "tests/app/window/plot_hand.h"

namespace quenlor::app {
namespace {

using platform::Answer;

class PlotReadoutTest : public PlotHandTest {
 protected:
  std::string Told() { return Find<graph::PlotPicture>("Picture2")->Told().toStdString(); }
  void PointAt(QPoint at) {
    QMouseEvent event(QEvent::MouseMove, at, Plot()->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(Plot(), &event);
  }
  // Of the second reading, 80 at 170 seconds.
  QPoint Second() {
    return At(170.0 / 180, (80 - Ranges().ViscoMin) / (Ranges().ViscoMax - Ranges().ViscoMin));
  }
  // Of the fourth one, 40 at 150 seconds in the other run.
  QPoint Fourth() {
    return At(150.0 / 180, (40 - Ranges().ViscoMin) / (Ranges().ViscoMax - Ranges().ViscoMin));
  }
  platform::qt::GridSelection Selected() { return Find<GridView>("Grid1")->Selection(); }
};

TEST_F(PlotReadoutTest, ThePointerIsToldTheNearestReading) {
  OpenTwoRuns();
  const QImage before = Picture();
  PointAt(Second() + QPoint(6, 5));
  EXPECT_EQ(Told(), "No.1\nTime  170\nViscosity  80 mPa.s\nTemp  30");
  EXPECT_TRUE(Picture() != before) << "cross-hair and plate";
  PointAt(Fourth());
  EXPECT_EQ(Told(), "No.2\nTime  150\nViscosity  40 mPa.s\nTemp  25");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(Plot(), &leave);
  EXPECT_EQ(Told(), "");
  EXPECT_TRUE(Picture() == before) << "nothing of it is part of the graph";
}

TEST_F(PlotReadoutTest, ThePlateFollowsTheViewAndGoesWithTheReadings) {
  OpenTwoRuns();
  PointAt(Second());
  Wheel(At(0, 0.5), 3, Qt::ShiftModifier);
  Picture();
  EXPECT_EQ(Told().substr(0, 11), "No.2\nTime  ") << "the second reading is out of view now";
  Pick("mFile", "mNew");
  ASSERT_TRUE(WaitFor([&] { return !Shown("Label10[1]"); }));
  Picture();
  EXPECT_EQ(Told(), "");
}

TEST_F(PlotReadoutTest, AClickSelectsTheRowOfTheReading) {
  OpenTwoRuns();
  QTest::mouseClick(Plot(), Qt::LeftButton, {}, Fourth());
  EXPECT_EQ(Selected().Row, 4);
  EXPECT_EQ(Selected().RowSel, 4);
  EXPECT_EQ(Find<GridView>("Grid2")->Selection().Row, 4);
  QTest::mouseClick(Plot(), Qt::LeftButton, {}, Second());
  EXPECT_EQ(Selected().Row, 2);
}

TEST_F(PlotReadoutTest, SelectedRowsAreMarkedInThePlot) {
  OpenTwoRuns();
  const QImage none = Picture();
  SelectRows(1, 1);
  const QImage one = Picture();
  EXPECT_TRUE(one != none);
  SelectRows(1, 2);
  EXPECT_TRUE(Picture() != one);
  Find<GridView>("Grid1")->clearSelection();
  EXPECT_TRUE(Picture() == none) << "no ring is left";
}

TEST_F(PlotReadoutTest, ManySelectedRowsAreMarkedAlongTheirCurve) {
  Open();
  std::string text = "No.,Time,Viscosity,Unit1,Temp\r\n";
  for (int i = 0; i < 1000; ++i)
    text += "1," + std::to_string(i) + ',' + std::to_string(50 + i % 7) + ",mPa.s,20\r\n";
  files.Put("/d/x.csv", text);
  window->OpenFile("/d/x.csv");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n55"));
  Find<GridView>("Grid1")->selectRow(0);
  Find<GridView>("Grid1")->clearSelection();
  const QImage none = Picture();
  Find<GridView>("Grid1")->selectAll();
  EXPECT_TRUE(Picture() != none);
  Pick("mFile", "mNew");
  ASSERT_TRUE(WaitFor([&] { return !Shown("Label10[1]"); }));
  const QImage empty = Picture();
  Find<GridView>("Grid1")->clearSelection();
  EXPECT_TRUE(Picture() == empty) << "another document has no marks";
}

TEST_F(PlotReadoutTest, TwoClicksWithCtrlCompareTwoReadings) {
  OpenTwoRuns();
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Fourth());
  EXPECT_EQ(Told().find("A to B"), std::string::npos);
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Second());
  EXPECT_NE(Told().find("A to B\nTime  +0.3333 min\nViscosity  +40\nTemp  +5\nSlope  +120 / min"),
            std::string::npos)
      << Told();
  EXPECT_EQ(Selected().Row, 0) << "no row is chosen by that";
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Fourth());
  EXPECT_EQ(Told().find("A to B"), std::string::npos) << "the third one is A again";
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Second());
  QTest::keyClick(Plot(), Qt::Key_Escape);
  EXPECT_EQ(Told().find("A to B"), std::string::npos);
}

TEST_F(PlotReadoutTest, TheCrossHairGoesBelowTheDifferenceOfTheMarks) {
  OpenTwoRuns();
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Fourth());
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Second());
  PointAt(Second());
  const QImage picture = Picture();
  const QColor ground = Plot()->palette().color(QPalette::ToolTipBase);
  const int x = static_cast<int>(Second().x() * picture.devicePixelRatio());
  int untouched = 0;
  for (int y = 0; y < picture.height(); ++y) untouched += picture.pixelColor(x, y) == ground ? 1 : 0;
  EXPECT_GT(untouched, 20);
}

TEST_F(PlotReadoutTest, MarksGoWhenReadingsAreOthers) {
  OpenTwoRuns();
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Fourth());
  QTest::mouseClick(Plot(), Qt::LeftButton, Qt::ControlModifier, Second());
  SelectRows(2, 3);
  dialogs.Answer(Answer::kOk);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  Picture();  // before the tick, and after it
  ASSERT_TRUE(WaitFor([&] { return !Shown("Label10[2]"); }));
  Picture();
  EXPECT_EQ(Told().find("A to B"), std::string::npos);
}

TEST_F(PlotReadoutTest, MissingReadingsAreMarkedAndCounted) {
  Open();
  std::string text = "No.,Time,Viscosity,Unit1,Temp\r\n";
  for (int i = 0; i < 30; ++i) {
    if (i == 12 || i == 13) continue;
    text += "1," + std::to_string(5 * i) + ",50,mPa.s,20\r\n";
  }
  const QColor tick(0xE0, 0x60, 0x00);
  files.Put("/d/whole.csv", "No.,Time,Viscosity\r\n1,0,50\r\n1,1,50\r\n");
  files.Put("/d/x.csv", text);
  window->OpenFile("/d/whole.csv");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n50"));
  EXPECT_FALSE(Has(Picture(), tick));
  window->OpenFile("/d/x.csv");
  ASSERT_TRUE(WaitFor([&] { return Has(Picture(), tick); }));
  EXPECT_EQ(Find<QLabel>("StatusDocument")->text(),
            QStringLiteral("x.csv · 1 gap, about 2 readings missing"));
  PointAt(At(0.1, 0.5));
  EXPECT_NE(Told().find("1 gap, about 2 readings missing"), std::string::npos) << Told();
  Tick("Option1[2]");
  EXPECT_TRUE(WaitFor([&] { return !Has(Picture(), tick); })) << "there is no time axis";
}

TEST_F(PlotReadoutTest, TheTipOfTheKeysDoesNotCoverThePlate) {
  OpenTwoRuns();
  const auto tip = [&] {
    QToolTip::hideText();
    EXPECT_TRUE(WaitFor([] { return !QToolTip::isVisible(); }));
    QHelpEvent help(QEvent::ToolTip, Second(), Plot()->mapToGlobal(Second()));
    QApplication::sendEvent(Plot(), &help);
    return QToolTip::isVisible();
  };
  EXPECT_TRUE(tip());
  PointAt(Second());
  EXPECT_FALSE(tip());
}

}  // namespace
}  // namespace quenlor::app
