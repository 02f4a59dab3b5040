// SPDX-License-Identifier: MIT
#include "platform/qt/grid_view.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <algorithm>

namespace quenlor::platform::qt {
namespace {

constexpr int kFittedRows = 64;  // of a burst only the last rows are measured; texts of a run are much alike
constexpr int kFittedColumns = 256;  // wider tables are not read by eye
constexpr int kCellMargins = 15;
constexpr int kHeaderMargins = 23;

// Column 0: a style shades a header's colour as it likes, but one that the model tells has a meaning.
class ColoredHeader : public QHeaderView {
 public:
  explicit ColoredHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionsClickable(true);
    setHighlightSections(true);
  }

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    const auto told = [&](int role) { return model()->headerData(section, Qt::Vertical, role); };
    const QVariant background = told(Qt::BackgroundRole);
    if (!background.isValid()) return QHeaderView::paintSection(painter, rect, section);
    painter->save();
    painter->fillRect(rect, background.value<QColor>());
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(told(Qt::ForegroundRole).value<QColor>());
    painter->drawText(rect.adjusted(4, 0, -4, 0), static_cast<int>(defaultAlignment()),
                      told(Qt::DisplayRole).toString());
    painter->restore();
  }
};

}  // namespace

GridView::GridView(GridTable* table, const QString& name, const QString& title, QWidget* parent)
    : QTableView(parent), table_(table) {
  setObjectName(name);
  setAccessibleName(title);
  setVerticalHeader(new ColoredHeader(this));
  setModel(table);
  setSelectionMode(ContiguousSelection);
  setEditTriggers(NoEditTriggers);
  setWordWrap(false);
  setAlternatingRowColors(false);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  // Texts that are too long for a header's first glance must not decide how wide it is.
  horizontalHeader()->setMaximumSectionSize(kWidestColumn);
  verticalHeader()->setResizeContentsPrecision(0);

  corner_ = findChild<QAbstractButton*>();
  if (corner_ != nullptr) corner_->installEventFilter(this);
  connect(this, &QTableView::doubleClicked, this, &GridView::Grid_DblClick);
  connect(verticalHeader(), &QHeaderView::sectionDoubleClicked, this, &GridView::Grid_DblClick);
  connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, &GridView::Grid_DblClick);
  connect(table, &QAbstractItemModel::headerDataChanged, this, [this](Qt::Orientation orientation) {
    if (orientation == Qt::Horizontal) FitTitles();
  });
  connect(table, &QAbstractItemModel::modelReset, this, [this] {
    FitTitles();
    FitNewRows(0);
  });
  FitTitles();
  FitNewRows(0);
}

int GridView::Sync() {
  QElapsedTimer timer;
  timer.start();
  const int first_new = std::max(0, table_->rowCount() - 1);
  if (!table_->Sync()) return 0;
  FitNewRows(first_new);
  // A hand on the scroll bar wins over the newest row, until it lets go.
  if (isVisible() && !verticalScrollBar()->isSliderDown()) {
    scrollToBottom();  // TopRow
    viewport()->repaint();
  }
  return static_cast<int>(timer.elapsed());
}

GridSelection GridView::Selection() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return {};
  GridSelection result{selection.first().top(), selection.first().bottom(), selection.first().left(),
                       selection.first().right()};
  for (const QItemSelectionRange& range : selection) {
    result.Row = std::min<std::int64_t>(result.Row, range.top());
    result.RowSel = std::max<std::int64_t>(result.RowSel, range.bottom());
    result.Col = std::min(result.Col, range.left());
    result.ColSel = std::max(result.ColSel, range.right());
  }
  ++result.Row, ++result.RowSel, ++result.Col, ++result.ColSel;
  return result;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete) {
    emit Grid_KeyDown(46);
  } else if (event->key() == Qt::Key_F2) {
    emit Grid_DblClick();
  } else {
    QTableView::keyPressEvent(event);
  }
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != corner_ || event->type() != QEvent::Paint) return QTableView::eventFilter(watched, event);
  PaintCorner();
  return true;
}

// The title of column 0 stands on the left where the texts of that column do, else in the middle.
void GridView::PaintCorner() {
  QPainter painter(corner_);
  QStyleOptionHeader option;
  option.initFrom(corner_);
  option.rect = corner_->rect();
  option.text = table_->CornerTitle();
  const bool left = verticalHeader()->defaultAlignment().testFlag(Qt::AlignLeft);
  option.textAlignment = left ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter;
  option.orientation = Qt::Horizontal;
  option.section = 0;
  corner_->style()->drawControl(QStyle::CE_Header, &option, &painter, corner_);
}

void GridView::FitColumnWidth(int column, int width) {
  if (width > columnWidth(column)) setColumnWidth(column, std::min(width, kWidestColumn));
}

void GridView::FitNewRows(int first) {
  const int rows = table_->rowCount();
  const int columns = std::min(table_->columnCount(), kFittedColumns);
  const QFontMetrics font = fontMetrics();
  for (int row = std::max(first, rows - kFittedRows); row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      FitColumnWidth(column,
                     font.horizontalAdvance(table_->index(row, column).data().toString()) + kCellMargins);
    }
  }
}

void GridView::FitTitles() {
  // Column 0 is as wide as its title at least, also while no reading shows it how wide it must be.
  const QFontMetrics font = verticalHeader()->fontMetrics();
  verticalHeader()->setMinimumWidth(font.horizontalAdvance(table_->CornerTitle()) + kHeaderMargins);
  if (corner_ != nullptr) corner_->update();
  const int columns = std::min(table_->columnCount(), kFittedColumns);
  for (int column = 0; column < columns; ++column) {
    const QString title = table_->headerData(column, Qt::Horizontal).toString();
    FitColumnWidth(column, horizontalHeader()->fontMetrics().horizontalAdvance(title) + kHeaderMargins);
  }
}

}  // namespace quenlor::platform::qt
