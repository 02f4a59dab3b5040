// SPDX-License-Identifier: MIT
#include "reports/statistics_widths.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "data/utf8.h"

namespace quenlor::reports {
namespace {

constexpr std::size_t kMostMeasuredBytes = 1000;

std::size_t CharacterSize(std::string_view text) {
  std::size_t size = std::min<std::size_t>(1, text.size());
  while (size < text.size() && (text[size] & 0xC0) == 0x80) ++size;
  return size;
}

// Adds up how far every character moves the next one on, which depends on both: "AV" is less wide than "A"
// and "V". Each pair is measured once.
class PairWidths {
 public:
  explicit PairWidths(const MeasureText& measure) : measure_(measure), ascii_(kAscii * kAscii, kUnknown) {}

  double Of(std::string_view text) {
    double width = 0;
    while (!text.empty()) {
      const std::size_t size = CharacterSize(text);
      const std::size_t pair_size = size + CharacterSize(text.substr(size));
      width += Advance(text.substr(0, pair_size), size);
      text.remove_prefix(size);
    }
    return width;
  }

 private:
  static constexpr std::size_t kAscii = 128;
  static constexpr double kUnknown = std::numeric_limits<double>::lowest();

  // Of the pair's first character, which is that many bytes long; alone when no other follows it.
  double Advance(std::string_view pair, std::size_t first_size) {
    double& advance = Place(pair);
    if (advance == kUnknown) {
      const std::string_view second = pair.substr(first_size);
      advance = measure_(pair) - (second.empty() ? 0 : measure_(second));
    }
    return advance;
  }

  double& Place(std::string_view pair) {
    const auto first = static_cast<unsigned char>(pair.front());
    const auto second = static_cast<unsigned char>(pair.size() > 1 ? pair[1] : '\0');
    if (pair.size() <= 2 && first < kAscii && second < kAscii) return ascii_[first * kAscii + second];
    return others_.try_emplace(std::string(pair), kUnknown).first->second;
  }

  const MeasureText& measure_;
  std::vector<double> ascii_;
  std::unordered_map<std::string, double> others_;
};

}  // namespace

std::vector<int> ColumnWidths(const StatisticsTable& table, const MeasureText& measure) {
  std::vector<int> widths(static_cast<std::size_t>(table.Cols()), kColumnMarginTwips);
  PairWidths pairs(measure);
  const auto widen = [&](int& column_width, std::string_view cell) {
    const std::string_view text = data::Utf8Prefix(cell, kMostMeasuredBytes);
    if (std::lround(pairs.Of(text)) + kColumnMarginTwips <= column_width) return;
    const double width = measure(text) + kColumnMarginTwips;
    if (width > column_width) column_width = static_cast<int>(std::nearbyint(width));
  };
  for (std::size_t col = 0; col < widths.size(); ++col)
    widen(widths[col], table.TextMatrix(0, static_cast<int>(col)));
  std::vector<std::string_view> room(widths.size());
  for (StatisticsTable::Row row = 1; row < table.Rows(); ++row) {
    const std::span<const std::string_view> cells = table.Cells(row, room);
    for (std::size_t col = 0; col < cells.size(); ++col) widen(widths[col], cells[col]);
  }
  return widths;
}

}  // namespace quenlor::reports
