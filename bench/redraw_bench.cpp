// SPDX-License-Identifier: MIT
#include <QImage>
#include <QPainter>
#include <memory>
#include <string>

#include "bench/open_document.h"
#include "bench/pair.h"
#include "bench/plain_curves.h"
#include "bench/readings.h"
#include "graph/plot.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::bench {
namespace {

using graph::GraphKind;
using graph::Index;

constexpr QSize kPixels(1200, 800);

std::vector<double> Numbers(const graph::ValueColumn& column, Index begin, Index end) {
  std::vector<double> numbers;
  for (Index i = begin; i < end; ++i) numbers.push_back(column[i]);
  return numbers;
}

// A document's graph on a picture, and the same curves as the plain ways draw them.
class Redraw {
 public:
  Redraw(Index readings, int runs, GraphKind kind = GraphKind::ViscoTime)
      : plot_(opened_.session.Graph().Values()),
        picture_(kPixels, QImage::Format_RGB32),
        plain_(MakePlain()) {
    opened_.Open(DataFileText(readings, runs, kind == GraphKind::ViscoTemp));
    graph::PlotSettings settings;
    settings.kind = kind;
    plot_.Set(settings, opened_.session.Document().Ranges());
    plain_ = MakePlain();
    for (std::size_t run = 0; run < opened_.session.Graph().Values().Runs().size(); ++run) AddPlainRun(run);
  }

  double Ours() {
    return Seconds([&] {
      QPainter painter(&picture_);
      platform::qt::QtDrawingSurface surface(painter, picture_.size());
      plot_.Fig(surface, layout_);
    });
  }

  double Plain(void (PlainCurves::*draw)(QPainter&) const) {
    return Seconds([&] {
      picture_.fill(Qt::white);
      QPainter painter(&picture_);
      (plain_.*draw)(painter);
    });
  }

 private:
  PlainCurves MakePlain() const {
    const data::AxisRanges& ranges = opened_.session.Document().Ranges();
    const bool over_temp = plot_.Settings().kind == GraphKind::ViscoTemp;
    const double x_min = over_temp ? ranges.TempMin : ranges.TimeMin;
    const double x_max = over_temp ? ranges.TempMax : ranges.TimeMax;
    const auto area = layout_.Picture2Pixels({0, 0, kPixels.width(), kPixels.height()});
    return {QRect(area.left, area.top, area.width, area.height),
            QRectF(x_min, ranges.ViscoMin, x_max - x_min, ranges.ViscoMax - ranges.ViscoMin),
            plot_.Settings().LineWidth};
  }

  void AddPlainRun(std::size_t run) {
    const graph::ValueArrays& values = opened_.session.Graph().Values();
    const Index begin = values.Runs()[run].first;
    const Index end = values.RunEnd(run);
    const graph::ValueColumn& xs =
        plot_.Settings().kind == GraphKind::ViscoTemp ? values.Temp() : values.Time();
    const QColor color = QColor::fromHsv(static_cast<int>(run) * 36, 255, 200);
    plain_.AddRun(color, Numbers(xs, begin, end), Numbers(values.Visco(), begin, end));
  }

  const graph::PlotLayout layout_{static_cast<float>(kPixels.width() * platform::kTwipsPerPixel),
                                  static_cast<float>(kPixels.height() * platform::kTwipsPerPixel)};
  OpenDocument opened_;
  graph::Plot plot_;
  QImage picture_;
  PlainCurves plain_;
};

struct Scene {
  std::string name;
  Index readings;
  int runs;
  std::string naive_goal;
};

using Baseline = void (PlainCurves::*)(QPainter&) const;

void AddRedrawRow(Row row, const Scene& scene, Baseline baseline) {
  row.work = "redraw: " + scene.name + ", " + row.work;
  AddRow(row, [scene, baseline] {
    const auto redraw = std::make_shared<Redraw>(scene.readings, scene.runs);
    return Pair{[redraw] { return redraw->Ours(); }, [redraw, baseline] { return redraw->Plain(baseline); }};
  });
}

// A redraw beside one of a tenth or a hundredth of the readings.
void AddGrowthRow(const std::string& work, const std::string& goal, Index many, Index few, int runs) {
  AddRow({.work = "redraw: " + work, .goal = goal, .repetitions = 31}, [=] {
    const auto large = std::make_shared<Redraw>(many, runs);
    const auto small = std::make_shared<Redraw>(few, runs);
    return Pair{[large] { return large->Ours(); }, [small] { return small->Ours(); }};
  });
}

}  // namespace

void AddRedrawRows() {
  const Scene scenes[] = {{"1 M readings", 1'000'000, 1, "68 x faster"},
                          {"10 M readings", 10'000'000, 1, "340 x faster"},
                          {"10 runs of 100 k", 1'000'000, 10, "68 x faster"},
                          {"10 runs of 1 M", 10'000'000, 10, "340 x faster"}};
  for (const Scene& scene : scenes) {
    AddRedrawRow({.work = "to a call for each line",
                  .goal = scene.naive_goal,
                  .repetitions = 3,
                  .shown = Shown::TimesFast},
                 scene, &PlainCurves::DrawEveryLine);
    AddRedrawRow({.work = "to looking at all readings", .goal = "-", .shown = Shown::TimesFast}, scene,
                 &PlainCurves::DrawColumns);
    AddRedrawRow({.work = "to blocks of 256 readings", .goal = "at most 1.5", .repetitions = 31}, scene,
                 &PlainCurves::DrawSummaries);
  }
  AddGrowthRow("10 M readings, to 100 k", "at most 3", 10'000'000, 100'000, 1);
  AddGrowthRow("10 runs of 1 M, to 10 runs of 10 k", "at most 3", 10'000'000, 100'000, 10);
  for (const Index millions : {1, 10}) {
    AddRow({.work = "redraw: " + std::to_string(millions) +
                    " M readings over a noisy temperature, to a call for each line",
            .goal = millions == 1 ? "15 ms" : "40 ms",
            .repetitions = 3,
            .shown = Shown::TimesFast},
           [millions] {
             const auto redraw = std::make_shared<Redraw>(millions * 1'000'000, 1, GraphKind::ViscoTemp);
             return Pair{[redraw] { return redraw->Ours(); },
                         [redraw] { return redraw->Plain(&PlainCurves::DrawEveryLine); }};
           });
  }
}

}  // namespace quenlor::bench
