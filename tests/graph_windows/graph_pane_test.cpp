// SPDX-License-Identifier: MIT
#include "graph/graph_pane.h"

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <cmath>

#include <gtest/gtest.h>

#include "graph/graph_picture.h"
#include "platform/qt/qt_drawing_surface.h"
#include "tests/graph_windows/pane_bench.h"

namespace quenlor::graph {
namespace {

TEST(GraphPane, DrawsAtFirstWhatItDrawsLater) {
  PaneBench bench;
  std::string readings;
  for (int i = 0; i < 250; ++i)  // as many as would not be smooth on a narrower plot
    readings += "1," + std::to_string(i) + ',' + std::to_string(30 + i % 37) + ",mPa.s,25\r\n";
  bench.Open(readings);

  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  const QImage first = pane.grab().toImage();
  pane.Fig();
  EXPECT_TRUE(pane.grab().toImage() == first);
}

TEST(GraphPane, ShowsACutTitleWholeInItsToolTip) {
  PaneBench bench;
  bench.Open("1,0,30,mPa.s,25\r\n");
  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  auto* title = pane.findChild<Caption*>(QStringLiteral("Label6[1]"));
  EXPECT_EQ(title->toolTip(), "Title of the left axis");
  const QImage whole = title->grab().toImage();

  const std::string name = "<b>Apparent</b> viscosity " + std::string(200, 'm');
  bench.document.SetTitle(bench.document.ViscoColumn(), name);
  pane.LayoutLabels();
  EXPECT_EQ(title->text().toStdString(), name);
  EXPECT_TRUE(title->toolTip().contains(QStringLiteral("&lt;b&gt;Apparent")))
      << title->toolTip().toStdString();
  EXPECT_FALSE(title->grab().toImage() == whole);
}

TEST(GraphPane, AnEndlessNameLeavesTheValueInTheLegend) {
  PaneBench bench;
  bench.Open("1,0,30.25,mPa.s,25\r\n");
  bench.document.SetSampleName(1, std::string(5000, 'm'));
  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  const auto* entry = pane.findChild<Caption*>(QStringLiteral("Label10[1]"));
  EXPECT_TRUE(entry->text().endsWith(QStringLiteral("\n30.25")));
}

TEST(GraphPane, CutsNothingOffTheLettersOfItsCaptions) {
  const double ratio = qApp->devicePixelRatio();
  if (ratio != std::floor(ratio))
    GTEST_SKIP() << "a window begins within a pixel, where letters look different";
  PaneBench bench;
  bench.colors = {{}, Scheme::White};  // black, so that no edge is soft
  std::string readings;
  for (int run = 1; run <= 10; ++run) readings += std::to_string(run) + ",0,12345.5,mPa.s,25\r\n";
  bench.Open(readings);
  bench.document.SetTitle(bench.document.ViscoColumn(), "Viscosity (mPa.s)");
  for (const bool long_names : {false, true}) {
    for (int run = 1; long_names && run <= 10; ++run)
      bench.document.SetSampleName(run, "Suspension (quickly) " + std::to_string(run));
    for (const QSize size : {QSize(700, 520), QSize(801, 607), QSize(1201, 777)}) {
      GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
      pane.resize(size);
      pane.show();
      const QImage shown = pane.grab().toImage().convertToFormat(QImage::Format_RGB32);
      QImage picture(shown.size(), QImage::Format_RGB32);
      {
        QPainter painter(&picture);
        platform::qt::QtDrawingSurface surface(painter, picture.size(), ratio);
        Plot plot(bench.live.Values());
        plot.Set(pane.Settings(), bench.document.Ranges());
        DrawGraphPicture(surface, plot, CaptionsOf(bench.document, bench.live), pane.LargestText());
      }
      // In the picture nothing is cut. A line of letters may stand a pixel higher there.
      const QRect plot = pane.findChild<QWidget*>(QStringLiteral("Picture2"))->geometry();
      const QRectF within_the_hairline = QRectF(pane.rect()).adjusted(1, 1, -1.01, -1.01);
      const auto ink_around_the_plot = [&](const QImage& image) {
        long long ink = 0;
        for (int y = 0; y < image.height(); ++y) {
          for (int x = 0; x < image.width(); ++x) {
            const QPointF at = QPointF(x, y) / ratio;
            const bool around = !plot.adjusted(-2, -2, 2, 2).contains(at.toPoint());
            if (around && within_the_hairline.contains(at)) ink += 255 - qGray(image.pixel(x, y));
          }
        }
        return ink;
      };
      EXPECT_EQ(ink_around_the_plot(shown), ink_around_the_plot(picture))
          << size.width() << (long_names ? ", long names" : "");
    }
  }
}

TEST(GraphPane, ACutNameIsWholeInItsToolTipWhateverItLooksLike) {
  PaneBench bench;
  bench.Open("1,0,30.25,mPa.s,25\r\n");
  const std::string name = "<b>lot</b> " + std::string(150, 'm') + " no. 3";
  bench.document.SetSampleName(1, name);
  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  auto* entry = pane.findChild<Caption*>(QStringLiteral("Label10[1]"));
  QHelpEvent help(QEvent::ToolTip, {5, 5}, entry->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(entry, &help);
  QTextDocument shown;
  shown.setHtml(entry->toolTip());
  EXPECT_EQ(shown.toPlainText().toStdString(),
            name + "\nFirst: 0, 30.25 mPa.s, 25\nLast: 0, 30.25 mPa.s, 25\n1 reading");
}

TEST(GraphPane, AWhiteRunOnWhiteIsSeenInTheLegend) {
  PaneBench bench;
  bench.colors = {{{{0}, {0xFFFFFF}, {0x0000FF}}}, Scheme::White};
  bench.Open("1,0,30,mPa.s,25\r\n2,0,30,mPa.s,25\r\n");
  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  const auto counted = [&](const char* name, const auto& is_counted) {
    const QRect place = pane.findChild<Caption*>(QString::fromLatin1(name))->geometry();
    const QImage picture = pane.grab(place).toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += is_counted(picture.pixelColor(x, y));
    }
    return count;
  };
  EXPECT_GT(counted("Label10[1]", [](const QColor& color) { return color.lightness() < 140; }), 150)
      << "the bar's edge and the outlines";
  EXPECT_GT(counted("Label10[2]", [](const QColor& color) { return color == QColor(Qt::red); }), 200)
      << "the bar";
}

}  // namespace
}  // namespace quenlor::graph
