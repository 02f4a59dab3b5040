// SPDX-License-Identifier: MIT
#include "data/settings_list.h"

#include <charconv>

#include "data/text_lines.h"
#include "data/text_number.h"

namespace quenlor::data {

SettingsList::SettingsList() { SetDefaults(false); }

void SettingsList::SetDefaults(bool decimal_comma) {
  elements_ = {"16", "6", "1", "2", "0", "0", "0", "0", "0", "5",
               "2",  "1", "0", "1", "1", "0", "0", "0", "0"};
  if (decimal_comma) Set(setting::kDP, "1");
}

void SettingsList::Parse(std::string_view text, bool decimal_comma) {
  SetDefaults(decimal_comma);
  TextLines lines(text);
  for (std::string& element : elements_) {
    const auto line = lines.Next();
    if (!line) return;
    element = *line;
  }
}

std::string SettingsList::Text() const {
  std::string text;
  for (const std::string& element : elements_) text += element + "\r\n";
  return text;
}

int SettingsList::Index(int element) const {
  const std::string& text = (*this)[element];
  int index = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
  const bool whole =
      error == std::errc() && end == text.data() + text.size() && text.size() <= 5 && index >= 0;
  return whole ? index : -1;
}

bool SettingsList::IsOn(int element) const { return (*this)[element] == "True" || Number(element) != 0; }

double SettingsList::Number(int element) const { return C_Val((*this)[element]); }

}  // namespace quenlor::data
