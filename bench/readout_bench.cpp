// SPDX-License-Identifier: MIT
#include <limits>
#include <memory>
#include <string>

#include "bench/open_document.h"
#include "bench/pair.h"
#include "bench/readings.h"
#include "graph/readout.h"

namespace quenlor::bench {
namespace {

using graph::GraphKind;
using graph::Index;
using Point = graph::PlotPixels::Point;

constexpr Index kReadings = 10'000'000;
constexpr double kWidth = 900;
constexpr double kHeight = 600;
constexpr int kPlaces = 400;  // of a pointer, all over the plot

// A document's plot, and a pointer on it.
class Pointed {
 public:
  explicit Pointed(GraphKind kind) {
    opened_.Open(DataFileText(kReadings, 1, kind == GraphKind::ViscoTemp));
    axes_.SetScales(opened_.session.Document().Ranges(), kind, graph::ViscoAxis::Linear);
  }

  double Ours() {
    return Seconds([&] {
             for (int place = 0; place < kPlaces; ++place)
               found_ += NearestReading(Values(), Pixels(), At(place))->index;
           }) /
           kPlaces;
  }

  // Every point, one by one.
  double Plain() {
    const Point pointer = At(kPlaces / 2 + kPlaces / 40);
    return Seconds([&] {
      double nearest = std::numeric_limits<double>::infinity();
      for (Index i = 0; i < Values().Size(); ++i) {
        const Point at = Pixels().Of(Values(), i, graph::Quantity::Visco);
        const double across = at.x - pointer.x;
        const double down = at.y - pointer.y;
        const double distance = across * across + down * down;
        if (distance >= nearest) continue;
        nearest = distance;
        found_ += i;
      }
    });
  }

 private:
  const graph::ValueArrays& Values() const { return opened_.session.Graph().Values(); }
  graph::PlotPixels Pixels() const { return {axes_, kWidth, kHeight}; }
  static Point At(int place) { return {place % 20 * kWidth / 20, place / 20 * kHeight / 20}; }

  OpenDocument opened_;
  graph::PlotAxes axes_;
  Index found_ = 0;
};

void AddPointerRow(const std::string& over, GraphKind kind) {
  AddRow({.work = "readout: the nearest of 10 M readings over " + over + ", to looking at all readings",
          .goal = "well under 1 ms",
          .repetitions = 3,
          .shown = Shown::TimesFast},
         [kind] {
           const auto pointed = std::make_shared<Pointed>(kind);
           return Pair{[pointed] { return pointed->Ours(); }, [pointed] { return pointed->Plain(); }};
         });
}

}  // namespace

void AddReadoutRows() {
  AddPointerRow("time", GraphKind::ViscoTime);
  AddPointerRow("a noisy temperature", GraphKind::ViscoTemp);
}

}  // namespace quenlor::bench
