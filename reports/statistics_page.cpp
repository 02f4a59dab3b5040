// SPDX-License-Identifier: MIT
#include "reports/statistics_page.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "graph/fit_text.h"
#include "reports/statistics_widths.h"

namespace quenlor::reports {
namespace {

using platform::Across;
using platform::DrawingSurface;
using platform::Point;
using Row = StatisticsTable::Row;

constexpr double kEdgeTwips = platform::kTwipsPerPixel;  // keeps the last lines of the grid on the paper
// Paper too small for anything counts as so large, so that pages still end.
constexpr double kLeastRoomTwips = platform::kTwipsPerInch;
constexpr double kLeastMarginTwips = 20;  // between a text and the line at its right
constexpr platform::Rgb kBlack{0, 0, 0};

}  // namespace

// The rows from `first_row` on stand below the title row, the columns beside column 0.
struct StatisticsPages::Part {
  Row first_row = 1;
  Row last_row = 0;
  std::vector<int> columns;
  double width = 0;
  double height = 0;
};

StatisticsPages::StatisticsPages(const StatisticsSheet& sheet, const GridSizes& sizes,
                                 platform::PageSize page)
    : sheet_(sheet), sizes_(sizes), page_(page), widths_(sizes.column_widths) {
  DivideColumns();
  const double room = page_.height - Top() - kEdgeTwips;
  const double rows = std::floor(room / std::max(sizes_.row_height, 1));
  rows_a_page_ = static_cast<Row>(std::clamp(rows - 1, 1.0, 1e6));
}

// Column 0 stands on every page, so it may not take all of the paper where others have to follow.
void StatisticsPages::DivideColumns() {
  const int room = static_cast<int>(std::max(page_.width - kLeft - kEdgeTwips, kLeastRoomTwips));
  first_columns_ = {1};
  if (std::accumulate(widths_.begin(), widths_.end(), std::int64_t{0}) <= room) return;
  widths_.front() = std::min(widths_.front(), room / 2);
  int right = widths_.front();
  for (int col = 1; col < sheet_.table.Cols(); ++col) {
    int& width = widths_[static_cast<std::size_t>(col)];
    width = std::min(width, room - widths_.front());
    if (right + width > room) {
      first_columns_.push_back(col);
      right = widths_.front();
    }
    right += width;
  }
}

int StatisticsPages::Count() const {
  const Row down = (sheet_.table.Rows() - 1 + rows_a_page_ - 1) / rows_a_page_;
  const Row count = down * static_cast<Row>(first_columns_.size());
  return static_cast<int>(std::min<Row>(count, std::numeric_limits<int>::max()));
}

StatisticsPages::Part StatisticsPages::PartOn(int page) const {
  const Row last_row = sheet_.table.Rows() - 1;
  const Row down = (last_row + rows_a_page_ - 1) / rows_a_page_;
  Part part;
  part.first_row = 1 + page % down * rows_a_page_;
  part.last_row = std::min(part.first_row + rows_a_page_ - 1, last_row);
  part.height = static_cast<double>(part.last_row - part.first_row + 2) * sizes_.row_height;

  const auto across = static_cast<std::size_t>(page / down);
  const int end = across + 1 < first_columns_.size() ? first_columns_[across + 1] : sheet_.table.Cols();
  part.columns = {0};
  for (int col = first_columns_[across]; col < end; ++col) part.columns.push_back(col);
  for (const int col : part.columns) part.width += widths_[static_cast<std::size_t>(col)];
  return part;
}

void StatisticsPages::Draw(DrawingSurface& surface, int page) const {
  surface.SetViewport({surface.Whole(), {0, 0, page_.width, page_.height}});
  surface.SetPen({kBlack});
  const double left = DrawNumber(surface, page);
  DrawFitted(surface, Across::kLeft, {0, sizes_.line_height / 2}, sheet_.file_name, left);
  DrawFitted(surface, Across::kLeft, {0, sizes_.line_height * 3 / 2}, sheet_.date, page_.width);
  const Part part = PartOn(page);
  DrawGrid(surface, part);
  DrawFrame(surface, part);
}

// Gives what the number leaves of the line at its left.
double StatisticsPages::DrawNumber(DrawingSurface& surface, int page) const {
  if (page == 0) return page_.width;
  const std::string number = "Page " + std::to_string(page + 1) + " of " + std::to_string(Count());
  const double right = page_.width - kEdgeTwips;
  DrawFitted(surface, Across::kRight, {right, sizes_.line_height / 2}, number, right);
  return std::max(0.0, right - surface.TextWidth(number, sizes_.letter_height) - sizes_.letter_height);
}

// The grid's picture has lines at the right of its columns and below its rows.
void StatisticsPages::DrawGrid(DrawingSurface& surface, const Part& part) const {
  constexpr double kMargin = kColumnMarginTwips / 2.0;
  const Row first_summary_row = sheet_.table.Runs() + 1;
  const double end = kLeft + part.width;
  const double bottom = Top() + part.height;
  std::vector<platform::Segment> lines;
  double y = Top();
  const auto draw_row = [&](Row row) {
    double x = kLeft;
    for (const int col : part.columns) {
      const double width = widths_[static_cast<std::size_t>(col)];
      const bool right = StandsRight(sheet_.table, row, col);
      const double side = right ? x + width - kMargin : x + kMargin;
      DrawFitted(surface, right ? Across::kRight : Across::kLeft, {side, y + sizes_.row_height / 2.0},
                 sheet_.table.TextMatrix(row, col), width - kMargin - kLeastMarginTwips);
      x += width;
    }
    y += sizes_.row_height;
    lines.push_back({{kLeft, y}, {end, y}});
    if (row + 1 == first_summary_row)
      lines.push_back({{kLeft, y - kDoubleLineTwips}, {end, y - kDoubleLineTwips}});
  };
  draw_row(0);
  for (Row row = part.first_row; row <= part.last_row; ++row) draw_row(row);

  double x = kLeft;
  for (const int col : part.columns) {
    x += widths_[static_cast<std::size_t>(col)];
    lines.push_back({{x, Top()}, {x, bottom}});
  }
  surface.SetPen({kBlack, kGridPenWidth});
  surface.DrawLines(lines);
}

void StatisticsPages::DrawFrame(DrawingSurface& surface, const Part& part) const {
  surface.SetPen({kBlack, kFramePenWidth});
  surface.DrawLine({kLeft, Top()}, {kLeft + part.width, Top()});
  surface.DrawLine({kLeft, Top()}, {kLeft, Top() + part.height});
}

// Letters on paper are a little wider or narrower than on the screen. What does not fit is drawn somewhat
// smaller; of what still does not fit, the beginning.
void StatisticsPages::DrawFitted(DrawingSurface& surface, Across across, Point middle, std::string_view text,
                                 double room) const {
  constexpr double kSmallest = 0.8;
  const auto draw = [&](std::string_view fitted, double height) {
    surface.DrawText(middle, across, platform::Down::kCentre, fitted, height);
  };
  if (text.empty()) return;
  const double width = surface.TextWidth(text, sizes_.letter_height);
  if (width <= room) return draw(text, sizes_.letter_height);
  const double height = sizes_.letter_height * std::max(room / width, kSmallest);
  if (room / width >= kSmallest) return draw(text, height);
  draw(graph::FitText(text, room, [&](std::string_view part) { return surface.TextWidth(part, height); }),
       height);
}

void PrintStatistics(platform::Printer& printer, const StatisticsSheet& sheet, const GridSizes& sizes,
                     const std::function<bool()>& go_on) {
  const std::string title = "Statistics " + std::string(sheet.file_name);
  printer.Choose(title);
  if (!go_on()) return;
  const StatisticsPages pages(sheet, sizes, printer.Page());
  const int copies = printer.Copies();
  for (int copy = 1; copy <= copies; ++copy)
    printer.Print(title, pages.Count(), [&](DrawingSurface& page, int number) { pages.Draw(page, number); });
}

}  // namespace quenlor::reports
