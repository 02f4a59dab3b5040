// SPDX-License-Identifier: MIT
#include <QImage>
#include <QPainter>
#include <QPen>
#include <memory>
#include <string>
#include <vector>

#include "bench/pair.h"
#include "bench/readings.h"
#include "data/data_file.h"
#include "graph/plot.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::bench {
namespace {

using Table = data::MeasurementTable;

constexpr int kVisco = 2;
constexpr int kTemp = 4;
constexpr int kNewReadings = 1000;  // in one measurement

// A graph of many readings on a picture that is kept, and a few that come one by one.
class NewestReading {
 public:
  explicit NewestReading(Table::Row readings)
      : readings_(readings),
        table_(data::ParseDataFile(DataFileText(readings + kNewReadings)).table),
        plot_(values_),
        kept_(plot_),
        picture_(960, 604, QImage::Format_RGB32) {
    data::AxisRanges ranges;
    ranges.TimeMax = static_cast<double>(readings + kNewReadings);
    ranges.ViscoMax = 250;
    plot_.Set({}, ranges);
  }

  // Each is copied from the table and drawn, as the window does it with readings that are not faster
  // than the screen.
  double ShowEach() {
    ShowTheFirst();
    return Seconds([&] {
      for (Table::Row row = readings_ + 1; row < table_.EntryRow(); ++row) {
        Copy(row);
        Draw();
      }
    });
  }

  // As many single lines.
  double LineEach() {
    const QPen pen(Qt::red, 2);
    return Seconds([&] {
      for (int i = 0; i < kNewReadings; ++i) {
        QPainter painter(&picture_);
        painter.setPen(pen);
        painter.drawLine(949, 200 + i % 50, 950, 240 - i % 60);
      }
    });
  }

 private:
  void ShowTheFirst() {
    values_ = {};
    for (Table::Row row = 1; row <= readings_; ++row) Copy(row);
    Draw();
  }

  void Copy(Table::Row row) {
    values_.Copy_Time(table_, row);
    values_.Copy_Visco(table_, row, kVisco);
    values_.Copy_Temp(table_, row, kTemp);
  }

  void Draw() {
    QPainter painter(&picture_);
    platform::qt::QtDrawingSurface surface(painter, picture_.size());
    kept_.Update(surface, surface.Whole());
  }

  Table::Row readings_;
  Table table_;
  graph::ValueArrays values_;
  graph::Plot plot_;
  graph::KeptPlot kept_;
  QImage picture_;
};

}  // namespace

void AddNewestReadingRows() {
  for (const Table::Row readings : {10'000, 1'000'000}) {
    const std::string name = readings == 10'000 ? "10 k" : "1 M";
    AddRow({.work = "newest reading: shown after " + name + ", to one line",
            .goal = "at most 4.2 (5 us where a line takes 1.2)",
            .repetitions = 15,
            .things = kNewReadings},
           [readings] {
             const auto newest = std::make_shared<NewestReading>(readings);
             return Pair{[newest] { return newest->ShowEach(); }, [newest] { return newest->LineEach(); }};
           });
  }
  AddRow({.work = "newest reading: shown after 1 M, to after 10 k",
          .goal = "at most 1.2",
          .repetitions = 15,
          .things = kNewReadings},
         [] {
           const auto many = std::make_shared<NewestReading>(1'000'000);
           const auto few = std::make_shared<NewestReading>(10'000);
           return Pair{[many] { return many->ShowEach(); }, [few] { return few->ShowEach(); }};
         });
}

}  // namespace quenlor::bench
