// SPDX-License-Identifier: MIT
#include "reports/page_record.h"

#include <gtest/gtest.h>

#include "platform/memory/recording_surface.h"

namespace quenlor::reports {
namespace {

using platform::Across;
using platform::Down;
using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Segment;
using platform::Viewport;
using platform::memory::RecordingSurface;

constexpr double kInch = 1440;  // twips

void DrawSome(DrawingSurface& surface) {
  const Segment lines[] = {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}};
  surface.SetViewport({{10, 20, 300, 400}, {0, 0, 10, 10}});
  surface.Clear({1, 2, 3});
  surface.SetPen({{9, 8, 7}, 2, platform::LineStyle::kDotted, true});
  surface.DrawLines(lines);
  surface.DrawCircle({1, 1}, 5);
  surface.SetPen({{4, 5, 6}});
  surface.DrawCross({2, 2}, 3, 4);
  surface.DrawText({3, 3}, Across::kRight, Down::kBottom, "12", 7);
}

TEST(PageRecord, IsAsManyDotsLargeAsThePageHasRoomFor) {
  const PageRecord page(8 * kInch, 11 * kInch, {});
  EXPECT_EQ(page.Whole(), (PixelRectangle{0, 0, 9600, 13200}));
  EXPECT_EQ(page.PenScale(), 12.5);
}

TEST(PageRecord, ReplaysTheVeryCallsAsOftenAsWanted) {
  RecordingSurface drawn(1200, 1200);
  DrawSome(drawn);
  PageRecord page(kInch, kInch, {});
  DrawSome(page);
  for (int time = 0; time < 2; ++time) {
    RecordingSurface replayed(1200, 1200);
    page.Replay(replayed);
    EXPECT_EQ(replayed.Calls(), drawn.Calls());
    EXPECT_EQ(replayed.LineBatches(), drawn.LineBatches());
  }
}

TEST(PageRecord, MeasuresTextInTheViewportsUnits) {
  PageRecord page(kInch, kInch, [](std::string_view text, double height) {
    return static_cast<double>(text.size()) * height;
  });
  page.SetViewport({{0, 0, 1200, 1200}, {0, 0, 1440, 1440}});
  EXPECT_NEAR(page.TextWidth("1234", 144), 4 * 144, 1e-9);
}

TEST(PageRecord, APageOfNoSizeIsEmpty) {
  const PageRecord page;
  EXPECT_TRUE(page.Whole().Empty());
  EXPECT_EQ(page.TextWidth("1", 1), 0);
}

}  // namespace
}  // namespace quenlor::reports
