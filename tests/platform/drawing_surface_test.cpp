// SPDX-License-Identifier: MIT
#include "platform/drawing_surface.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <limits>
#include <memory>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/recording_surface.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::platform {

void PrintTo(const PixelRectangle& r, std::ostream* out) {
  *out << r.width << " x " << r.height << " at " << r.left << ", " << r.top;
}

namespace {

using memory::RecordingSurface;
using qt::QtDrawingSurface;
using testing::ElementsAre;
using namespace std::string_view_literals;
using Kind = RecordingSurface::Call::Kind;

constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kBlue{0, 0, 255};

TEST(Viewport, EveryPositionBelongsToThePixelThatHoldsIt) {
  const Viewport viewport({10, 20, 100, 50}, {-60, -100, 6120, 10200});

  EXPECT_EQ(viewport.Column(-60), 10);
  EXPECT_EQ(viewport.Column(-60 + 61.1), 10);
  EXPECT_EQ(viewport.Column(-60 + 61.3), 11);
  EXPECT_EQ(viewport.Column(-60 - 0.1), 9);
  EXPECT_EQ(viewport.Column(6060), 110);
  EXPECT_EQ(viewport.Row(-100), 20);
  EXPECT_EQ(viewport.Row(10099), 69);
}

TEST(Viewport, TheWayBackFromADevicePositionEndsWhereItBegan) {
  const Viewport viewport({10, 20, 300, 200}, {-60, -100, 6120, 10200});
  for (const double x : {-60.0, 0.0, 1234.5, 6060.0}) EXPECT_NEAR(viewport.XAt(viewport.DeviceX(x)), x, 1e-9);
}

TEST(Viewport, FarAwayPositionsAndThoseThatAreNoNumberHaveAPixelToo) {
  const Viewport viewport({0, 0, 40000, 50}, {0, 0, 1, 1});
  const double nan = std::numeric_limits<double>::quiet_NaN();

  EXPECT_EQ(viewport.Column(1e308), Viewport::kFarthest);
  EXPECT_EQ(viewport.Column(-1e308), -Viewport::kFarthest);
  EXPECT_EQ(viewport.Row(std::numeric_limits<double>::infinity()), Viewport::kFarthest);
  EXPECT_EQ(viewport.Column(nan), -Viewport::kFarthest);
}

TEST(Viewport, RoundSizesLieBetweenThoseOfTheTwoWays) {
  const Viewport viewport({0, 0, 160, 40}, {0, 0, 1000, 1000});

  EXPECT_EQ(viewport.Across(100), 16);
  EXPECT_EQ(viewport.Down(100), 4);
  EXPECT_DOUBLE_EQ(viewport.Round(100), 8);
}

// What holds for the twin holds for the adapter.
struct SurfaceUnderTest {
  virtual ~SurfaceUnderTest() = default;
  virtual DrawingSurface& Surface() = 0;
  virtual bool WasClearedTo(Rgb color) = 0;  // just now
};

struct Twin : SurfaceUnderTest {
  RecordingSurface surface{100, 50, 2};
  DrawingSurface& Surface() override { return surface; }
  bool WasClearedTo(Rgb color) override {
    const auto& last = surface.Calls().back();
    return last.kind == Kind::kClear && last.pen.color == color;
  }
};

struct Adapter : SurfaceUnderTest {
  QImage image{100, 50, QImage::Format_RGB32};
  QPainter painter{&image};
  QtDrawingSurface surface{painter, image.size(), 2};
  DrawingSurface& Surface() override { return surface; }
  bool WasClearedTo(Rgb color) override {
    return image.pixelColor(50, 25) == QColor(color.red, color.green, color.blue);
  }
};

template <class Under>
class DrawingSurfaceContract : public testing::Test {
 protected:
  Under under_;
};

using Surfaces = testing::Types<Twin, Adapter>;
TYPED_TEST_SUITE(DrawingSurfaceContract, Surfaces, );

TYPED_TEST(DrawingSurfaceContract, TellsItsSizeAndThatOfAThinLine) {
  EXPECT_EQ(this->under_.Surface().Whole(), (PixelRectangle{0, 0, 100, 50}));
  EXPECT_EQ(this->under_.Surface().PenScale(), 2);
}

TYPED_TEST(DrawingSurfaceContract, KeepsTheViewport) {
  const Viewport viewport({10, 10, 50, 20}, {-1, -1, 2, 2});
  this->under_.Surface().SetViewport(viewport);
  EXPECT_EQ(this->under_.Surface().CurrentViewport(), viewport);
}

TYPED_TEST(DrawingSurfaceContract, BearsEveryCoordinateAndDrawsOn) {
  DrawingSurface& surface = this->under_.Surface();
  const double kFar[] = {0,
                         1e308,
                         -1e308,
                         1e7,
                         -1e7,
                         40000,
                         std::numeric_limits<double>::infinity(),
                         std::numeric_limits<double>::quiet_NaN()};
  for (const bool smooth : {false, true}) {
    for (const int width : {1, 2}) {
      surface.SetPen({kRed, 1.0 * width, LineStyle::kSolid, smooth});
      for (const double x : kFar) {
        for (const double y : kFar) {
          surface.DrawLine({x, y}, {y, x});
          surface.DrawLine({x, y}, {x, 3});
          surface.DrawCircle({x, y}, 4);
          surface.DrawCross({x, y}, 4, 8);
          surface.DrawText({x, y}, Across::kCentre, Down::kCentre, "text", 10);
        }
      }
    }
  }
  surface.DrawLines({});

  surface.Clear(kBlue);
  EXPECT_TRUE(this->under_.WasClearedTo(kBlue));
}

TYPED_TEST(DrawingSurfaceContract, MeasuresTextInTheViewportsUnits) {
  DrawingSurface& surface = this->under_.Surface();
  surface.SetViewport({{0, 0, 100, 50}, {0, 0, 100, 50}});
  const double width = surface.TextWidth("0000", 20);
  EXPECT_GT(width, 20);
  EXPECT_LT(width, 80);
  EXPECT_NEAR(surface.TextWidth("00000000", 20), 2 * width, 1);
  EXPECT_NEAR(surface.TextWidth("0000", 40), 2 * width, 2);
  EXPECT_EQ(surface.TextWidth("", 20), 0);

  surface.SetViewport({{0, 0, 100, 50}, {0, 0, 1000, 50}});
  EXPECT_NEAR(surface.TextWidth("0000", 20), 10 * width, 1);
}

// ---- the twin

TEST(RecordingSurface, RecordsEveryCallWithPenAndViewport) {
  RecordingSurface surface;
  const Viewport viewport({1, 2, 3, 4}, {0, 0, 10, 10});
  const Segment lines[] = {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}};
  surface.SetViewport(viewport);
  surface.Clear(kBlue);
  surface.SetPen({kRed, 2, LineStyle::kDotted});
  surface.DrawLines(lines);
  surface.DrawCircle({1, 1}, 5);
  surface.DrawCross({2, 2}, 3, 4);
  surface.DrawText({3, 3}, Across::kRight, Down::kBottom, "12", 7);

