// SPDX-License-Identifier: MIT
#include "graph/graph_pane.h"

#include <QContextMenuEvent>
#include <QFontInfo>
#include <QPainter>
#include <QShortcut>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "graph/caption_painter.h"
#include "graph/legend_plan.h"
#include "graph/plot_look.h"
#include "graph/readable_color.h"
#include "graph/reading_told.h"
#include "graph/screen_color.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/qt_drawing_surface.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::graph {
namespace {

using platform::kTwipsPerPixel;
using platform::PixelsOf;
using platform::qt::ToShortQString;

// The legend's two lines, as a label divides them. An endless name leaves the value in sight.
QString TwoLines(const std::string& caption) {
  if (caption.empty()) return {};
  const LegendEntry entry(caption);
  return ToShortQString(entry.name) + QLatin1Char('\n') + ToShortQString(entry.value);
}

}  // namespace

GraphPane::GraphPane(const data::Document& document, LiveGraph& graph, const data::SettingsList& settings,
                     const ColorSettings& colors, QWidget* parent)
    : QWidget(parent),
      document_(document),
      graph_(graph),
      settings_(settings),
      colors_(colors),
      plot_(graph.Values()),
      Picture2(new PlotPicture(plot_, document, graph, colors, this)) {
  setObjectName(QStringLiteral("Picture1"));
  setAccessibleName(tr("Graph with its axes"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  AddCaptions();
  connect(Picture2, &PlotPicture::ViewMoved, this, &GraphPane::ShowMoved);
  connect(Picture2, &PlotPicture::ReadingChosen, this, &GraphPane::ReadingChosen);
  const auto walk = [this](Qt::Key key, bool (LiveGraph::*way)()) {
    connect(new QShortcut(QKeySequence(Qt::ALT | key), this), &QShortcut::activated, this, [this, way] {
      if ((graph_.*way)()) ShowMoved();
    });
  };
  walk(Qt::Key_Left, &LiveGraph::ShowEarlier);
  walk(Qt::Key_Right, &LiveGraph::ShowLater);
}

// At once, and without the waiting pointer of a whole drawing: the hand sees what it does.
void GraphPane::ShowMoved() {
  ShowReadings();
  emit ViewMoved();
}

// At the numbers of an axis.
void GraphPane::wheelEvent(QWheelEvent* event) { Picture2->Turn(event, event->position() - Picture2->pos()); }

void GraphPane::AddCaptions() {
  const auto add = [this](auto& captions, std::size_t from, const char* name,
                          void (GraphPane::*signal)(int)) {
    for (std::size_t i = from; i < captions.size(); ++i) {
      captions[i] = new Caption(this);
      captions[i]->setObjectName(QStringLiteral("%1[%2]").arg(QLatin1String(name)).arg(i));
      if (signal == nullptr) continue;
      connect(captions[i], &Caption::DblClick, this,
              [this, signal, i] { emit(this->*signal)(static_cast<int>(i)); });
    }
  };
  add(Label5, 0, "Label5", &GraphPane::Label5_DblClick);
  add(Label6, 0, "Label6", &GraphPane::Label6_DblClick);
  add(Label7, 1, "Label7", nullptr);
  add(Label8, 1, "Label8", nullptr);
  add(Label9, 1, "Label9", nullptr);
  add(Label10, 0, "Label10", &GraphPane::Label10_DblClick);
  for (std::size_t i = 0; i < Label5.size(); ++i) {
    Label5[i]->setToolTip(
        QString::fromLatin1(kLimitNames[i].data(), static_cast<int>(kLimitNames[i].size())));
    Label5[i]->MayBeChanged(Label5[i]->toolTip());
  }
  Label6[4]->setToolTip(QStringLiteral("File Name"));
  Label6[6]->setToolTip(QStringLiteral("Remarks"));
  for (const std::size_t i : {4, 6}) Label6[i]->MayBeChanged(Label6[i]->toolTip());
  for (std::size_t run = 1; run < Label10.size(); ++run) {
    Label10[run]->MayBeChanged(QStringLiteral("Sample Name"));
    Label10[run]->installEventFilter(this);
  }
}

void GraphPane::Fig() {
  LayoutLabels();
  update();
  Picture2->DrawWhole();
}

void GraphPane::ShowReadings() {
  LayoutLabels();
  Picture2->DrawNew();
}

void GraphPane::Hold(bool hold) {
  held_ = hold;
  held_size_ = size();
  Picture2->Hold(hold);
  if (!hold) Fig();
}

PlotSettings GraphPane::Settings() const { return PlotLook(graph_, settings_, colors_, Picture2->width()); }

double GraphPane::LargestText() const {
  constexpr double kBesideTheDesktop = 1.3;
  return std::min(kLargestText, kBesideTheDesktop * QFontInfo(font()).pixelSize() * kTwipsPerPixel);
}

void GraphPane::LayoutLabels() {
  if (held_ || !isVisible()) return;
  const double twips_wide = width() * kTwipsPerPixel;
  const double twips_high = height() * kTwipsPerPixel;
  const Frame plot = PlotLayout(static_cast<float>(twips_wide), static_cast<float>(twips_high)).Picture2();
  Picture2->setGeometry(PixelsOf(plot.left), PixelsOf(plot.top), PixelsOf(plot.width), PixelsOf(plot.height));
  plot_.Set(Settings(), document_.Ranges());  // how wide the plot is decides about smooth lines
  const Captions texts = CaptionsOf(document_, graph_);
  FillCaptions(texts);
  // As the captions will be drawn: on a screen of fine pixels their letters are finer, too.
  const double pixel = kTwipsPerPixel / devicePixelRatioF();
  const auto text_width = [&](std::string_view text, double text_height) {
    return platform::qt::QtDrawingSurface::TextWidthIn(font(), text, text_height / pixel) * pixel;
  };
  const LabelLayout layout =
      graph::LayoutLabels(twips_wide, twips_high, graph_.Kind(), texts, text_width, LargestText());
  const auto place = [this](auto& captions, const auto& placed, std::size_t from) {
    for (std::size_t i = from; i < captions.size(); ++i) captions[i]->Place(placed[i], colors_.BackColor());
  };
  place(Label5, layout.Label5, 0);
  place(Label6, layout.Label6, 0);
  place(Label7, layout.Label7, 1);
  place(Label8, layout.Label8, 1);
  place(Label9, layout.Label9, 1);
  place(Label10, layout.Label10, 0);
  TellCutTitles(layout);
}

// The tool tips of file name and remarks are the captions of their editor, which shows them whole.
void GraphPane::TellCutTitles(const LabelLayout& layout) {
  for (const auto& [i, tip] : {std::pair{0, tr("Title of the time axis")},
                               {1, tr("Title of the left axis")},
                               {2, tr("Title of the temperature axis")},
                               {3, tr("Date of the measurement")},
                               {5, tr("Unit of the time axis")}}) {
    const auto at = static_cast<std::size_t>(i);
    Label6[at]->setToolTip(layout.Label6[at].whole ? tip : platform::qt::PlainTip(Label6[at]->text()));
  }
}

void GraphPane::FillCaptions(const Captions& texts) {
  for (std::size_t i = 0; i < Label5.size(); ++i) Label5[i]->setText(ToShortQString(texts.Label5[i]));
  for (std::size_t i = 0; i < Label6.size(); ++i) Label6[i]->setText(ToShortQString(texts.Label6[i]));
  for (std::size_t i = 1; i < Label7.size(); ++i) Label7[i]->setText(ToShortQString(texts.Label7[i].text));
  for (std::size_t i = 1; i < Label8.size(); ++i) Label8[i]->setText(ToShortQString(texts.Label8[i].text));
  for (std::size_t i = 1; i < Label9.size(); ++i) Label9[i]->setText(ToShortQString(texts.Label9[i].text));
  for (std::size_t i = 0; i < Label10.size(); ++i) Label10[i]->setText(TwoLines(texts.Label10[i]));

  const QColor ink = ToQColor(colors_.GridColor());
  const auto color = [](Caption* caption, const QColor& text_color) {
    if (caption->palette().color(QPalette::WindowText) == text_color) return;
    QPalette palette = caption->palette();
    palette.setColor(QPalette::WindowText, text_color);
    caption->setPalette(palette);
  };
  const auto color_all = [&](const auto& captions, std::size_t from) {
    for (std::size_t i = from; i < captions.size(); ++i) color(captions[i], ink);
  };
  color_all(Label5, 0);
  color_all(Label6, 0);
  color_all(Label7, 1);
  color_all(Label8, 1);
  color_all(Label9, 1);
  color(Label10[0], ink);
  const int alone = Picture2->Alone();
  for (std::size_t run = 1; run < Label10.size(); ++run) {
    const Color own = RunColor(colors_.Colors(), static_cast<long long>(run));
    const bool hidden = alone != 0 && alone != static_cast<int>(run);
    color(Label10[run], ToQColor(hidden ? Paled(own, colors_.BackColor()) : own));
  }
}

void GraphPane::contextMenuEvent(QContextMenuEvent* event) {
  emit MenuWanted(event->globalPos(), RunOfLegend(childAt(event->pos())));
}

void GraphPane::ShowAlone(int run) {
  Picture2->ShowAlone(run);
  LayoutLabels();
}

int GraphPane::RunOfLegend(const QObject* caption) const {
  const auto found = std::find(Label10.begin() + 1, Label10.end(), caption);
  return caption == nullptr || found == Label10.end() ? 0 : static_cast<int>(found - Label10.begin());
}

// The pointer on a run of the legend.
bool GraphPane::eventFilter(QObject* watched, QEvent* event) {
  const int run = RunOfLegend(watched);
  if (run > 0 && event->type() == QEvent::Enter) Picture2->BringToFront(run);
  if (run > 0 && event->type() == QEvent::Leave) Picture2->BringToFront(0);
  if (run > 0 && event->type() == QEvent::ToolTip)
    Label10[static_cast<std::size_t>(run)]->setToolTip(
        platform::qt::PlainTip(platform::qt::ToQString(RunTold(document_, graph_.Values(), run))));
  return QWidget::eventFilter(watched, event);
}

void GraphPane::showEvent(QShowEvent* /*event*/) { LayoutLabels(); }

void GraphPane::resizeEvent(QResizeEvent* /*event*/) { LayoutLabels(); }

void GraphPane::paintEvent(QPaintEvent* /*event*/) {
  const QSize drawn = held_ ? held_size_ : size();
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(colors_.BackColor()));
  painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  platform::qt::QtDrawingSurface surface(painter, drawn * devicePixelRatioF(), devicePixelRatioF());
  plot_.DrawPicture1(surface, surface.Whole(),
                     PlotLayout(static_cast<float>(drawn.width() * kTwipsPerPixel),
                                static_cast<float>(drawn.height() * kTwipsPerPixel)));
  // A sheet of its own, whatever the window's scheme and the graph's ground are.
  painter.resetTransform();
  for (const QRect& side : {QRect(0, 0, width(), 1), QRect(0, height() - 1, width(), 1),
                            QRect(0, 0, 1, height()), QRect(width() - 1, 0, 1, height())})
    painter.fillRect(side, palette().color(QPalette::Mid));
}

}  // namespace quenlor::graph
