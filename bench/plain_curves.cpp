// SPDX-License-Identifier: MIT
#include "bench/plain_curves.h"

#include <QPen>
#include <algorithm>
#include <optional>
#include <utility>

namespace quenlor::bench {

void PlainCurves::AddRun(QColor color, std::vector<double> xs, std::vector<double> ys) {
  Run& run = runs_.emplace_back(Run{color, std::move(xs), std::move(ys), {}});
  for (std::size_t at = 0; at < run.ys.size(); at += kBlock) {
    const std::size_t end = std::min(at + kBlock, run.ys.size());
    const auto [min, max] = std::minmax_element(run.ys.begin() + static_cast<std::ptrdiff_t>(at),
                                                run.ys.begin() + static_cast<std::ptrdiff_t>(end));
    run.blocks.push_back({run.xs[at], run.ys[at], *min, *max, run.ys[end - 1]});
  }
}

int PlainCurves::Column(double x) const {
  return area_.left() + static_cast<int>((x - range_.left()) * (area_.width() / range_.width()));
}

int PlainCurves::RowOf(double y) const {
  return area_.bottom() - static_cast<int>((y - range_.top()) * (area_.height() / range_.height()));
}

void PlainCurves::Enter(QPainter& painter, const Run& run) const {
  painter.setClipRect(area_);
  painter.setPen(QPen(run.color, line_width_));
}

void PlainCurves::DrawEveryLine(QPainter& painter) const {
  for (const Run& run : runs_) {
    Enter(painter, run);
    QPoint before(Column(run.xs[0]), RowOf(run.ys[0]));
    for (std::size_t i = 1; i < run.xs.size(); ++i) {
      const QPoint here(Column(run.xs[i]), RowOf(run.ys[i]));
      painter.drawLine(before, here);
      before = here;
    }
  }
}

void PlainCurves::DrawColumns(QPainter& painter) const {
  std::vector<QLine> lines;
  for (const Run& run : runs_) {
    Enter(painter, run);
    lines.clear();
    std::optional<Stretch> before;
    for (std::size_t at = 0; at < run.xs.size();) {
      Stretch column{run.xs[at], run.ys[at], run.ys[at], run.ys[at], run.ys[at]};
      const int place = Column(column.x);
      for (; at < run.xs.size() && Column(run.xs[at]) == place; ++at) {
        column.min = std::min(column.min, run.ys[at]);
        column.max = std::max(column.max, run.ys[at]);
        column.last = run.ys[at];
      }
      AddLines(column, before ? &*before : nullptr, lines);
      before = column;
    }
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  }
}

void PlainCurves::DrawSummaries(QPainter& painter) const {
  std::vector<QLine> lines;
  for (const Run& run : runs_) {
    Enter(painter, run);
    lines.clear();
    std::optional<Stretch> before;
    for (std::size_t at = 0; at < run.blocks.size();) {
      Stretch column = run.blocks[at];
      const int place = Column(column.x);
      for (; at < run.blocks.size() && Column(run.blocks[at].x) == place; ++at) {
        column.min = std::min(column.min, run.blocks[at].min);
        column.max = std::max(column.max, run.blocks[at].max);
        column.last = run.blocks[at].last;
      }
      AddLines(column, before ? &*before : nullptr, lines);
      before = column;
    }
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  }
}

// Two for each column: the way there, and upright from its smallest to its largest reading.
void PlainCurves::AddLines(const Stretch& column, const Stretch* before, std::vector<QLine>& lines) const {
  const int x = Column(column.x);
  if (before != nullptr) lines.emplace_back(Column(before->x), RowOf(before->last), x, RowOf(column.first));
  lines.emplace_back(x, RowOf(column.min), x, RowOf(column.max));
}

}  // namespace quenlor::bench