  const auto& calls = surface.Calls();
  ASSERT_EQ(calls.size(), 6U);
  EXPECT_EQ(calls[0].kind, Kind::kClear);
  EXPECT_EQ(calls[0].pen.color, kBlue);
  EXPECT_EQ(calls[1].line, lines[0]);
  EXPECT_EQ(calls[2].line, lines[1]);
  EXPECT_EQ(calls[2].pen, (Pen{kRed, 2, LineStyle::kDotted}));
  EXPECT_EQ(calls[2].viewport, viewport);
  EXPECT_EQ(calls[3].across, 5);
  EXPECT_EQ(calls[4].across, 3);
  EXPECT_EQ(calls[4].down, 4);
  EXPECT_EQ(calls[5].text, "12");
  EXPECT_EQ(calls[5].text_across, Across::kRight);
  EXPECT_EQ(calls[5].down, 7);
  EXPECT_EQ(surface.LineBatches(), 1);
  EXPECT_EQ(surface.Calls(Kind::kLine).size(), 2U);
}

// ---- the adapter

using Pixel = std::pair<int, int>;

class QtSurface : public testing::Test {
 protected:
  explicit QtSurface(double pen_scale = 1) : surface_(painter_, image_.size(), pen_scale) {
    image_.fill(Qt::white);
    surface_.SetPen({kRed});
  }

