// SPDX-License-Identifier: MIT
#include "link/port_directory.h"

#include <algorithm>
#include <charconv>

#include "data/text_lines.h"

namespace quenlor::link {
namespace {

// A device name in one line of text; anything else in the place of one is damage.
bool IsName(std::string_view text) {
  const auto is_control = [](unsigned char character) { return character < 0x20 || character == 0x7f; };
  return !text.empty() && std::none_of(text.begin(), text.end(), is_control);
}

std::string ComName(int port) { return "COM" + std::to_string(port); }

// The number in "COM3", 0 for other names.
int ComNumber(std::string_view device) {
  int port = 0;
  if (!device.starts_with("COM")) return 0;
  std::from_chars(device.data() + 3, device.data() + device.size(), port);
  return port > 0 && ComName(port) == device ? port : 0;
}

}  // namespace

PortDirectory::PortDirectory(Naming naming, Devices overrides)
    : naming_(naming), overrides_(std::move(overrides)) {}

std::optional<std::pair<int, std::string>> PortDirectory::ParseLine(std::string_view line) {
  const auto equals = line.find('=');
  if (equals == line.npos) return std::nullopt;
  const auto number = data::Trimmed(line.substr(0, equals));
  const auto device = data::Trimmed(line.substr(equals + 1));
  int port = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), port);
  if (error != std::errc() || end != number.data() + number.size() || port < 1) return std::nullopt;
  if (!IsName(device)) return std::nullopt;
  return std::pair(port, std::string(device));
}

void PortDirectory::Parse(std::string text) {
  text_ = std::move(text);
  lines_.clear();
  std::string_view rest = text_;
  if (rest.starts_with(data::kByteOrderMark))  // some editors put it before the first line
    rest.remove_prefix(data::kByteOrderMark.size());
  while (!rest.empty()) {
    auto line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (auto entry = ParseLine(line)) lines_.insert(std::move(*entry));
  }
}

bool PortDirectory::Assign(const std::vector<std::string>& present) {
  present_ = present;
  bool changed = false;
  for (const auto& device : present) {
    // A name that would not come back from the text as it was cannot be kept there.
    if (!IsName(device) || data::Trimmed(device) != device || HasNumber(device)) continue;
    Append(LowestFreeNumber(present), device);
    changed = true;
  }
  return changed;
}

std::string PortDirectory::Device(int port) const {
  if (port < 1) return {};
  if (const auto found = overrides_.find(port); found != overrides_.end()) return found->second;
  if (const auto found = lines_.find(port); found != lines_.end()) return found->second;
  return naming_ == Naming::kCom ? ComName(port) : std::string();
}

std::string PortDirectory::Known(int port) const {
  const bool has_line = overrides_.contains(port) || lines_.contains(port);
  const bool is_there = std::find(present_.begin(), present_.end(), ComName(port)) != present_.end();
  return has_line || is_there ? Device(port) : std::string();
}

bool PortDirectory::HasNumber(const std::string& device) const {
  if (naming_ == Naming::kCom) {
    const int own = ComNumber(device);
    if (own != 0 && !lines_.contains(own)) return true;
  }
  return std::any_of(lines_.begin(), lines_.end(), [&](const auto& line) { return line.second == device; });
}

int PortDirectory::LowestFreeNumber(const std::vector<std::string>& present) const {
  const auto taken = [&](int port) {
    if (lines_.contains(port) || overrides_.contains(port)) return true;
    return naming_ == Naming::kCom &&
           std::find(present.begin(), present.end(), ComName(port)) != present.end();
  };
  int port = 1;
  while (taken(port)) ++port;
  return port;
}

// In the manner of the lines that are there.
void PortDirectory::Append(int port, const std::string& device) {
  const bool as_crlf =
      text_.find('\n') == text_.npos ? naming_ == Naming::kCom : text_.find("\r\n") != text_.npos;
  const std::string line_end = as_crlf ? "\r\n" : "\n";
  // A CR at the text's end is half of a line end; a second one would be damage to its line.
  if (!text_.empty() && !text_.ends_with('\n')) text_ += text_.ends_with('\r') ? "\n" : line_end;
  text_ += std::to_string(port) + "=" + device + line_end;
  lines_.emplace(port, device);
}

}  // namespace quenlor::link
