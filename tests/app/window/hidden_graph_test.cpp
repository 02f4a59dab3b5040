// SPDX-License-Identifier: MIT
// The graph that is seen again after a while.

#include <QImage>
#include <QPushButton>

#include <gtest/gtest.h>

#include "graph/graph_pane.h"
#include "tests/app/window/window_bench.h"

namespace quenlor::app {
namespace {

QImage Graph(WindowBench& bench) { return bench.Find<graph::GraphPane>("Picture1")->grab().toImage(); }

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

}  // namespace
}  // namespace quenlor::app
