// SPDX-License-Identifier: MIT
#include "app/window/tables_pane.h"

#include <QEvent>
#include <QVBoxLayout>

namespace quenlor::app {

using platform::qt::GridView;

TablesPane::TablesPane(Session& session, QWidget* received_data, QWidget* parent)
    : QWidget(parent),
      grid1_model_(session.Document(), session.Colors()),
      grid2_model_(session.Document(), session.Colors()),
      grid4_model_(session.Document(), session.Colors()) {
  auto* tabs = new QTabWidget(this);
  tabs->setObjectName(QStringLiteral("Tables"));
  Grid1 = new GridView(&grid1_model_, QStringLiteral("Grid1"), tr("Measurement table"), tabs);
  Grid2 = new GridView(&grid2_model_, QStringLiteral("Grid2"), tr("Display table"), tabs);
  Grid4 = new GridView(&grid4_model_, QStringLiteral("Grid4"), tr("Run information table"), tabs);
  Grid1->setToolTip(
      tr("Every reading. Del deletes whole rows; a double click, F2 or Enter edits while no "
         "measurement runs; Ctrl+C copies, Ctrl+Z undoes"));
  Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
  tabs->addTab(Grid1, tr("&Measurement"));
  tabs->addTab(Grid2, tr("Displa&y"));
  tabs->addTab(Grid4, tr("R&uns"));

  for (GridView* grid : {Grid1, Grid2, Grid4})
    connect(grid->model(), &QAbstractItemModel::modelReset, grid, &GridView::scrollToTop);

  for (GridView* grid : {Grid1, Grid2}) {
    const auto tell = [this, grid] {
      const platform::qt::GridSelection rows = grid->Selection();
      emit RowsSelected(rows.Row, rows.RowSel);
    };
    connect(grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, tell);
    connect(grid->model(), &QAbstractItemModel::modelReset, this, tell);  // which selects nothing, in silence
  }

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(received_data);
  layout->addWidget(tabs, 1);
  TellBase();
}

// A light scheme may give way to a dark one, and back.
void TablesPane::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) TellBase();
}

void TablesPane::TellBase() {
  for (GridModel* model : {static_cast<GridModel*>(&grid1_model_), static_cast<GridModel*>(&grid2_model_),
                           static_cast<GridModel*>(&grid4_model_)})
    model->SetBase(palette().color(QPalette::Base));
}

int TablesPane::Sync() {
  const int milliseconds = Grid1->Sync() + Grid2->Sync() + Grid4->Sync();
  grid4_model_.ShowLatest();
  return milliseconds;
}

void TablesPane::ShowHint(bool stopped) {
  Grid1->SetHint(stopped ? tr("Choose the port in RS-232C, then press Start,\nor drop a data file here")
                         : QString());
}

void TablesPane::ShowRow(data::Document::Row row) {
  for (GridView* grid : {Grid1, Grid2}) {
    const int at = static_cast<int>(row) - 1;
    grid->selectRow(at);
    grid->scrollTo(grid->model()->index(at, 0), GridView::PositionAtCenter);
  }
}

void TablesPane::ChangeColor() {
  grid1_model_.ColorsChanged();
  grid2_model_.ColorsChanged();
  grid4_model_.ColorsChanged();
}

}  // namespace quenlor::app
