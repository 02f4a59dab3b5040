// SPDX-License-Identifier: MIT
#include "link/saved_logs.h"

#include <charconv>
#include <optional>

#include "data/text_lines.h"

namespace quenlor::link {
namespace {

constexpr std::size_t kSensibleSize = std::size_t{1} << 20;

std::optional<std::uint64_t> Number(std::string_view text, int base) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::string Hexadecimal(std::uint64_t number) {
  char digits[16];
  const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number, 16);
  return {digits, end};
}

}  // namespace

std::map<std::string, Fingerprint> SavedLogs::Read() const {
  std::map<std::string, Fingerprint> logs;
  const auto text = files_.Read(path_);
  if (!text.ok() || text.value().size() > kSensibleSize) return logs;
  data::TextLines lines(text.value());
  while (const auto line = lines.Next()) {
    const auto fields = data::SplitFields(*line, ' ');
    if (fields.size() != 3) continue;
    const auto size = Number(fields[1], 10);
    const auto hash = Number(fields[2], 16);
    if (size && hash) logs[fields[0]] = {*size, *hash};
  }
  return logs;
}

void SavedLogs::Note(const std::map<std::string, Fingerprint>& logs) {
  if (logs.empty()) return;
  std::map<std::string, Fingerprint> all = Read();
  for (const auto& [name, content] : logs) all[name] = content;
  std::string text;
  for (const auto& [name, content] : all)
    text += name + " " + std::to_string(content.size) + " " + Hexadecimal(content.hash) + "\r\n";
  files_.Replace(path_, text);
}

bool SavedLogs::KnowsOfSize(const std::string& name, std::uint64_t size) const {
  const auto logs = Read();
  const auto noted = logs.find(name);
  return noted != logs.end() && noted->second.size == size;
}

bool SavedLogs::Holds(const std::string& name, std::string_view content) const {
  const auto logs = Read();
  const auto noted = logs.find(name);
  if (noted == logs.end() || noted->second.size != content.size()) return false;
  Fingerprint now;
  now.Add(content);
  return now == noted->second;
}

}  // namespace quenlor::link
