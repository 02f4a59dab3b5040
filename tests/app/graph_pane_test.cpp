// SPDX-License-Identifier: MIT
// The graph when it is seen for the first time, and again after a while.

#include "app/graph_pane.h"

#include <QImage>
#include <QPushButton>

#include <gtest/gtest.h>

#include "tests/app/window/window_bench.h"

namespace quenlor::app {
namespace {

QImage Graph(WindowBench& bench) { return bench.Find<GraphPane>("Picture1")->grab().toImage(); }

// Another document: its captions, its axes.
void AFileIsOpened(WindowBench& bench) {
  bench.files.Put("/d/x.csv", "No.,Time,Torque,Unit,Oven\r\n1,0,10,N,20\r\nMemo,as,it,was\r\n");
  bench.window->OpenFile("/d/x.csv");
}

// New readings rescale the axes; another axis, another size.
void MuchHappens(WindowBench& bench) {
  AFileIsOpened(bench);
  auto* start = bench.Find<QPushButton>("Command1");
  start->click();
  bench.Reading("7000.5,N,180");
  bench.Reading("6000.5,N,190");
  start->click();
  bench.Choose("mLog[0]");
  bench.window->resize(1300, 820);
}

struct Happening {
  const char* name;
  void (*happen)(WindowBench&);
};

void PrintTo(const Happening& happening, std::ostream* out) { *out << happening.name; }

class HiddenGraph : public testing::TestWithParam<Happening> {};

TEST_P(HiddenGraph, ShowsAtOnceWhatHasHappenedMeanwhile) {
  WindowBench hidden;
  hidden.Open();
  const QImage before = Graph(hidden);
  hidden.window->hide();
  GetParam().happen(hidden);
  hidden.window->show();
  const QImage shown = Graph(hidden);
  EXPECT_NE(shown, before);

  WindowBench watched;
  watched.Open();
  GetParam().happen(watched);
  EXPECT_TRUE(WaitFor([&] { return Graph(watched) == shown; }));
}

INSTANTIATE_TEST_SUITE_P(Happenings, HiddenGraph,
                         testing::Values(Happening{"AFileIsOpened", AFileIsOpened},
                                         Happening{"MuchHappens", MuchHappens}),
                         [](const auto& instance) { return instance.param.name; });

struct NoView : graph::GraphView {
  void Fig() override {}
  void PlotRow(data::Document::Row) override {}
  void CaptionsChanged() override {}
};

TEST(GraphPane, DrawsAtFirstWhatItDrawsLater) {
  std::string text = "No.,Time,Viscosity,Unit1,Temp\r\n";
  for (int i = 0; i < 250; ++i)  // as many as would not be smooth on a narrower plot
    text += "1," + std::to_string(i) + ',' + std::to_string(30 + i % 37) + ",mPa.s,25\r\n";
  data::SettingsList settings;
  data::Document document{settings};
  NoView view;
  graph::LiveGraph live{document, settings, view};
  document.Load(data::ParseDataFile(text), "x.csv", "");
  graph::ColorSettings colors;

  GraphPane pane(document, live, settings, colors, nullptr);
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
  const int room = font.horizontalAdvance(QStringLiteral("Polymer …"));
  ASSERT_LT(room, font.horizontalAdvance(name));
  EXPECT_TRUE(shown(name, room) == shown(cut, room));
  EXPECT_TRUE(shown(name + u'\n' + name, room) == shown(cut + u'\n' + cut, room));
  EXPECT_FALSE(shown(name, 400) == shown(cut, 400)) << "all of it has room";
}

}  // namespace
}  // namespace quenlor::app
