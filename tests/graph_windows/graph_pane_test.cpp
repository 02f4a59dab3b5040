// SPDX-License-Identifier: MIT
#include "graph/graph_pane.h"

#include <QImage>
#include <QTextDocument>

#include <gtest/gtest.h>

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

TEST(GraphPane, ACutNameIsWholeInItsToolTipWhateverItLooksLike) {
  PaneBench bench;
  bench.Open("1,0,30.25,mPa.s,25\r\n");
  const std::string name = "<b>lot</b> " + std::string(150, 'm') + " no. 3";
  bench.document.SetSampleName(1, name);
  GraphPane pane(bench.document, bench.live, bench.settings, bench.colors, nullptr);
  pane.resize(800, 600);
  pane.show();
  const QString tip = pane.findChild<Caption*>(QStringLiteral("Label10[1]"))->toolTip();
  QTextDocument shown;
  shown.setHtml(tip);
  EXPECT_EQ(shown.toPlainText().simplified().toStdString(), name + " 30.25");
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