  std::set<Pixel> Painted() const {
    std::set<Pixel> pixels;
    for (int y = 0; y < image_.height(); ++y) {
      for (int x = 0; x < image_.width(); ++x) {
        if (image_.pixelColor(x, y) != QColor(Qt::white)) pixels.insert({x, y});
      }
    }
    return pixels;
  }

  QImage image_{40, 30, QImage::Format_RGB32};
  QPainter painter_{&image_};
  QtDrawingSurface surface_;
};

TEST_F(QtSurface, DrawsFromPixelToPixelBothIncluded) {
  surface_.SetViewport({{0, 0, 40, 30}, {0, 0, 400, 300}});
  surface_.DrawLine({39, 50}, {61, 50});
  EXPECT_THAT(Painted(), ElementsAre(Pixel(3, 5), Pixel(4, 5), Pixel(5, 5), Pixel(6, 5)));
}

TEST_F(QtSurface, ALineWithoutLengthIsADot) {
  surface_.DrawLine({7, 8}, {7, 8});
  EXPECT_THAT(Painted(), ElementsAre(Pixel(7, 8)));
}

TEST_F(QtSurface, AWideDotIsAsWideAsThePen) {
  surface_.SetPen({kRed, 2});
  surface_.DrawLine({7, 8}, {7, 8});
  EXPECT_THAT(Painted(), ElementsAre(Pixel(6, 7), Pixel(6, 8), Pixel(7, 7), Pixel(7, 8)));
}

TEST_F(QtSurface, HasTheColoursAsGiven) {
  surface_.SetPen({{1, 200, 30}});
  surface_.DrawLine({1, 1}, {5, 1});
  surface_.DrawCircle({20, 15}, 4);
  EXPECT_EQ(image_.pixelColor(3, 1), QColor(1, 200, 30));
  EXPECT_EQ(image_.pixelColor(24, 15), QColor(1, 200, 30));
}

TEST_F(QtSurface, TouchesNothingOutsideOfTheViewport) {
  surface_.SetViewport({{10, 10, 5, 4}, {0, 0, 5, 4}});
  surface_.Clear(kBlue);
  surface_.SetPen({kRed, 2});
  surface_.DrawLine({-100, -100}, {100, 100});
  surface_.DrawLine({2, -100}, {2, 100});
  surface_.DrawCircle({2, 2}, 3);
  surface_.DrawCross({0, 0}, 8, 8);
  surface_.DrawText({0, 0}, Across::kCentre, Down::kCentre, "MMMM", 20);

  const auto painted = Painted();
  EXPECT_EQ(painted.size(), 20U);
  EXPECT_EQ(*painted.begin(), Pixel(10, 10));
  EXPECT_EQ(*painted.rbegin(), Pixel(14, 13));
}

TEST_F(QtSurface, ACircleIsRoundWhereTheUnitsAreNotSquare) {
  surface_.SetViewport({{0, 0, 40, 30}, {0, 0, 40, 480}});
  surface_.DrawCircle({20, 240}, 20);

  const auto painted = Painted();
  EXPECT_TRUE(painted.contains({15, 15}));
  EXPECT_TRUE(painted.contains({25, 15}));
  EXPECT_TRUE(painted.contains({20, 10}));
  EXPECT_TRUE(painted.contains({20, 20}));
  EXPECT_FALSE(painted.contains({20, 15})) << "an outline only";
}

TEST_F(QtSurface, ACrossIsTwoDiagonals) {
  surface_.DrawCross({20, 15}, 2, 4);

  const auto painted = Painted();
  for (const Pixel& corner : {Pixel(18, 11), Pixel(22, 11), Pixel(18, 19), Pixel(22, 19), Pixel(20, 15)}) {
    EXPECT_TRUE(painted.contains(corner)) << corner.first << ", " << corner.second;
  }
  EXPECT_FALSE(painted.contains({20, 11}));
}

