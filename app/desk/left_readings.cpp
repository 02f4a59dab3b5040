// SPDX-License-Identifier: MIT
#include "app/desk/left_readings.h"

#include <algorithm>

#include "app/desk/session.h"
#include "app/desk/status.h"
#include "data/text_lines.h"
#include "data/text_number.h"

namespace quenlor::app {
namespace {

// A larger one surely holds readings, and counting them would keep the window waiting.
constexpr std::uint64_t kCounted = std::uint64_t{4} << 20;
constexpr std::size_t kMostSeen = 1000;

// "Com_1.txt", and "Com_1_20261121-093000.txt" of one that was set aside.
bool IsRawLog(std::string_view name) {
  return name.starts_with("Com_") && name.ends_with(".txt") && name.size() > 8 && data::IsDigit(name[4]);
}

std::string LineOf(const platform::FileEntry& log) { return log.name + " " + std::to_string(log.size); }

// Readings of a raw log: its lines but the titles.
std::int64_t CountReadings(std::string_view bytes) {
  data::TextLines lines(bytes);
  std::int64_t count = 0;
  while (const auto line = lines.Next()) {
    if (!line->empty() && !line->starts_with("No.")) ++count;
  }
  return count;
}

}  // namespace

LeftReadings::LeftReadings(platform::FileSystem& files, const std::string& folder)
    : files_(files), folder_(folder), seen_path_(folder + "/Seen.txt") {}

std::vector<std::string> LeftReadings::SeenLines() const {
  std::vector<std::string> seen;
  const auto text = files_.Read(seen_path_);
  if (!text.ok()) return seen;
  data::TextLines lines(text.value());
  while (const auto line = lines.Next()) {
    if (!line->empty() && seen.size() < kMostSeen) seen.emplace_back(*line);
  }
  return seen;
}

bool LeftReadings::HoldsReadings(const platform::FileEntry& log) const {
  if (log.size > kCounted) return true;
  const auto bytes = files_.Read(folder_ + "/" + log.name);
  return bytes.ok() && CountReadings(bytes.value()) > 0;
}

std::optional<LeftReadings::Left> LeftReadings::Find() const {
  const std::vector<std::string> seen = SeenLines();
  const link::SavedLogs saved(files_, folder_);
  std::vector<platform::FileEntry> left;
  for (const platform::FileEntry& entry : files_.List(folder_)) {
    if (IsRawLog(entry.name) && std::ranges::find(seen, LineOf(entry)) == seen.end() &&
        !saved.KnowsOfSize(entry.name, entry.size) && HoldsReadings(entry))
      left.push_back(entry);
  }
  if (left.empty()) return std::nullopt;
  const platform::FileEntry& latest = *std::ranges::max_element(left, {}, &platform::FileEntry::modified);
  const std::string path = folder_ + "/" + latest.name;
  std::string what = "readings";
  if (latest.size <= kCounted) {
    const auto bytes = files_.Read(path);
    if (bytes.ok()) what = CountText(CountReadings(bytes.value()), "reading", "readings");
  }
  std::string text = latest.name + " holds " + what + " that were never saved";
  if (left.size() > 1)
    text += ", and so do " + CountText(static_cast<std::int64_t>(left.size()) - 1, "other log", "other logs");
  return Left{path, text};
}

void LeftReadings::Seen(const std::string& path) {
  const std::string name = NameWithoutFolder(path);
  std::vector<std::string> lines = SeenLines();
  std::erase_if(lines, [&](const std::string& line) { return line.starts_with(name + " "); });
  for (const platform::FileEntry& entry : files_.List(folder_)) {
    if (entry.name == name) lines.push_back(LineOf(entry));
  }
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  files_.Replace(seen_path_, text);
}

}  // namespace quenlor::app
