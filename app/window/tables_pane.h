// SPDX-License-Identifier: MIT
#pragma once

#include <QTabWidget>

#include "app/desk/session.h"
#include "app/window/grid_models.h"
#include "platform/qt/grid_view.h"

namespace quenlor::app {

// The three tables of the document, and above them the last line received.
class TablesPane : public QWidget {
  Q_OBJECT

 public:
  TablesPane(Session& session, QWidget* received_data, QWidget* parent);

  platform::qt::GridView* Measurement() const { return Grid1; }

  // Shows what has arrived. Returns how long the work took, in milliseconds.
  int Sync();
  void ShowHint(bool stopped);            // where to begin, while nothing is measured
  void ShowRow(data::Document::Row row);  // selects that reading, and brings it into view
  void ChangeColor();                     // the colours of the runs have become others

 signals:
  void RowsSelected(data::Document::Row first, data::Document::Row last);  // 0 when none is

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TellBase();

  Grid1Model grid1_model_;
  Grid2Model grid2_model_;
  Grid4Model grid4_model_;
  platform::qt::GridView* Grid1 = nullptr;
  platform::qt::GridView* Grid2 = nullptr;
  platform::qt::GridView* Grid4 = nullptr;
};

}  // namespace quenlor::app