TEST_F(QtSurface, TheSecondOfEqualMarkersLooksLikeTheFirst) {
  const auto moved = [](const std::set<Pixel>& pixels, int by) {
    std::set<Pixel> other;
    for (const auto& [x, y] : pixels) other.insert({x + by, y});
    return other;
  };
  surface_.SetPen({kRed, 2});
  surface_.DrawCircle({8, 10}, 4);
  surface_.DrawCross({8, 20}, 3, 5);
  auto expected = Painted();
  surface_.DrawCircle({28, 10}, 4);
  surface_.DrawCross({28, 20}, 3, 5);

  expected.merge(moved(expected, 20));
  EXPECT_EQ(Painted(), expected);
}

TEST_F(QtSurface, ADottedLineHasGaps) {
  surface_.SetPen({kRed, 1, LineStyle::kDotted});
  surface_.DrawLine({0, 5}, {39, 5});
  EXPECT_GT(Painted().size(), 10U);
  EXPECT_LT(Painted().size(), 30U);
}

TEST_F(QtSurface, ASmoothLineHasSoftEdges) {
  surface_.SetPen({kRed, 1, LineStyle::kSolid, true});
  surface_.DrawLine({2, 2}, {35, 10});
  std::set<QRgb> colors;
  for (const auto& [x, y] : Painted()) colors.insert(image_.pixel(x, y));
  EXPECT_GT(colors.size(), 5U);
}

// Upright lines of a wide pen are filled as rectangles; they are the pixels that the painter's own line has.
TEST_F(QtSurface, WideUprightLinesAreThoseOfThePainter) {
  for (const double pen_scale : {1.0, 1.5, 2.0, 2.5}) {
    for (const int bottom : {10, 11, 20, 500}) {
      QImage drawn(40, 30, QImage::Format_RGB32);
      QImage expected(40, 30, QImage::Format_RGB32);
      drawn.fill(Qt::white);
      expected.fill(Qt::white);
      QPainter drawn_painter(&drawn);
      QtDrawingSurface surface(drawn_painter, drawn.size(), pen_scale);
      surface.SetPen({kRed, 2});
      surface.DrawLine({10, static_cast<double>(bottom)}, {10, 10});
      QPainter painter(&expected);
      painter.setPen(drawn_painter.pen());
      painter.drawLine(10, bottom, 10, 10);
      painter.end();

      EXPECT_EQ(drawn, expected) << pen_scale << " to " << bottom;
    }
  }
}

class QtSurfaceOfFinePixels : public QtSurface {
 protected:
  QtSurfaceOfFinePixels() : QtSurface(2) {}
};

TEST_F(QtSurfaceOfFinePixels, AThinLineIsAsManyPixelsWideAsItsScaleSays) {
  surface_.DrawLine({10, 10}, {10, 20});
  EXPECT_TRUE(Painted().contains({9, 15}));
  EXPECT_TRUE(Painted().contains({10, 15}));
  EXPECT_FALSE(Painted().contains({8, 15}));
  EXPECT_FALSE(Painted().contains({11, 15}));
}

struct TextPlace {
  Across across;
  Down down;
  QRect expected;
};

class QtSurfaceText : public QtSurface, public testing::WithParamInterface<TextPlace> {};

TEST_P(QtSurfaceText, GrowsAwayFromItsPosition) {
  surface_.DrawText({20, 15}, GetParam().across, GetParam().down, "0", 9);
  const auto painted = Painted();
  ASSERT_FALSE(painted.empty());
  for (const auto& [x, y] : painted) {
    EXPECT_TRUE(GetParam().expected.contains(x, y)) << x << ", " << y;
  }
}

