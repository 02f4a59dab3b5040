// SPDX-License-Identifier: MIT
#include "reports/report_page.h"

#include <cmath>
#include <vector>

#include "graph/caption_painter.h"
#include "graph/curve_lines.h"
#include "graph/plot_grid.h"
#include "reports/page_colors.h"
#include "reports/page_layout.h"

namespace quenlor::reports {
namespace {

using graph::GraphKind;
using graph::ToRgb;
using platform::DrawingSurface;
using platform::LineStyle;
using platform::PixelRectangle;
using platform::Segment;

// Pens of the grid and its frame; 0.5 is an eighth of a millimetre, three dots of a usual printer.
constexpr double kDottedLine = 0.5;
constexpr double kSolidLine = 0.75;
constexpr double kFrameLine = 1;

const platform::Rgb kInk = ToRgb(graph::kBlack);
const platform::Rgb kHalfInk{128, 128, 128};  // of dotted lines, which stand behind the curves
const platform::Rgb kPaper = ToRgb(graph::kWhite);

// The page as it is being drawn. Whatever is no curve is black on white: paper has no other scheme.
class Page {
 public:
  Page(DrawingSurface& surface, const ReportContent& content)
      : surface_(surface),
        content_(content),
        whole_(surface.Whole()),
        grid_{Twips(whole_.width), Twips(whole_.height)},
        viewport_(whole_, {0, 0, grid_.width, grid_.height}),
        axes_(AxesOf(content)),
        lines_(LinesOnPage()) {}

  void Draw() {
    surface_.SetViewport(viewport_);
    surface_.Clear(kPaper);
    DrawGrid();
    DrawCurves();
    surface_.SetViewport(viewport_);
    DrawFrame();
    DrawSamples();
    DrawLabels();
  }

 private:
  static graph::PlotAxes AxesOf(const ReportContent& content) {
    graph::PlotAxes axes;
    axes.SetScales(content.ranges, content.settings.kind, content.settings.visco_axis);
    return axes;
  }

  double Twips(int dots) const {
    const double twips = dots * platform::kTwipsPerPixel;
    const double pen = surface_.PenScale();
    return pen > 0 ? twips / pen : twips;
  }

  PixelRectangle PlotDots() const {
    const auto dots = [](double place) { return static_cast<int>(std::lround(place)); };
    const int left = dots(viewport_.DeviceX(grid_.Left()));
    const int top = dots(viewport_.DeviceY(grid_.Top()));
    return {left, top, dots(viewport_.DeviceX(grid_.Right())) - left,
            dots(viewport_.DeviceY(grid_.Bottom())) - top};
  }

  // A plot unit in twips.
  double UnitAcross() const { return (grid_.Right() - grid_.Left()) / axes_.XExtent(); }
  double UnitDown() const { return (grid_.Bottom() - grid_.Top()) / graph::PlotAxes::kHeight; }

  Segment Vertical(double x) const { return {{x, grid_.Top()}, {x, grid_.Bottom()}}; }
  Segment Horizontal(double y) const { return {{grid_.Left(), y}, {grid_.Right(), y}}; }

  // The lines of the screen's grid, laid over the plot of the page.
  graph::GridLines LinesOnPage() const {
    graph::GridLines lines = graph::GridLinesOf(axes_);
    for (auto* some : {&lines.dotted, &lines.solid, &lines.ticks}) {
      for (Segment& line : *some) {
        for (platform::Point* end : {&line.from, &line.to})
          *end = {grid_.Left() + end->x * UnitAcross(), grid_.Top() + end->y * UnitDown()};
      }
    }
    return lines;
  }

  void DrawThin(const std::vector<Segment>& lines, const platform::Pen& pen) {
    if (lines.empty()) return;
    surface_.SetPen(pen);
    surface_.DrawLines(lines);
  }

  void DrawGrid() {
    DrawThin(lines_.dotted, {kHalfInk, kDottedLine, LineStyle::kDotted, true});
    DrawThin(lines_.solid, {kInk, kSolidLine, LineStyle::kSolid, true});
  }

