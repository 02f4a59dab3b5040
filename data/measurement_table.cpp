// SPDX-License-Identifier: MIT
#include "data/measurement_table.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quenlor::data {
namespace {

constexpr int kOffsetBits = 40;  // a block may be a terabyte, and there may be 16 million blocks
constexpr std::uint64_t kOffsetMask = (std::uint64_t{1} << kOffsetBits) - 1;
constexpr std::size_t kBlockSize = std::size_t{1} << 20;

const char* CellEnd(const char* at) {
  while (static_cast<unsigned char>(*at) < 0xFE) ++at;
  return at;
}

// Replaces one byte by another wherever it stands; how often it did.
int Replace(char* at, const char* end, char from, char to) {
  int count = 0;
  for (; at != end; ++at) {
    if (*at != from) continue;
    *at = to;
    ++count;
  }
  return count;
}

}  // namespace

MeasurementTable::MeasurementTable() { Reset(); }

void MeasurementTable::Reset(std::vector<std::string> titles) {
  titles_ = std::move(titles);
  if (titles_.size() > kMaxCols) titles_.resize(kMaxCols);
  if (titles_.empty()) titles_.emplace_back("No.");
  if (titles_.size() == 1) titles_.emplace_back("Time");
  blocks_.clear();
  starts_.clear();
  starts_.shrink_to_fit();
}

const char* MeasurementTable::RowStart(Row row) const {
  const std::uint64_t start = starts_[static_cast<std::size_t>(row - 1)];
  return blocks_[start >> kOffsetBits].data() + (start & kOffsetMask);
}

std::string_view MeasurementTable::BlockFrom(Row row) const {
  const std::uint64_t start = starts_[static_cast<std::size_t>(row - 1)];
  return std::string_view(blocks_[start >> kOffsetBits]).substr(start & kOffsetMask);
}

std::string_view MeasurementTable::TextMatrix(Row row, int col) const {
  if (col < 0 || col >= Cols() || row < 0 || row >= EntryRow()) return {};
  if (row == 0) return titles_[static_cast<std::size_t>(col)];
  const char* begin = RowStart(row);
  const char* end = CellEnd(begin);
  for (; col > 0; --col) {
    if (*end == kRowEnd) return {};
    begin = end + 1;
    end = CellEnd(begin);
  }
  return {begin, static_cast<std::size_t>(end - begin)};
}

std::span<const std::string_view> MeasurementTable::Cells(Row row, std::span<std::string_view> room) const {
  const char* begin = RowStart(row);
  const char* at = begin;
  std::size_t count = 0;
  // Ends the cell; true when there is no other to be told.
  const auto end_at = [&](const char* end) {
    room[count++] = {begin, static_cast<std::size_t>(end - begin)};
    begin = end + 1;
    return count == room.size() || *end == kRowEnd;
  };
  while (!end_at(at = CellEnd(at))) ++at;
  return room.first(count);
}

void MeasurementTable::SetTextMatrix(Row row, int col, std::string_view text) {
  if (col < 0 || col >= Cols() || row < 0 || row >= EntryRow()) return;
  if (row == 0) {
    titles_[static_cast<std::size_t>(col)] = text;
    return;
  }
  std::vector<std::string_view> cells;
  const char* begin = RowStart(row);
  for (const char* end = CellEnd(begin);; end = CellEnd(begin)) {
    cells.emplace_back(begin, static_cast<std::size_t>(end - begin));
    if (*end == kRowEnd) break;
    begin = end + 1;
  }
  cells.resize(std::max(cells.size(), static_cast<std::size_t>(col) + 1));
  cells[static_cast<std::size_t>(col)] = text;
  starts_[static_cast<std::size_t>(row - 1)] = StoreRow(cells);
}

bool MeasurementTable::AddDataColumn() {
  if (Cols() >= kMaxCols) return false;
  titles_.push_back("Data" + std::to_string(Cols() - 1));
  return true;
}