INSTANTIATE_TEST_SUITE_P(All, QtSurfaceText,
                         testing::Values(TextPlace{Across::kLeft, Down::kTop, {20, 15, 10, 15}},
                                         TextPlace{Across::kRight, Down::kTop, {10, 15, 10, 15}},
                                         TextPlace{Across::kLeft, Down::kBottom, {20, 0, 10, 15}},
                                         TextPlace{Across::kCentre, Down::kCentre, {15, 8, 10, 14}}));

TEST_F(QtSurface, AnOutlineRoundLettersMakesThemStandOutFromTheirGround) {
  Pen white{{255, 255, 255}};
  surface_.SetPen(white);
  surface_.DrawText({20, 15}, Across::kCentre, Down::kCentre, "H", 20);
  EXPECT_TRUE(Painted().empty()) << "white on white";

  white.outline = kBlue;
  surface_.SetPen(white);
  surface_.DrawText({20, 15}, Across::kCentre, Down::kCentre, "H", 20);
  const QImage outlined = image_;
  int outline = 0;
  int letter = 0;
  image_.fill(Qt::white);
  surface_.SetPen({kRed});
  surface_.DrawText({20, 15}, Across::kCentre, Down::kCentre, "H", 20);
  for (int y = 0; y < image_.height(); ++y) {
    for (int x = 0; x < image_.width(); ++x) {
      outline += outlined.pixelColor(x, y).red() < 128;
      // Where the letter is, nothing of the outline is left.
      if (image_.pixelColor(x, y) != QColor(Qt::red)) continue;
      ++letter;
      EXPECT_EQ(outlined.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
    }
  }
  EXPECT_GT(outline, 10);
  EXPECT_GT(letter, 5);
}

TEST_F(QtSurface, AnOutlineIsTheSameWhateverWasDrawnBefore) {
  Pen pen{kRed};
  pen.outline = kBlue;
  surface_.SetPen(pen);
  const auto drawn = [&](double height) {
    image_.fill(Qt::white);
    surface_.DrawText({20, 15}, Across::kCentre, Down::kCentre, "60", height);
    return image_.copy();
  };
  std::vector<QImage> first;
  for (const double height : {17, 18, 19}) first.push_back(drawn(height));
  for (const int at : {0, 1, 2}) EXPECT_EQ(drawn(17 + at), first[static_cast<std::size_t>(at)]) << 17 + at;
}

TEST_F(QtSurface, WhatIsNoCharacterIsABlank) {
  for (const std::string_view unknown :
       {"\0"sv, "\x1F"sv, "\t"sv, "\n"sv, "\x7F"sv, "\xC2\x9F"sv, "\xEF\xBF\xBE"sv, "\xEF\xBF\xBF"sv}) {
    const std::string text = "a" + std::string(unknown) + "b";
    EXPECT_EQ(surface_.TextWidth(text, 9), surface_.TextWidth("a b", 9)) << testing::PrintToString(unknown);
  }
}

TEST(QtSurfaceOnAPage, WritesLinesMarkersAndText) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    QPainter painter(&writer);
    QtDrawingSurface surface(painter, {writer.width(), writer.height()}, writer.resolution() / 96.0);
    surface.SetPen({kRed, 2});
    surface.DrawLine({10, 10}, {10, 500});
    surface.DrawCircle({100, 100}, 50);
    surface.DrawText({200, 200}, Across::kLeft, Down::kTop, "Viscosity", 200);
  }
  EXPECT_TRUE(bytes.data().startsWith("%PDF"));
  EXPECT_GT(bytes.size(), 1000);
}

TEST(QtSurfaceWithoutAPicture, DrawsNothing) {
  QPainter painter;
  QtDrawingSurface surface(painter, {0, 0});
  surface.SetViewport({{0, 0, 10, 10}, {0, 0, 1, 1}});
  surface.Clear(kRed);
  surface.SetPen({kRed, 2});
  surface.DrawLine({0, 0}, {1, 1});
  surface.DrawCircle({0, 0}, 1);
  surface.DrawText({0, 0}, Across::kLeft, Down::kTop, "text", 1);
  EXPECT_TRUE(surface.Whole().Empty());
}

}  // namespace
}  // namespace quenlor::platform
