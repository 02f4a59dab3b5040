// SPDX-License-Identifier: MIT
#include "graph/plot_overlay.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "graph/readable_color.h"
#include "graph/screen_color.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::graph {
namespace {

using platform::qt::ToQString;

constexpr double kAway = 14;  // pixels; of a plate from its reading
constexpr double kTick = 2;   // pixels wide
constexpr Color kWarning{0x0060E0};

QString Lines(const std::vector<std::string>& lines) {
  QStringList texts;
  for (const std::string& line : lines) texts += ToQString(line);
  return texts.join(QLatin1Char('\n'));
}

QRectF PlateFor(const QPainter& painter, const QString& text) {
  const QFontMetricsF metrics(painter.font());
  return metrics.boundingRect(QRectF(0, 0, 4000, 4000), Qt::AlignLeft, text).adjusted(-7, -4, 7, 4);
}

void DrawPlate(QPainter& painter, const QRectF& plate, const QString& text, const QColor& edge,
               const QPalette& palette) {
  painter.setPen(QPen(edge, 1.5));
  painter.setBrush(palette.color(QPalette::ToolTipBase));
  painter.drawRoundedRect(plate, 3, 3);
  painter.setPen(palette.color(QPalette::ToolTipText));
  painter.drawText(plate.adjusted(7, 4, -7, -4), Qt::AlignLeft, text);
}

}  // namespace

PlotOverlay::PlotOverlay(const Plot& plot, const data::Document& document, const LiveGraph& graph,
                         const ColorSettings& colors)
    : plot_(plot), document_(document), graph_(graph), colors_(colors), marks_(graph.Values()) {}

void PlotOverlay::Point(std::optional<QPointF> pointer) {
  pointer_ = pointer;
  FindNear();
}

void PlotOverlay::FindNear() {
  near_ = pointer_ && !size_.isEmpty()
              ? NearestReading(graph_.Values(), Pixels(), {pointer_->x(), pointer_->y()}, alone_)
              : std::nullopt;
}

std::optional<Index> PlotOverlay::Near() const { return near_ ? std::optional(near_->index) : std::nullopt; }

void PlotOverlay::Compare() {
  if (!near_) return;
  if (a_ && !b_) {
    b_ = near_->index;
  } else {
    a_ = near_->index;
    b_.reset();
  }
}

void PlotOverlay::Forget() {
  a_.reset();
  b_.reset();
}

// Which reading a mark meant is no longer known when readings have gone or come between.
void PlotOverlay::Follow(QSizeF size, int alone) {
  size_ = size;
  alone_ = alone;
  if (std::exchange(generation_, graph_.Values().Generation()) != graph_.Values().Generation()) Forget();
  FindNear();
  ticks_.Follow(graph_.Missing(), graph_.Values(), Pixels(), alone_);
}

QPointF PlotOverlay::PlaceOf(Index index, Quantity quantity) const {
  const PlotPixels::Point at = Pixels().Of(graph_.Values(), index, quantity);
  return {at.x, at.y};
}

QColor PlotOverlay::ColorOf(Index index, Quantity quantity) const {
  const ValueArrays& values = graph_.Values();
  const int run = values.Runs()[values.RunOf(index)].number;
  const QuantityColors colors = CurveColors(colors_.Colors(), run, values.SeveralSeries());
  return ToQColor(quantity == Quantity::Visco ? colors.visco : colors.temp);
}

std::vector<std::string> PlotOverlay::Told() const {
  if (!near_ || !Drawn()) return {};
  const ValueArrays& values = graph_.Values();
  std::vector<std::string> lines = ReadingTold(document_, values, near_->index);
  const std::size_t run = values.RunOf(near_->index);
  const std::string holes = HolesTold(graph_.Missing().Within(values.Runs()[run].first, values.RunEnd(run)));
  if (!holes.empty()) lines.push_back(holes);
  return lines;
}

std::vector<std::string> PlotOverlay::Compared() const {
  if (!a_ || !b_ || !Drawn()) return {};
  return BetweenTold(graph_.Values(), *a_, *b_, graph_.View(), graph_.Kind());
}

