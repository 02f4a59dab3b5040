// SPDX-License-Identifier: MIT
#include "data/header_values.h"

namespace quenlor::data {
namespace {

bool SaysNothing(std::string_view text) { return text.empty() || text == " "; }

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text.substr(0, text.find_last_not_of("\r\n") + 1));
  for (char& c : line) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  return line;
}

std::string FileNameFrom(std::string_view text) {
  constexpr std::string_view kForbidden = "\\/:;*?<>\"|";
  if (SaysNothing(text)) return "File Name";
  std::string name(text);
  for (char& c : name) {
    if (kForbidden.find(c) != std::string_view::npos) c = ' ';
  }
  return name;
}

std::string RemarksFrom(std::string_view text) {
  return std::string(SaysNothing(text) ? kEmptyRemarks : text);
}

}  // namespace quenlor::data
