// SPDX-License-Identifier: MIT
#include "graph/posi.h"

#include <QTest>
#include <cmath>

#include <gtest/gtest.h>

#include "tests/graph_windows/pane_bench.h"

namespace quenlor::graph {
namespace {

TEST(Posi, TheTableKeeps3600AndTheGraph2000) {
  EXPECT_FALSE(posi::MayMoveTo(3600, 20000));
  EXPECT_TRUE(posi::MayMoveTo(3601, 20000));
  EXPECT_TRUE(posi::MayMoveTo(17999, 20000));
  EXPECT_FALSE(posi::MayMoveTo(18000, 20000));
}

TEST(Posi, ShrinkingTheWindowPullsTheBarInside) {
  EXPECT_EQ(posi::AfterResize(9000, 8000), 7950);
  EXPECT_EQ(posi::AfterResize(7000, 8000), 7000);
  EXPECT_EQ(posi::AfterResize(9000, 3650), 9000) << "not in a window that narrow";
  EXPECT_EQ(posi::AfterResize(9000, 3651), 3601);
}

class PosiTest : public testing::Test {
 protected:
  PosiTest() {
    halves_.resize(1000, 600);
    halves_.show();
  }
  TableAndGraph& Halves() { return halves_; }
  QWidget* Find(const char* name) { return halves_.findChild<QWidget*>(QLatin1String(name)); }
  void Drag(int pixels) {
    QTest::mousePress(Find("Posi"), Qt::LeftButton, {}, QPoint(3, 50));
    QTest::mouseMove(Find("Posi"), QPoint(3 + pixels, 50));
  }
  void ShowPainted() {
    Halves().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Halves()));
    Halves().repaint();
  }
  void Release() { QTest::mouseRelease(Find("Posi"), Qt::LeftButton, {}, QPoint(3, 50)); }

 private:
  PaneBench bench_;
  TableAndGraph halves_{new QWidget,
                        new GraphPane(bench_.document, bench_.live, bench_.settings, bench_.colors, nullptr),
                        nullptr};
};

TEST_F(PosiTest, DraggingSharesTheWidthAtOnce) {
  const double before = Halves().PosiLeft();
  Drag(40);
  EXPECT_EQ(Halves().PosiLeft(), before + 600);
  EXPECT_EQ(Find("Picture1")->x(), std::lround((before + 600 + 100) / platform::kTwipsPerPixel));
  Release();
}

TEST_F(PosiTest, BeyondItsLimitsTheLastAcceptedPlaceStays) {
  Drag(40);
  const double accepted = Halves().PosiLeft();
  QTest::mouseMove(Find("Posi"), QPoint(-2000, 50));
  EXPECT_EQ(Halves().PosiLeft(), accepted);
  QTest::mouseMove(Find("Posi"), QPoint(5000, 50));
  EXPECT_EQ(Halves().PosiLeft(), accepted);
  Release();
}

TEST_F(PosiTest, ThePlotKeepsItsPlaceUntilTheButtonIsReleased) {
  const QRect before = Find("Picture2")->geometry();
  Drag(60);
  EXPECT_EQ(Find("Picture2")->geometry(), before);
  Release();
  EXPECT_NE(Find("Picture2")->geometry(), before);
}

TEST_F(PosiTest, ARestoredBarWaitsForTheSizeAtWhichTheWindowIsFirstSeen) {
  Halves().hide();
  Halves().resize(600, 600);
  Halves().RestorePosiLeft(14000);
  EXPECT_EQ(Halves().PosiLeft(), 600 * 15 - 50);
  Halves().resize(1000, 600);
  EXPECT_EQ(Halves().PosiLeft(), 600 * 15 - 50) << "hidden, it is not laid out";
  ShowPainted();
  EXPECT_EQ(Halves().PosiLeft(), 14000);
}

TEST_F(PosiTest, ARestoredBarThatWasPulledInIsNotPushedOutByAWindowThatGrows) {
  Halves().hide();
  Halves().resize(600, 600);
  Halves().RestorePosiLeft(14000);
  ShowPainted();
  Halves().resize(1000, 600);
  EXPECT_EQ(Halves().PosiLeft(), 600 * 15 - 50);
}

TEST_F(PosiTest, WithoutRoomTheGraphKeepsItsSize) {
  const int width = Find("Picture1")->width();
  Halves().SetPosiLeft(platform::kTwipsPerPixel * Halves().width() - 50);
  EXPECT_EQ(Find("Picture1")->width(), width);
}

}  // namespace
}  // namespace quenlor::graph
