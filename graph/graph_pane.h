// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "data/document.h"
#include "graph/caption.h"
#include "graph/captions.h"
#include "graph/color_settings.h"
#include "graph/label_layout.h"
#include "graph/live_graph.h"
#include "graph/plot.h"
#include "graph/plot_picture.h"

namespace quenlor::graph {

// The graph on the screen: Picture1 with the captions, and Picture2, the plot, among them.
//
// Drawing waits for the next paint, which draws only what has changed since the last one.
class GraphPane : public QWidget {
  Q_OBJECT

 public:
  GraphPane(const data::Document& document, LiveGraph& graph, const data::SettingsList& settings,
            const ColorSettings& colors, QWidget* parent);

  void Fig();            // everything is drawn at the next paint
  void ShowReadings();   // what has come is drawn at the next paint
  void LayoutLabels();   // texts, colours and places of the captions, as soon as they can be seen
  void Hold(bool hold);  // while held, what is shown stays as it is

  // These rows of the table stand out in the plot; none when the first one is 0.
  void MarkRows(data::Document::Row first, data::Document::Row last) { Picture2->MarkRows(first, last); }

  // A run whose others are hidden in the window, and nowhere else; 0: all are shown.
  void ShowAlone(int run);
  int Alone() const { return Picture2->Alone(); }

  // How the graph looks, as options and colours have it.
  PlotSettings Settings() const;

  // How large letters may be here, in twips: a little larger than those of the desktop, however large the
  // graph is.
  double LargestText() const;

 signals:
  void Label5_DblClick(int Index);
  void Label6_DblClick(int Index);
  void Label10_DblClick(int Index);
  void ReadingChosen(data::Document::Row row);  // by a click on the plot
  void ViewMoved();                             // ranges and boxes are others, by a hand on the plot
  // A context menu, there on the screen, at the legend of that run; 0: elsewhere.
  void MenuWanted(const QPoint& at, int run);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowMoved();
  void AddCaptions();
  void FillCaptions(const Captions& texts);
  void TellCutTitles(const LabelLayout& layout);
  int RunOfLegend(const QObject* caption) const;

  const data::Document& document_;
  LiveGraph& graph_;
  const data::SettingsList& settings_;
  const ColorSettings& colors_;
  Plot plot_;
  PlotPicture* Picture2;  // the plot
  bool held_ = false;
  QSize held_size_;
  std::array<Caption*, 6> Label5{};
  std::array<Caption*, 7> Label6{};
  std::array<Caption*, 6> Label7{};
  std::array<Caption*, 10> Label8{};
  std::array<Caption*, 10> Label9{};
  std::array<Caption*, 11> Label10{};
};

}  // namespace quenlor::graph
