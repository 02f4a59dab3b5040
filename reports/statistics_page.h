// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"
#include "reports/statistics_text.h"

namespace quenlor::reports {

// How the statistics window shows its grid, in twips. On paper it has the same sizes.
struct GridSizes {
  std::vector<int> column_widths;
  int row_height = 0;
  double letter_height = 0;
  double line_height = 0;  // from one line of text to the next
};

// The statistics on paper: the captions as two lines, below them a picture of the grid with a frame along its
// top and its left edge.
//
// The four rows of statistics are set apart by a double line. A grid that fits is one page, of several the
// later ones are numbered. A taller one goes on with the title row repeated, a wider one with column 0
// repeated: first down, then across. Only a column that is wider than a page is cut. Nothing is laid out
// before it is drawn. The sheet's contents and the sizes must outlive the pages.
class StatisticsPages {
 public:
  static constexpr double kLeft = 500;         // of the picture, in twips
  static constexpr double kGapTwips = 100;     // between the captions and the picture
  static constexpr double kFrameDots = 5;      // the frame's line width,
  static constexpr double kDotsPerInch = 600;  // in dots of a usual printer
  static constexpr double kFramePenWidth = kFrameDots * 96 / kDotsPerInch;
  static constexpr double kGridPenWidth = kFramePenWidth / 2;
  static constexpr double kDoubleLineTwips = 30;  // from one to the other

  StatisticsPages(const StatisticsSheet& sheet, const GridSizes& sizes, platform::PageSize page);

  int Count() const;

  // Page 0 to Count() - 1, laid over the whole surface.
  void Draw(platform::DrawingSurface& surface, int page) const;

 private:
  struct Part;  // of the grid, on one page

  double Top() const { return 2 * sizes_.line_height + kGapTwips; }
  void DivideColumns();
  Part PartOn(int page) const;
  double DrawNumber(platform::DrawingSurface& surface, int page) const;
  void DrawGrid(platform::DrawingSurface& surface, const Part& part) const;
  void DrawFrame(platform::DrawingSurface& surface, const Part& part) const;
  void DrawFitted(platform::DrawingSurface& surface, platform::Across across, platform::Point middle,
                  std::string_view text, double room) const;

  StatisticsSheet sheet_;
  const GridSizes& sizes_;
  platform::PageSize page_;
  std::vector<int> widths_;         // of the columns on paper
  std::vector<int> first_columns_;  // besides column 0, of every page across
  StatisticsTable::Row rows_a_page_ = 1;
};

// Printing the statistics: the printer is chosen, then they are printed once for each copy as a document of
// its own. Every error is passed over, so a cancelled dialog prints with what was chosen before.
//
// Between the dialog and the paper `go_on` is asked, for the dialog may have been open for long.
void PrintStatistics(platform::Printer& printer, const StatisticsSheet& sheet, const GridSizes& sizes,
                     const std::function<bool()>& go_on);

}  // namespace quenlor::reports