  void DrawCurves() {
    graph::PlotSettings look = content_.settings;
    for (graph::Color& color : look.colors) color = InkOf(color);
    const platform::Units units{0, 0, axes_.XExtent(), graph::PlotAxes::kHeight};
    graph::DrawCurveLines(surface_, {PlotDots(), units}, 1, content_.values, content_.values.WrittenRuns(),
                          look, axes_);
  }

  // Over the curves, so that they end at a clean edge.
  void DrawFrame() {
    std::vector<Segment> lines = {Vertical(grid_.Left()), Horizontal(grid_.Top()), Vertical(grid_.Right()),
                                  Horizontal(grid_.Bottom())};
    lines.insert(lines.end(), lines_.ticks.begin(), lines_.ticks.end());
    DrawThin(lines, {kInk, kFrameLine, LineStyle::kSolid, true});
  }

  // The sample of each of the two curves, beside the title of its axis.
  void DrawSamples() {
    if (content_.settings.kind != GraphKind::ViscoTempTime) return;
    const graph::QuantityColors samples =
        graph::SampleColors(content_.settings.colors, graph::kBlack, content_.values.SeveralSeries());
    const graph::MarkerSizes markers = graph::MarkersOn(UnitAcross(), UnitDown());
    const double y = grid_.TitleRow();
    const double unit = grid_.UnitX();
    const auto draw_line = [&](graph::Color color, double left) {
      surface_.SetPen({ToRgb(InkOf(color)), 1.0 * content_.settings.LineWidth, LineStyle::kSolid, true});
      surface_.DrawLine({left, y}, {left + 0.4 * unit, y});
    };
    draw_line(samples.visco, 0.8 * unit);
    surface_.DrawCircle({unit, y}, markers.circle);
    draw_line(samples.temp, 6.8 * unit);
    surface_.DrawCross({7 * unit, y}, markers.cross_across, markers.cross_down);
  }

  void DrawLabels() {
    const TextMeasure measure = [this](std::string_view text, double height) {
      return surface_.TextWidth(text, height);
    };
    const PageLabels labels = PlaceLabels(grid_, content_.captions, content_.settings, measure);
    labels.ForEach([this](const PageLabel& label) {
      if (label.visible) DrawLabel(label);
    });
  }

  void DrawLabel(const PageLabel& label) {
    const graph::Box& box = label.box;
    if (label.bar > 0)
      graph::DrawBar(surface_, {box.left, box.top, box.width, label.bar}, label.color, graph::kWhite);
    surface_.SetPen(graph::LetterPen(label.color, graph::kWhite));
    const auto [x, across] = Anchor(label);
    const double line = (box.height - label.bar) / static_cast<double>(label.lines.size());
    double middle = box.top + label.bar + line / 2;
    for (const std::string& text : label.lines) {
      if (!text.empty()) {
        surface_.DrawText({x, middle}, across, platform::Down::kCentre, text, label.text_height);
      }
      middle += line;
    }
  }

  static std::pair<double, platform::Across> Anchor(const PageLabel& label) {
    switch (label.side) {
      case graph::TextSide::kLeft:
        return {label.box.left, platform::Across::kLeft};
      case graph::TextSide::kRight:
        return {label.box.left + label.box.width, platform::Across::kRight};
      case graph::TextSide::kCentre:
        break;
    }
    return {label.box.left + label.box.width / 2, platform::Across::kCentre};
  }

  DrawingSurface& surface_;
  const ReportContent& content_;
  const PixelRectangle whole_;
  const PageGrid grid_;
  const platform::Viewport viewport_;
  const graph::PlotAxes axes_;
  const graph::GridLines lines_;
};

}  // namespace

void Draw(DrawingSurface& surface, const ReportContent& content) {
  if (!surface.Whole().Empty()) Page(surface, content).Draw();
}

}  // namespace quenlor::reports
