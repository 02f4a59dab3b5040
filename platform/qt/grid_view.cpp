// SPDX-License-Identifier: MIT
#include "platform/qt/grid_view.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QElapsedTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <algorithm>
#include <utility>

namespace quenlor::platform::qt {
namespace {

constexpr int kFittedRows = 64;  // of a burst only the last rows are measured; texts of a run are much alike
constexpr int kFittedColumns = 256;  // wider tables are not read by eye
constexpr int kFittedUnseen = 120;   // pixels, while the view has no width yet
constexpr int kCellMargins = 15;
constexpr int kHeaderMargins = 23;

// Titles stand where the texts of their columns do, whose cells end one pixel earlier, at a line.
class TitleStyle : public QProxyStyle {
 public:
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element != CE_HeaderLabel || header == nullptr)
      return QProxyStyle::drawControl(element, option, painter, widget);
    const int of_cells = pixelMetric(PM_FocusFrameHMargin, option, widget) + 1;
    const int more = of_cells - pixelMetric(PM_HeaderMargin, option, widget);
    QStyleOptionHeader title(*header);
    title.rect.adjust(more, 0, -more - 1, 0);
    QProxyStyle::drawControl(element, &title, painter, widget);
  }
};

// A header whose every pixel answers, and of whose buttons only the left one edits. A style shades a header's
// colour as it likes, but one that the model tells has a meaning.
class GridHeader : public QHeaderView {
 public:
  GridHeader(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
    setSectionsClickable(true);
    setHighlightSections(orientation == Qt::Vertical);
    if (orientation == Qt::Horizontal) {
      auto* titles = new TitleStyle;
      titles->setParent(this);
      setStyle(titles);
    }
  }

 protected:
  // Between two sections lies a zone for resizing them, in which a click does nothing else. Rows are of one
  // height.
  void mousePressEvent(QMouseEvent* event) override {
    const int section = logicalIndexAt(event->position().toPoint());
    if (orientation() == Qt::Horizontal || section < 0) return QHeaderView::mousePressEvent(event);
    const QPointF middle(event->position().x(),
                         sectionViewportPosition(section) + sectionSize(section) / 2.0);
    QMouseEvent moved(event->type(), middle, event->scenePosition(), event->globalPosition(), event->button(),
                      event->buttons(), event->modifiers(), event->pointingDevice());
    QHeaderView::mousePressEvent(&moved);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) QHeaderView::mouseDoubleClickEvent(event);
  }

  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    const auto told = [&](int role) { return model()->headerData(section, Qt::Vertical, role); };
    const QVariant background = orientation() == Qt::Vertical ? told(Qt::BackgroundRole) : QVariant();
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
  setVerticalHeader(new GridHeader(Qt::Vertical, this));
  setHorizontalHeader(new GridHeader(Qt::Horizontal, this));
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
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) +
                                            kCellMargins);
  // Texts that are too long for a header's first glance must not decide how wide it is.
  horizontalHeader()->setMaximumSectionSize(kWidestColumn);
  verticalHeader()->setResizeContentsPrecision(0);

  corner_ = findChild<QAbstractButton*>();
  if (corner_ != nullptr) corner_->installEventFilter(this);
  connect(this, &QTableView::doubleClicked, this, &GridView::Grid_DblClick);
  connect(verticalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int row) {
    selectRow(row);
    emit Grid_DblClick();
  });
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

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) QTableView::mouseDoubleClickEvent(event);
}

// Texts were fitted before there was a width to share.
void GridView::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  if (std::exchange(fitted_, true)) return;
  FitTitles();
  FitNewRows(0);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete) {
    emit Grid_KeyDown(46);
  } else if (event->matches(QKeySequence::Copy)) {
    Copy();
  } else if (event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    emit Grid_DblClick();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void GridView::Copy() const { QGuiApplication::clipboard()->setText(SelectedText()); }

void GridView::SetHint(const QString& hint) {
  if (hint_ == hint) return;
  hint_ = hint;
  viewport()->update();
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (hint_.isEmpty() || table_->rowCount() > 1) return;
  QPainter painter(viewport());
  QColor pale = palette().color(QPalette::Text);
  pale.setAlphaF(0.65F);
  painter.setPen(pale);
  const int margin = fontMetrics().height();
  painter.drawText(viewport()->rect().adjusted(margin, 3 * margin, -margin, -margin),
                   static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap, hint_);
}

// Whole rows begin with column 0, whole columns with their titles.
QString GridView::SelectedText() const {
  const GridSelection cells = Selection();
  if (cells.Row == 0) return {};
  const bool whole_rows = cells.Col == 1 && cells.ColSel == table_->columnCount();
  const bool whole_columns = cells.Row == 1 && cells.RowSel == table_->rowCount();
  const auto text = [this](std::int64_t row, int col) {
    const int at = static_cast<int>(row);
    if (row == 0)
      return col == 0 ? table_->CornerTitle() : table_->headerData(col - 1, Qt::Horizontal).toString();
    if (col == 0) return table_->headerData(at - 1, Qt::Vertical).toString();
    return table_->index(at - 1, col - 1).data().toString();
  };
  QString block;
  for (std::int64_t row = whole_columns ? 0 : cells.Row; row <= cells.RowSel; ++row) {
    for (int col = whole_rows ? 0 : cells.Col; col <= cells.ColSel; ++col) {
      if (col > (whole_rows ? 0 : cells.Col)) block += QLatin1Char('\t');
      block += text(row, col);
    }
    block += QLatin1Char('\n');
  }
  return block;
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
  if (width > columnWidth(column)) setColumnWidth(column, std::min(width, WidestFit()));
}

// One line of noise must not push the other columns out of reach.
int GridView::WidestFit() const {
  return isVisible() ? std::max(viewport()->width() / 3, kFittedUnseen) : kFittedUnseen;
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
