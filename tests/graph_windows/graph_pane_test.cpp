// SPDX-License-Identifier: MIT
#include "graph/graph_pane.h"

#include <QFontMetrics>
#include <QImage>

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

TEST(Caption, ShowsOfALongTextWhatFitsBeforeAnEllipsis) {
  const auto shown = [](const QString& text, int width) {
    Caption caption(text);
    caption.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    caption.resize(width, 40);
    return caption.grab().toImage();
  };
  const QString name = QStringLiteral("Polymer 12");
  const QString cut = QStringLiteral("Polymer…");
  const QFontMetrics font(QLabel().font());
  const int room = font.horizontalAdvance(QStringLiteral("Polymer …")) - 1;
  ASSERT_LT(room, font.horizontalAdvance(name));
  EXPECT_TRUE(shown(name, room) == shown(cut, room));
  EXPECT_TRUE(shown(name + u'\n' + name, room) == shown(cut + u'\n' + cut, room));
  EXPECT_FALSE(shown(name, 400) == shown(cut, 400)) << "all of it has room";
}

}  // namespace
}  // namespace quenlor::graph
