// SPDX-License-Identifier: MIT
// A hand on the plot: wheel, drags, pinches and keys, and what the boxes say to it.

#include "tests/app/window/plot_hand.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>

#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

TEST_F(PlotHandTest, TheWheelZoomsAtThePointerAndTheBoxesTellAtOnce) {
  OpenTwoRuns();
  ASSERT_EQ(Ranges().TimeMax, 180);
  ASSERT_EQ(Boxes(), "xxx");
  const QImage before = Picture();
  Wheel(At(0.5, 0.5), 1);
  EXPECT_NEAR(Ranges().TimeMin, 18, 0.5);
  EXPECT_NEAR(Ranges().TimeMax, 162, 0.5);
  EXPECT_EQ(Boxes(), "..x") << "the temperature is not shown";
  EXPECT_FALSE(Find<QRadioButton>("Option2[0]")->isEnabled());
  EXPECT_TRUE(Picture() != before) << "without waiting for the next tick";
  EXPECT_NE(Text("Label5[0]"), "0");
}

TEST_F(PlotHandTest, ShiftZoomsTimeOnlyAndCtrlTheValueOnly) {
  OpenTwoRuns();
  const data::AxisRanges whole = Ranges();
  Wheel(At(0.5, 0.5), 1, Qt::ShiftModifier);
  EXPECT_EQ(Boxes(), ".xx");
  EXPECT_EQ(Ranges().ViscoMax, whole.ViscoMax);
  QTest::keyClick(Plot(), Qt::Key_Escape);
  EXPECT_EQ(Boxes(), "xxx");
  Wheel(At(0.5, 0.5), 1, Qt::ControlModifier);
  EXPECT_EQ(Boxes(), "x.x");
  EXPECT_EQ(Ranges().TimeMax, 180);
}

TEST_F(PlotHandTest, OverItsNumbersTheWheelZoomsOneAxis) {
  OpenTwoRuns();
  Tick("Option1[1]");
  QApplication::processEvents();
  const auto numbers = [&](const char* label) {
    return Plot()->mapFrom(window.get(), Find<QWidget>(label)->mapTo(window.get(), QPoint(3, 3)));
  };
  Wheel(numbers("Label8[4]"), 1);
  EXPECT_EQ(Boxes(), "x.x");
  Wheel(numbers("Label9[4]"), 1);
  EXPECT_EQ(Boxes(), "x..");
  Wheel(numbers("Label7[2]"), 1);
  EXPECT_EQ(Boxes(), "...");
}

TEST_F(PlotHandTest, ADragZoomsIntoItsBox) {
  OpenTwoRuns();
  const double top = Ranges().ViscoMax;
  Press(Qt::LeftButton, At(0.25, 0.25));
  const QImage pressed = Picture();
  Move(Qt::LeftButton, At(0.75, 0.75));
  EXPECT_TRUE(Picture() != pressed) << "the box is seen";
  EXPECT_EQ(Boxes(), "xxx") << "nothing has happened yet";
  Release(Qt::LeftButton, At(0.75, 0.75));
  EXPECT_NEAR(Ranges().TimeMin, 45, 0.5);
  EXPECT_NEAR(Ranges().TimeMax, 135, 0.5);
  EXPECT_LT(Ranges().ViscoMax, top);
  EXPECT_EQ(Boxes(), "..x");
}

TEST_F(PlotHandTest, EscLeavesABoxThatIsBeingDrawn) {
  OpenTwoRuns();
  Press(Qt::LeftButton, At(0.25, 0.25));
  Move(Qt::LeftButton, At(0.75, 0.75));
  QTest::keyClick(Plot(), Qt::Key_Escape);
  Release(Qt::LeftButton, At(0.75, 0.75));
  EXPECT_EQ(Ranges().TimeMax, 180);
  EXPECT_EQ(Boxes(), "xxx");
}

TEST_F(PlotHandTest, AClickMovesNothing) {
  OpenTwoRuns();
  QTest::mouseClick(Plot(), Qt::LeftButton, {}, At(0.5, 0.5));
  QTest::mouseClick(Plot(), Qt::MiddleButton, {}, At(0.5, 0.5));
  EXPECT_EQ(Boxes(), "xxx");
}

TEST_F(PlotHandTest, TheMiddleButtonShovesAndADoubleClickShowsTheWholeAgain) {
  OpenTwoRuns();
  Drag(Qt::MiddleButton, At(0.5, 0.5), At(0.25, 0.5));
  EXPECT_NEAR(Ranges().TimeMin, 45, 0.5);
  EXPECT_NEAR(Ranges().TimeMax, 225, 0.5);
  EXPECT_EQ(Boxes(), ".xx") << "an even shove leaves the value alone";
  QTest::mouseDClick(Plot(), Qt::LeftButton, {}, At(0.5, 0.5));
  EXPECT_EQ(Ranges().TimeMin, 0);
  EXPECT_EQ(Ranges().TimeMax, 180);
  EXPECT_EQ(Boxes(), "xxx");
}

TEST_F(PlotHandTest, SpaceAndADragShove) {
  OpenTwoRuns();
  QTest::keyPress(Plot(), Qt::Key_Space);
  EXPECT_EQ(Plot()->cursor().shape(), Qt::OpenHandCursor);
  Drag(Qt::LeftButton, At(0.5, 0.5), At(0.5, 0.75));
  QTest::keyRelease(Plot(), Qt::Key_Space);
  EXPECT_EQ(Boxes(), "x.x");
  EXPECT_EQ(Plot()->cursor().shape(), Qt::CrossCursor);
}