// Blocks only grow within what they reserved, so that a row, once stored, never moves.
std::uint64_t MeasurementTable::StoreRow(std::span<const std::string_view> cells) {
  std::size_t size = std::max<std::size_t>(cells.size(), 1);
  for (const std::string_view cell : cells) size += cell.size();
  if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < size) {
    std::string block;
    block.reserve(std::max(kBlockSize, size));
    blocks_.push_back(std::move(block));
  }
  std::string& block = blocks_.back();
  const std::uint64_t start = (std::uint64_t{blocks_.size() - 1} << kOffsetBits) | block.size();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) block.push_back(kCellEnd);
    block.append(cells[i]);
  }
  block.push_back(kRowEnd);
  return start;
}

void MeasurementTable::AppendRow(std::span<const std::string_view> cells) {
  if (cells.size() > kMaxCols) cells = cells.first(kMaxCols);
  while (static_cast<std::size_t>(Cols()) < cells.size()) AddDataColumn();
  starts_.push_back(StoreRow(cells));
}

MeasurementTable::RemovedRows MeasurementTable::RemoveRows(Row first, Row last) {
  const auto begin = starts_.begin() + (first - 1);
  const auto end = starts_.begin() + last;
  RemovedRows removed{first, {begin, end}};
  starts_.erase(begin, end);
  return removed;
}

void MeasurementTable::RestoreRows(const RemovedRows& rows) {
  starts_.insert(starts_.begin() + (rows.first - 1), rows.starts.begin(), rows.starts.end());
}

void MeasurementTable::AppendLine(Row row, char separator, std::string& line) const {
  if (row <= 0 || row >= EntryRow()) {
    for (int col = 0; col < Cols(); ++col) {
      if (col > 0) line.push_back(separator);
      line.append(TextMatrix(row, col));
    }
    return;
  }
  const std::size_t before = line.size();
  const std::string_view block = BlockFrom(row);
  line.append(block.substr(0, block.find(kRowEnd)));
  const int dividers = Replace(line.data() + before, line.data() + line.size(), kCellEnd, separator);
  line.append(static_cast<std::size_t>(std::max(0, Cols() - 1 - dividers)), separator);
}

void MeasurementTable::AdoptRows(std::string block, std::vector<std::uint64_t> starts) {
  const std::uint64_t number = std::uint64_t{blocks_.size()} << kOffsetBits;
  if (number != 0) {
    for (std::uint64_t& start : starts) start |= number;
  }
  blocks_.push_back(std::move(block));
  if (starts_.empty()) {
    starts_ = std::move(starts);
  } else {
    starts_.insert(starts_.end(), starts.begin(), starts.end());
  }
}

void MeasurementTable::AdoptReadings(MeasurementTable&& other) {
  const std::uint64_t number = std::uint64_t{blocks_.size()} << kOffsetBits;
  for (std::string& block : other.blocks_) blocks_.push_back(std::move(block));
  const std::size_t before = starts_.size();
  starts_.insert(starts_.end(), other.starts_.begin(), other.starts_.end());
  // Block numbers add up; offsets stand in other bits.
  for (std::size_t row = before; row < starts_.size(); ++row) starts_[row] += number;
  other.Reset();
}

void MeasurementTable::SetRunNumber(Row row, std::string_view text) {
  std::uint64_t& start = starts_[static_cast<std::size_t>(row - 1)];
  std::string& block = blocks_[start >> kOffsetBits];
  const char* const begin = block.data();
  const char* const old = begin + (start & kOffsetMask);
  const char* const end = CellEnd(old);
  // No text has line ends, so what stands before a row as one belongs to none.
  const char* first = old;
  while (first > begin && end - first < static_cast<std::ptrdiff_t>(text.size()) &&
         (first[-1] == '\n' || first[-1] == '\r'))
    --first;
  if (end - first < static_cast<std::ptrdiff_t>(text.size())) return SetTextMatrix(row, 0, text);
  const auto place = static_cast<std::size_t>(end - begin) - text.size();
  std::memcpy(block.data() + place, text.data(), text.size());
  start = (start & ~kOffsetMask) | place;
}

}  // namespace quenlor::data
