// SPDX-License-Identifier: MIT
#pragma once

#include <QTabWidget>

#include "app/desk/session.h"
#include "app/grid_view.h"
#include "app/window/grid_models.h"

namespace quenlor::app {

// The three tables of the document, and above them the last line received.
class TablesPane : public QWidget {
  Q_OBJECT

 public:
  TablesPane(Session& session, QWidget* received_data, QWidget* parent);

  GridView* Measurement() const { return Grid1; }

  // Shows what has arrived. Returns how long the work took, in milliseconds.
  int Sync();
  void ColorsChanged();

 private:
  Grid1Model grid1_model_;
  Grid2Model grid2_model_;
  Grid4Model grid4_model_;
  GridView* Grid1 = nullptr;
  GridView* Grid2 = nullptr;
  GridView* Grid4 = nullptr;
};

}  // namespace quenlor::app
