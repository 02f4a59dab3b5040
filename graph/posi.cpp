// SPDX-License-Identifier: MIT
#include "graph/posi.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <algorithm>

namespace quenlor::graph {

using platform::kTwipsPerPixel;
using platform::PixelsOf;

namespace posi {

bool MayMoveTo(double left, double window_width) { return left > 3600 && left < window_width - 2000; }

double AfterResize(double left, double window_width) {
  const double last = window_width - 50;
  return last > 3600 && left > last ? last : left;
}

}  // namespace posi

namespace {

constexpr double kStep = 150;  // of a key, twips

class PosiInterface : public QAccessibleWidget {
 public:
  explicit PosiInterface(QWidget* bar) : QAccessibleWidget(bar, QAccessible::Splitter) {}

  QStringList actionNames() const override {
    return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name == increaseAction()) return Halves()->Nudge(1);
    if (name == decreaseAction()) return Halves()->Nudge(-1);
    QAccessibleWidget::doAction(name);
  }

 private:
  TableAndGraph* Halves() const { return static_cast<TableAndGraph*>(widget()->parentWidget()); }
};

QAccessibleInterface* Describe(const QString& /*class_name*/, QObject* object) {
  auto* bar = qobject_cast<QWidget*>(object);
  const bool is_posi = bar != nullptr && bar->objectName() == QLatin1String("Posi") &&
                       qobject_cast<TableAndGraph*>(bar->parentWidget()) != nullptr;
  return is_posi ? new PosiInterface(bar) : nullptr;
}

}  // namespace

TableAndGraph::TableAndGraph(QWidget* tables, GraphPane* graph, QWidget* parent)
    : QWidget(parent), tables_(tables), Picture1(graph), Posi(new QWidget(this)) {
  // Before anything is told of the bar, for what it is then stays.
  static const bool installed = (QAccessible::installFactory(Describe), true);
  Q_UNUSED(installed)
  tables_->setParent(this);
  Picture1->setParent(this);
  Posi->setObjectName(QStringLiteral("Posi"));
  Posi->setAccessibleName(tr("Border between table and graph"));
  Posi->setToolTip(tr("Drag to share the width between table and graph"));
  Posi->setCursor(Qt::SplitHCursor);
  Posi->setAutoFillBackground(true);
  Posi->setBackgroundRole(QPalette::Mid);
  Posi->setFocusPolicy(Qt::TabFocus);
  Posi->setAccessibleDescription(tr("Left and Right move it"));
  Posi->installEventFilter(this);
}

void TableAndGraph::Nudge(int steps) {
  const double left = left_ + steps * kStep;
  if (posi::MayMoveTo(left, ScaleWidth())) SetPosiLeft(left);
}

double TableAndGraph::ScaleWidth() const { return width() * kTwipsPerPixel; }

void TableAndGraph::SetPosiLeft(double left) {
  left_ = left;
  Posi_Resize();
}

void TableAndGraph::RestorePosiLeft(double left) {
  wished_ = std::max(left, 3601.0);
  SetPosiLeft(posi::AfterResize(*wished_, ScaleWidth()));
}

void TableAndGraph::resizeEvent(QResizeEvent* /*event*/) {
  left_ = posi::AfterResize(wished_.value_or(left_), ScaleWidth());
  Posi_Resize();
}

void TableAndGraph::paintEvent(QPaintEvent* /*event*/) { wished_.reset(); }

// A side for which no width would be left keeps its size.
void TableAndGraph::Posi_Resize() {
  Posi->setGeometry(PixelsOf(left_), 0, PixelsOf(posi::kWidth), height());
  const int table_width = PixelsOf(left_ - 100);
  if (table_width > 0) tables_->setGeometry(0, 0, table_width, height());
  const int graph_left = PixelsOf(left_ + 100);
  const int graph_width = PixelsOf(ScaleWidth() - (left_ + 100) - posi::kRightOfGraph);
  Picture1->move(graph_left, 0);
  if (graph_width > 0 && height() > 0) Picture1->resize(graph_width, height());
}

bool TableAndGraph::eventFilter(QObject* watched, QEvent* event) {
  if (watched != Posi) return QWidget::eventFilter(watched, event);
  const auto x = [event] { return static_cast<QMouseEvent*>(event)->position().x() * kTwipsPerPixel; };
  if (event->type() == QEvent::FocusIn) Posi->setBackgroundRole(QPalette::Highlight);
  if (event->type() == QEvent::FocusOut) Posi->setBackgroundRole(QPalette::Mid);
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
      Nudge(key == Qt::Key_Left ? -1 : 1);
      return true;
    }
  }
  if (event->type() == QEvent::MouseButtonPress) Posi_MouseDown(x());
  if (event->type() == QEvent::MouseMove) Posi_MouseMove(x());
  if (event->type() == QEvent::MouseButtonRelease) Posi_MouseUp();
  return QWidget::eventFilter(watched, event);
}

void TableAndGraph::Posi_MouseDown(double X) {
  Dragging = true;
  DragStartX = X;
  Picture1->Hold(true);
}

void TableAndGraph::Posi_MouseMove(double X) {
  if (!Dragging) return;
  const double left = left_ - (DragStartX - X);
  if (posi::MayMoveTo(left, ScaleWidth())) SetPosiLeft(left);
}

// The graph is drawn at its new size only now.
void TableAndGraph::Posi_MouseUp() {
  Dragging = false;
  Picture1->Hold(false);
}

}  // namespace quenlor::graph
