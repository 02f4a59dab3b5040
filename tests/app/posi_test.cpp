// SPDX-License-Identifier: MIT
#include "app/posi.h"

#include <QTest>
#include <cmath>

#include <gtest/gtest.h>

#include "tests/app/window/window_bench.h"

namespace quenlor::app {
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

class PosiTest : public testing::Test, protected WindowBench {
 protected:
  TableAndGraph& Halves() { return *window->findChild<TableAndGraph*>(); }
  void Drag(int pixels) {
    auto* bar = Find<QWidget>("Posi");
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(3, 50));
    QTest::mouseMove(bar, QPoint(3 + pixels, 50));
  }
  void Release() { QTest::mouseRelease(Find<QWidget>("Posi"), Qt::LeftButton, {}, QPoint(3, 50)); }
};

TEST_F(PosiTest, DraggingSharesTheWidthAtOnce) {
  Open();
  const double before = Halves().PosiLeft();
  Drag(40);
  EXPECT_EQ(Halves().PosiLeft(), before + 600);
  EXPECT_EQ(Find<QWidget>("Picture1")->x(), std::lround((before + 600 + 100) / 15));
  Release();
}

TEST_F(PosiTest, BeyondItsLimitsTheLastAcceptedPlaceStays) {
  Open();
  Drag(40);
  const double accepted = Halves().PosiLeft();
  QTest::mouseMove(Find<QWidget>("Posi"), QPoint(-2000, 50));
  EXPECT_EQ(Halves().PosiLeft(), accepted);
  QTest::mouseMove(Find<QWidget>("Posi"), QPoint(5000, 50));
  EXPECT_EQ(Halves().PosiLeft(), accepted);
  Release();
}

TEST_F(PosiTest, ThePlotKeepsItsPlaceUntilTheButtonIsReleased) {
  Open();
  const QRect before = Find<QWidget>("Picture2")->geometry();
  Drag(60);
  EXPECT_EQ(Find<QWidget>("Picture2")->geometry(), before);
  Release();
  EXPECT_NE(Find<QWidget>("Picture2")->geometry(), before);
}

TEST_F(PosiTest, WithoutRoomTheGraphKeepsItsSize) {
  Open();
  const int width = Find<QWidget>("Picture1")->width();
  Halves().SetPosiLeft(15 * Halves().width() - 50);
  EXPECT_EQ(Find<QWidget>("Picture1")->width(), width);
}

}  // namespace
}  // namespace quenlor::app