void PlotOverlay::Paint(QPainter& painter, const QPalette& palette, double ratio) {
  if (!Drawn()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  marks_.Paint(painter, plot_.Axes(), size_, ratio, ToQColor(colors_.GridColor()));
  PaintTicks(painter);
  PaintCross(painter);
  PaintCompared(painter, palette);
  PaintNear(painter, palette);
}

// In the margin below the lower axis.
void PlotOverlay::PaintTicks(QPainter& painter) const {
  const QColor ink =
      ToQColor(CanBeRead(kWarning, colors_.BackColor()) ? kWarning : EdgeOf(kWarning, colors_.BackColor()));
  const double top = Pixels().Bottom() + 1;
  for (const double x : ticks_.Places())
    painter.fillRect(QRectF(x - kTick / 2, top, kTick, size_.height() - top), ink);
}

void PlotOverlay::PaintCompared(QPainter& painter, const QPalette& palette) const {
  const QColor ink = ToQColor(colors_.GridColor());
  for (const auto& [index, letter] : {std::pair{a_, QStringLiteral("A")}, {b_, QStringLiteral("B")}}) {
    if (!index) continue;
    const QPointF at = PlaceOf(*index, Quantity::Visco);
    painter.setPen(QPen(ink, 1, Qt::DashLine));
    painter.drawLine(QPointF(at.x(), 0), QPointF(at.x(), size_.height()));
    painter.setPen(QPen(ink, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, kRing, kRing);
    QRectF plate = PlateFor(painter, letter);
    plate.moveTopLeft({std::min(at.x() + 2, size_.width() - plate.width()), 2});
    DrawPlate(painter, plate, letter, ink, palette);
  }
  const QString text = Lines(Compared());
  if (text.isEmpty()) return;
  QRectF plate = PlateFor(painter, text);
  // Between both; below their letters, or above the lower axis while the pointer's own plate is up there.
  const double middle = (PlaceOf(*a_, Quantity::Visco).x() + PlaceOf(*b_, Quantity::Visco).x()) / 2;
  const bool pointer_above = near_ && near_->at.y < size_.height() / 2;
  const double from = pointer_above ? size_.height() - plate.height() - kAway
                                    : QFontMetricsF(painter.font()).height() + kAway + 4;
  plate.moveTopLeft(
      {std::clamp(middle - plate.width() / 2, 2.0, std::max(2.0, size_.width() - plate.width() - 2)), from});
  DrawPlate(painter, plate, text, ink, palette);
}

// Below all plates.
void PlotOverlay::PaintCross(QPainter& painter) const {
  if (!near_) return;
  const QPointF at(near_->at.x, near_->at.y);
  QColor ink = ToQColor(colors_.GridColor());
  ink.setAlphaF(0.5F);
  painter.setPen(QPen(ink, 1));
  painter.drawLine(QPointF(0, at.y()), QPointF(size_.width(), at.y()));
  painter.drawLine(QPointF(at.x(), 0), QPointF(at.x(), size_.height()));
}

void PlotOverlay::PaintNear(QPainter& painter, const QPalette& palette) const {
  if (!near_) return;
  const QPointF at(near_->at.x, near_->at.y);
  const QColor color = ColorOf(near_->index, near_->quantity);
  painter.setPen(QPen(color, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(at, kRing, kRing);
  const QString text = Lines(Told());
  QRectF plate = PlateFor(painter, text);
  // To the upper right where there is room; never under the pointer, which is near the reading or beyond it.
  const bool right = at.x() + kAway + plate.width() <= size_.width();
  const bool above = at.y() - kAway - plate.height() >= 0;
  plate.moveTopLeft({right ? at.x() + kAway : std::max(0.0, at.x() - kAway - plate.width()),
                     above ? at.y() - kAway - plate.height() : at.y() + kAway});
  DrawPlate(painter, plate, text, color, palette);
}

}  // namespace quenlor::graph
