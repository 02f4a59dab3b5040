// SPDX-License-Identifier: MIT
#include "reports/print_form.h"

#include <QImage>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/memory/recording_surface.h"
#include "platform/qt/page_painter.h"

namespace quenlor::reports {
namespace {

using platform::DrawingSurface;
using platform::PageSize;

constexpr PageSize kA4{11906, 16838};
constexpr PageSize kCard{6000, 4500};  // 400 by 300 pixels

void DrawCross(DrawingSurface& page) {
  page.SetViewport({page.Whole(), {0, 0, 100, 100}});
  page.Clear({255, 255, 255});
  page.SetPen({{0, 0, 200}, 4});
  page.DrawLine({0, 50}, {100, 50});
  page.DrawLine({50, 0}, {50, 100});
}

QImage Shown(PrintForm& form) { return form.grab().toImage().convertToFormat(QImage::Format_RGB32); }

TEST(PrintForm, IsAsLargeAsThePageAtTheScreensCorner) {
  PrintForm form;
  form.ShowPage(kCard);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Print"));
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(form.size(), QSize(400, 300));
  EXPECT_EQ(form.pos(), form.screen()->availableGeometry().topLeft());
}

TEST(PrintForm, APageLargerThanTheScreenIsShownWhole) {
  PrintForm form;
  form.ShowPage({10 * kA4.width, 10 * kA4.height});
  EXPECT_TRUE(form.screen()->availableGeometry().contains(form.frameGeometry()));
  EXPECT_NEAR(1.0 * form.width() / form.height(), kA4.width / kA4.height, 0.01);
}

TEST(PrintForm, FitsTheScreenWithItsFrameHoweverThePaperIsTurned) {
  PrintForm form;
  const QRect room = form.screen()->availableGeometry();
  for (const PageSize& page :
       {PageSize{10 * kA4.height, 10 * kA4.width}, {10 * kA4.width, 10 * kA4.height}}) {
    form.ShowPage(page);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_GT(form.frameSize().height(), form.height()) << "this screen has frames";
    EXPECT_TRUE(room.contains(form.frameGeometry())) << testing::PrintToString(page.width);
    EXPECT_EQ(form.frameGeometry().topLeft(), room.topLeft());
    form.hide();
  }
}

TEST(PrintForm, ShowsWhatIsDrawnOnThePage) {
  PrintForm form;
  form.ShowPage(kCard);
  form.Draw(DrawCross);
  const QImage shown = Shown(form);
  const auto at = [&](int x, int y) { return shown.pixelColor(QPoint(x, y) * shown.devicePixelRatio()); };
  EXPECT_GT(at(100, 150).blue(), at(100, 150).red() + 100);
  EXPECT_GT(at(200, 50).blue(), at(200, 50).red() + 100);
  EXPECT_EQ(at(100, 50), QColor(Qt::white));
}

TEST(PrintForm, KeepsThePageUntilTheNextOne) {
  PrintForm form;
  form.ShowPage(kCard);
  form.Draw(DrawCross);
  form.hide();
  const auto calls = [&] {
    platform::memory::RecordingSurface surface;
    form.Page().Replay(surface);
    return surface.Calls().size();
  };
  EXPECT_GT(calls(), 0U);
  form.ShowPage(kCard);
  EXPECT_EQ(calls(), 0U);
}

TEST(PrintForm, CannotBeClosedWhileTheQuestionWaits) {
  PrintForm form;
  form.ShowPage(kCard);
  EXPECT_FALSE(form.close());
  EXPECT_TRUE(form.isVisible());
}

TEST(PrintForm, APageOfNoSizeIsShownWithoutHarm) {
  PrintForm form;
  form.ShowPage({0, 0});
  form.Draw(DrawCross);
  Shown(form);
  EXPECT_TRUE(form.isVisible());
}

}  // namespace
}  // namespace quenlor::reports
