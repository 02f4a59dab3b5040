// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "reports/statistics.h"

namespace quenlor::reports {

// How wide a text is in the statistics window's font, in twips.
using MeasureText = std::function<double(std::string_view text)>;

// How much wider than its widest text a column is, and how wide it is without any.
inline constexpr int kColumnMarginTwips = 100;

// The width of every column in whole twips: its widest text and the margin.
//
// Measuring is slow and there may be millions of texts: a text is measured only where the widths of its
// characters, each beside the next one, add up to more than the column has. Of a text longer than a thousand
// bytes only the beginning counts.
std::vector<int> ColumnWidths(const StatisticsTable& table, const MeasureText& measure);

}  // namespace quenlor::reports
