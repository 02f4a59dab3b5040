// SPDX-License-Identifier: MIT
// A picture that keeps lines, laid over pixels, looks like the picture that is made of pixels.

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "graph/graph_picture.h"
#include "graph/plot_look.h"
#include "platform/qt/qt_drawing_surface.h"
#include "tests/graph/opened_file.h"
#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::qt::QtDrawingSurface;

constexpr QSize kPixels(600, 400);
constexpr int kDotsPerPixel = 10;

QImage OfPixels(const std::function<void(DrawingSurface&)>& draw) {
  QImage image(kPixels, QImage::Format_RGB32);
  QPainter painter(&image);
  QtDrawingSurface surface(painter, kPixels);
  EXPECT_FALSE(surface.KeepsLines());
  draw(surface);
  return image;
}

QImage OfLines(const std::function<void(DrawingSurface&)>& draw) {
  QPicture lines;
  {
    QPainter painter(&lines);
    QtDrawingSurface surface(painter, kPixels * kDotsPerPixel, kDotsPerPixel);
    EXPECT_TRUE(surface.KeepsLines());
    draw(surface);
  }
  QImage image(kPixels * 2, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.scale(2.0 / kDotsPerPixel, 2.0 / kDotsPerPixel);
  painter.drawPicture(0, 0, lines);
  return image;
}

// Of all parts of the picture where there is something, how many look different from some way off: a line may
// lie a pixel aside, for one picture is made of whole pixels.
double PartsThatDiffer(const QImage& one, const QImage& other) {
  const auto from_afar = [](const QImage& image) {
    return image.scaled(kPixels / 8, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  };
  const QImage a = from_afar(one);
  const QImage b = from_afar(other);
  int inked = 0;
  int differ = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor p = a.pixelColor(x, y);
      const QColor q = b.pixelColor(x, y);
      inked += p != QColor(Qt::white);
      differ += std::max({std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                          std::abs(p.blue() - q.blue())}) > 80;
    }
  }
  EXPECT_GT(inked, 300);
  return 1.0 * differ / inked;
}

struct Case {
  const char* name;
  GraphKind kind;
  int readings;
  int runs = 1;
  int line_width = 2;
  int marker_every = 0;
  int log_axis = 0;
  double noise = 1;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.name; }

std::string FileOf(const Case& one) {
  Dice dice(8);
  std::string text = "No.,Time,Viscosity,Unit1,Temp\n";
  for (int run = 1; run <= one.runs; ++run) {
    for (int i = 0; i < one.readings; ++i) {
      const double part = 1.0 * i / one.readings;
      const double visco = 30 * run + 60 * part + one.noise * dice.Real(-1, 1) - (dice.Once(500) ? 200 : 0);
      const double temp = 60 - 30 * part + one.noise * dice.Real(-1, 1);
      text += std::to_string(run) + "," + CellText(3600 * part) + "," + CellText(visco) + ",mPa.s," +
              CellText(temp) + "\n";
    }
  }
  return text;
}

class KeptPictures : public testing::TestWithParam<Case> {};

TEST_P(KeptPictures, LookLikePicturesOfPixels) {
  const Case& one = GetParam();
  OpenedFile file(FileOf(one), "oil.csv");
  file.settings.Set(data::setting::kLW, one.line_width);
  file.settings.Set(data::setting::kMK, one.marker_every);
  file.settings.Set(data::setting::kLog, one.log_axis);
  file.graph.ViscoAxisChanged();
  file.graph.SetKind(one.kind);
  Plot plot(file.graph.Values());
  plot.Set(PlotLook(file.graph, file.settings, {}, kPixels.width()), file.document.Ranges());
  const auto draw = [&](DrawingSurface& surface) {
    DrawGraphPicture(surface, plot, CaptionsOf(file.document, file.graph));
  };
  EXPECT_LE(PartsThatDiffer(OfPixels(draw), OfLines(draw)), 0.02);
}

INSTANTIATE_TEST_SUITE_P(
    Of, KeptPictures,
    testing::Values(Case{"FewReadings", GraphKind::ViscoTime, 30, 3, 2, 1},
                    Case{"FewReadingsOfBothCurves", GraphKind::ViscoTempTime, 40, 1, 1, 1},
                    Case{"ALogarithmicAxis", GraphKind::ViscoTime, 3000, 2, 1, 0, 1},
                    Case{"Runs", GraphKind::ViscoTempTime, 5000, 10, 1, 0, 0, 5},
                    Case{"Noise", GraphKind::ViscoTime, 60'000, 1, 2, 0, 0, 30},
                    Case{"BothCurvesInOneNoise", GraphKind::ViscoTempTime, 60'000, 1, 2, 0, 0, 30},
                    Case{"MarkersInNoise", GraphKind::ViscoTempTime, 5000, 1, 1, 1, 0, 10},
                    Case{"AgainstANoisyTemperature", GraphKind::ViscoTemp, 20'000, 1, 1, 0, 0, 20}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace quenlor::graph