TEST_F(PlotHandTest, AltAndArrowsWalkThroughEarlierViews) {
  OpenTwoRuns();
  Wheel(At(0, 0.5), 1, Qt::ShiftModifier);
  EXPECT_EQ(Ranges().TimeMax, 144);
  Drag(Qt::LeftButton, At(0, 0), At(0.5, 1));
  EXPECT_NEAR(Ranges().TimeMax, 72, 0.5);
  const auto walk = [&](Qt::Key key) { QTest::keyClick(window.get(), key, Qt::AltModifier); };
  walk(Qt::Key_Left);
  EXPECT_EQ(Ranges().TimeMax, 144);
  walk(Qt::Key_Left);
  EXPECT_EQ(Ranges().TimeMax, 180);
  EXPECT_EQ(Boxes(), "xxx");
  walk(Qt::Key_Left);
  EXPECT_EQ(Ranges().TimeMax, 180);
  walk(Qt::Key_Right);
  EXPECT_EQ(Ranges().TimeMax, 144);
  EXPECT_EQ(Boxes(), ".xx");
}

TEST_F(PlotHandTest, KeysZoomAndShoveWhereThePlotHasTheFocus) {
  OpenTwoRuns();
  EXPECT_TRUE(Plot()->focusPolicy() & Qt::TabFocus);
  for (const char* key : {"Esc", "Wheel", "Alt+Left", "plus"}) {
    EXPECT_TRUE(Plot()->toolTip().contains(QLatin1String(key))) << key;
    EXPECT_TRUE(Plot()->accessibleDescription().contains(QLatin1String(key))) << key;
  }
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  Find<QWidget>("Grid1")->setFocus();
  QTest::keyClick(Find<QWidget>("Grid1"), Qt::Key_Tab);
  EXPECT_TRUE(Plot()->hasFocus()) << "the next one of the tables";
  Find<QWidget>("Grid1")->setFocus();
  const QImage without = Picture();
  Plot()->setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(Picture() != without) << "the focus is seen";
  QTest::keyClick(Plot(), Qt::Key_Plus);
  EXPECT_EQ(Ranges().TimeMin, 18);
  EXPECT_EQ(Ranges().TimeMax, 162);
  QTest::keyClick(Plot(), Qt::Key_Minus);
  EXPECT_EQ(Ranges().TimeMax, 180);
  QTest::keyClick(Plot(), Qt::Key_Right);
  EXPECT_EQ(Ranges().TimeMin, 18);
  EXPECT_EQ(Ranges().TimeMax, 198);
  QTest::keyClick(Plot(), Qt::Key_Up);
  EXPECT_EQ(Boxes(), "..x");
}

TEST_F(PlotHandTest, ATouchpadPinches) {
  OpenTwoRuns();
  const QPointF at = At(0.5, 0.5);
  QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, at,
                            Plot()->mapTo(window.get(), at), Plot()->mapToGlobal(at), 0.25, {});
  QApplication::sendEvent(Plot(), &pinch);
  EXPECT_NEAR(Ranges().TimeMin, 18, 0.5);
  EXPECT_NEAR(Ranges().TimeMax, 162, 0.5);
}

TEST_F(PlotHandTest, TwoFingersOnAScreenPinch) {
  OpenTwoRuns();
  const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
  const QPoint middle = At(0.5, 0.5);
  const auto fingers = [&](int apart) {
    return std::pair{middle - QPoint(apart, 0), middle + QPoint(apart, 0)};
  };
  const auto [left, right] = fingers(40);
  QTest::touchEvent(Plot(), screen.get()).press(1, left, Plot()).press(2, right, Plot());
  for (const int apart : {50, 60, 70, 80}) {
    const auto [to_left, to_right] = fingers(apart);
    QTest::touchEvent(Plot(), screen.get()).move(1, to_left, Plot()).move(2, to_right, Plot());
  }
  QTest::touchEvent(Plot(), screen.get())
      .release(1, fingers(80).first, Plot())
      .release(2, fingers(80).second, Plot());
  EXPECT_LT(Ranges().TimeMax - Ranges().TimeMin, 130);
  EXPECT_GT(Ranges().TimeMax - Ranges().TimeMin, 60);
  EXPECT_EQ(Boxes(), "..x");
}

TEST_F(PlotHandTest, WhileMeasuringTickedBoxesGoOnFollowing) {
  Open();
  Click("Command1");
  Reading("50");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n50"));
  Wheel(At(0, 0.5), 1, Qt::ShiftModifier);
  const double until = Ranges().TimeMax;
  Reading("5000");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n5000"));
  EXPECT_GE(Ranges().ViscoMax, 5000);
  EXPECT_EQ(Ranges().TimeMax, until);
}

TEST_F(PlotHandTest, WhatTheHandShowsIsSavedAsTypedLimitsAre) {
  OpenTwoRuns();
  Drag(Qt::LeftButton, At(0.25, 0.25), At(0.75, 0.75));
  const data::AxisRanges zoomed = Ranges();
  dialogs.Path("/d/zoomed.csv");
  Pick("mFile", "mSave");
  QTest::keyClick(Plot(), Qt::Key_Escape);
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  window->OpenFile("/d/zoomed.csv");
  EXPECT_NEAR(Ranges().TimeMin, zoomed.TimeMin, 1e-9);
  EXPECT_NEAR(Ranges().TimeMax, zoomed.TimeMax, 1e-9);
  EXPECT_NEAR(Ranges().ViscoMin, zoomed.ViscoMin, 1e-9);
}

}  // namespace
}  // namespace quenlor::app
