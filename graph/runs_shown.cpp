// SPDX-License-Identifier: MIT
#include "graph/runs_shown.h"

#include <QPainter>
#include <utility>

#include "graph/draw_on_image.h"

namespace quenlor::graph {
namespace {

constexpr float kVeil = 0.8F;  // over what is behind the run in front

}  // namespace

bool RunsShown::BringToFront(int run) { return std::exchange(front_, run) != run; }

void RunsShown::ShowAlone(int run) {
  alone_ = run;
  alone_generation_ = values_.Generation();
  alone_runs_ = values_.Runs().size();
}

int RunsShown::Alone() {
  if (alone_generation_ != values_.Generation() || alone_runs_ != values_.Runs().size()) alone_ = 0;
  return alone_;
}

bool RunsShown::Draw(QImage& picture, const QColor& ground) {
  const int alone = Alone();
  const bool in_front = front_ != 0 && front_ != alone && values_.SeveralSeries();
  if ((alone == 0 && !in_front) || picture.isNull()) return false;
  const double ratio = picture.devicePixelRatio();
  if (alone != 0) {
    DrawOnImage(picture, ratio, [&](platform::DrawingSurface& surface) {
      plot_.DrawBackground(surface, surface.Whole());
      plot_.DrawGrid(surface, surface.Whole());
      DrawRun(surface, alone);
    });
  }
  if (!in_front) return true;
  QColor veil = ground;
  veil.setAlphaF(kVeil);
  QPainter(&picture).fillRect(QRectF(QPointF(0, 0), picture.deviceIndependentSize()), veil);
  DrawOnImage(picture, ratio, [&](platform::DrawingSurface& surface) {
    plot_.DrawGrid(surface, surface.Whole());
    DrawRun(surface, front_);
  });
  return true;
}

void RunsShown::DrawRun(platform::DrawingSurface& surface, int run) const {
  for (std::size_t at = 0; at < values_.Runs().size(); ++at) {
    if (values_.Runs()[at].number == run)
      plot_.DrawCurves(surface, surface.Whole(), values_.Runs()[at].first + 1, values_.RunEnd(at));
  }
}

}  // namespace quenlor::graph
