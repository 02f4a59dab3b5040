// SPDX-License-Identifier: MIT
#include "reports/statistics_window.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/busy_pointer.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/qt_busy_pointer.h"
#include "platform/qt/to_qstring.h"
#include "reports/statistics_text.h"
#include "reports/statistics_widths.h"

namespace quenlor::reports {
namespace {

using platform::BusyPointer;
using platform::qt::ShowBusyPointer;

constexpr int kWidestRowTitle = 400;  // pixels; the cells beside it are to be seen

}  // namespace

struct StatisticsWindow::Content {
  StatisticsTable table;
  std::string file_name;
  std::string date;
  GridSizes sizes;

  StatisticsSheet Sheet() const { return {file_name, date, table}; }
};

// What the grid shows of the content.
class StatisticsWindow::GridTable : public platform::qt::GridTable {
 public:
  using platform::qt::GridTable::GridTable;

  void Show(std::shared_ptr<const Content> content) {
    beginResetModel();
    content_ = std::move(content);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    if (parent.isValid() || content_ == nullptr) return 0;
    constexpr StatisticsTable::Row kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(content_->table.Rows() - 1, kMost));
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || content_ == nullptr ? 0 : content_->table.Cols() - 1;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole) return AlignmentOf(index.row() + 1, index.column() + 1);
    return role == Qt::DisplayRole ? Text(index.row() + 1, index.column() + 1) : QVariant();
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) return AlignmentOf(0, section + 1);
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? Text(0, section + 1) : Text(section + 1, 0);
  }
  QString CornerTitle() const override { return Text(0, 0); }

 private:
  QString Text(StatisticsTable::Row row, int col) const {
    return content_ == nullptr ? QString()
                               : platform::qt::ToShortQString(content_->table.TextMatrix(row, col));
  }

  QVariant AlignmentOf(StatisticsTable::Row row, int col) const {
    const bool right = content_ != nullptr && StandsRight(content_->table, row, col);
    return QVariant((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }

  std::shared_ptr<const Content> content_;
};

StatisticsWindow::StatisticsWindow(platform::Printer& printer, platform::Clipboard& clipboard,
                                   QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      printer_(printer),
      clipboard_(clipboard),
      content_(std::make_shared<Content>()),
      table_(new GridTable(this)),
      Grid1(new platform::qt::GridView(table_, QStringLiteral("Grid1"),
                                       tr("Last reading of every run and statistics"), this)),
      Print(new QPushButton(tr("Print(&P)"), this)),
      Copy(new QPushButton(tr("Copy(&C)"), this)) {
  setObjectName(QStringLiteral("Form4"));
  setWindowTitle(tr("Statistics"));
  BuildWindow();
  ConnectHandlers();
}

StatisticsWindow::~StatisticsWindow() = default;

void StatisticsWindow::BuildWindow() {
  Grid1->setFrameShape(QFrame::NoFrame);
  Grid1->verticalHeader()->setHighlightSections(false);
  Grid1->verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);

  Print->setObjectName(QStringLiteral("Print"));
  Print->setToolTip(tr("Prints the table (Ctrl+P)"));
  Copy->setObjectName(QStringLiteral("Copy"));
  Copy->setToolTip(tr("Puts the table on the clipboard as text (Ctrl+C)"));
  for (QPushButton* button : {Print, Copy}) button->setAutoDefault(false);

  // The grid fills the window from its corner; the layout keeps it so (Form_Resize).
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(Grid1, 1);
  auto* buttons = new QHBoxLayout;
  const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin) / 2;
  buttons->setContentsMargins(margin, margin, margin, margin);
  buttons->addWidget(Print);
  buttons->addWidget(Copy);
  buttons->addStretch(1);
  layout->addLayout(buttons);
}

void StatisticsWindow::ConnectHandlers() {
  connect(Print, &QPushButton::clicked, this, &StatisticsWindow::Print_Click);
  connect(Copy, &QPushButton::clicked, this, &StatisticsWindow::Copy_Click);
  const auto key = [this](QKeySequence::StandardKey keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button, [button] { button->click(); });
  };
  key(QKeySequence::Print, Print);
  key(QKeySequence::Copy, Copy);
}

