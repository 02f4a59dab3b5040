// SPDX-License-Identifier: MIT
#include <algorithm>

#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/port_directory.h"

namespace quenlor::fuzz {
namespace {

using Directory = link::PortDirectory;

// The input up to the next divider, which is taken away with it.
std::string_view TakePart(std::string_view& input) {
  constexpr std::string_view kDivider = "\n--\n";
  const auto end = std::min(input.find(kDivider), input.size());
  const auto part = input.substr(0, end);
  input.remove_prefix(std::min(end + kDivider.size(), input.size()));
  return part;
}

// A line ends with LF or CR LF; a CR elsewhere is damage within its line.
std::vector<std::string> Lines(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

std::map<int, std::string> Entries(std::string_view text) {
  std::map<int, std::string> entries;
  for (const std::string& line : Lines(text)) {
    if (auto entry = Directory::ParseLine(line)) entries.insert(std::move(*entry));
  }
  return entries;
}

void CheckAssignment(Directory::Naming naming, const std::string& text, const Directory::Devices& overrides,
                     const std::vector<std::string>& present) {
  Directory directory(naming, overrides);
  directory.Parse(text);
  Check(directory.Text() == text, "what people wrote is not touched");

  const auto before = Entries(text);
  const bool changed = directory.Assign(present);
  const std::string assigned = directory.Text();
  Check(assigned.starts_with(text), "lines are only added");
  Check(changed == (assigned != text), "a change is told");
  const auto after = Entries(assigned);
  for (const auto& [port, device] : before) {
    const auto found = after.find(port);
    Check(found != after.end() && found->second == device, "a number once given stays with its device");
  }

  Check(!directory.Assign(present) && directory.Text() == assigned, "devices get one number");
  Directory again(naming, overrides);
  again.Parse(assigned);
  for (const auto& [port, device] : after) {
    Check(again.Device(port) == directory.Device(port), "the text holds what is known");
    if (!overrides.contains(port)) Check(again.Device(port) == device, "a line is a port's device");
  }
  for (const auto& [port, device] : overrides) Check(again.Device(port) == device, "an override wins");
}

}  // namespace

// The input is three parts with lines "--" between: the text with the numbers, the devices that are present,
// one a line, and the overrides, in lines like the text's.
void PortDirectory(std::string_view input) {
  const std::string text(TakePart(input));
  const auto present = Lines(TakePart(input));
  const auto overrides = Entries(input);
  CheckAssignment(Directory::Naming::kFiles, text, overrides, present);
  CheckAssignment(Directory::Naming::kCom, text, overrides, present);
}

}  // namespace quenlor::fuzz