void StatisticsWindow::Show(StatisticsTable table, std::string file_name, std::string date) {
  hide();
  {
    const BusyPointer busy(ShowBusyPointer);
    auto content = std::make_shared<Content>();
    content->table = std::move(table);
    content->file_name = std::move(file_name);
    content->date = std::move(date);
    const double twips_per_pixel = platform::kTwipsPerInch / logicalDpiX();
    const QFontMetricsF font(this->font(), this);
    const MeasureText measure = [&](std::string_view text) {
      return font.horizontalAdvance(platform::qt::ToQString(text)) * twips_per_pixel;
    };
    content->sizes = {
        .column_widths = ColumnWidths(content->table, measure),
        .row_height =
            static_cast<int>(std::lround(Grid1->verticalHeader()->defaultSectionSize() * twips_per_pixel)),
        .letter_height = QFontInfo(this->font()).pixelSize() * twips_per_pixel,
        .line_height = font.height() * twips_per_pixel,
    };
    content_ = std::move(content);
    table_->Show(content_);
    FitColumns();
    if (!testAttribute(Qt::WA_Resized)) FitWindow();
  }
  show();
  FitColumns();  // a grid that is shown for the first time has fitted them in its own way
  raise();
  activateWindow();
  Grid1->setFocus();
}

// A style may need more room beside a text than the columns' margin.
void StatisticsWindow::FitColumns() {
  const double twips_per_pixel = platform::kTwipsPerInch / logicalDpiX();
  const int grid_line = 1;
  const int cell_margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, Grid1) + 1);
  const int header_margin = 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, Grid1);
  const double missing =
      std::max(cell_margin, header_margin) + grid_line - kColumnMarginTwips / twips_per_pixel;
  const auto pixels = [&](int twips) {
    const double width = std::ceil(twips / twips_per_pixel + std::max(0.0, missing));
    return static_cast<int>(std::min<double>(width, platform::qt::GridView::kWidestColumn));
  };
  const std::vector<int>& widths = content_->sizes.column_widths;
  Grid1->verticalHeader()->setFixedWidth(std::min(pixels(widths.front()), kWidestRowTitle));
  for (int col = 1; col < content_->table.Cols(); ++col)
    Grid1->setColumnWidth(col - 1, pixels(widths[static_cast<std::size_t>(col)]));
}

// The window as large as its grid, within reason; later its size is the operator's.
void StatisticsWindow::FitWindow() {
  ensurePolished();
  const QSize screen = this->screen()->availableSize() * 3 / 4;
  const QHeaderView& across = *Grid1->horizontalHeader();
  const QHeaderView& down = *Grid1->verticalHeader();
  const int scroll_bar = Grid1->verticalScrollBar()->sizeHint().width();
  constexpr int kMostRows = 24;
  const int rows = std::min(table_->rowCount(), kMostRows) * down.defaultSectionSize();
  const int buttons = layout()->sizeHint().height() - Grid1->sizeHint().height();
  const QSize wanted(down.width() + across.length() + scroll_bar + 2,
                     across.sizeHint().height() + rows + scroll_bar + buttons);
  const QSize least(fontMetrics().averageCharWidth() * 40, 0);
  resize(wanted.boundedTo(screen).expandedTo(least));
}

void StatisticsWindow::Print_Click() {
  if (printing_) return;
  printing_ = true;
  const QPointer<StatisticsWindow> window(this);
  const std::shared_ptr<const Content> content = content_;
  std::optional<BusyPointer> busy;
  PrintStatistics(printer_, content->Sheet(), content->sizes, [&] {
    if (!window || !window->isVisible()) return false;
    busy.emplace(ShowBusyPointer);
    return true;
  });
  if (window) printing_ = false;
}

void StatisticsWindow::Copy_Click() {
  const BusyPointer busy(ShowBusyPointer);
  clipboard_.Clear();
  clipboard_.SetText(ClipboardText(content_->Sheet()));
}

}  // namespace quenlor::reports
