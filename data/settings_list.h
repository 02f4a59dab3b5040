// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace quenlor::data {

// What each element of the settings list means. Menu elements hold the index of the checked item.
namespace setting {
inline constexpr int kPortCount = 0;   // items of the Com Port menu
inline constexpr int kFieldCount = 1;  // columns of a new document's header template
inline constexpr int kPort = 2;
inline constexpr int kBPS = 3;
inline constexpr int kParity = 4;
inline constexpr int kLength = 5;
inline constexpr int kBit = 6;
inline constexpr int kTerm = 7;
inline constexpr int kNum = 8;            // "Number": numeric field extraction
inline constexpr int kRepeatSeconds = 9;  // Text2
inline constexpr int kLW = 10;
inline constexpr int kVisco = 11;  // "Visco": start word and "STOP"
inline constexpr int kLog = 12;
inline constexpr int kRepeat = 13;  // Check1
inline constexpr int kTimeS = 14;
inline constexpr int kDP = 15;
inline constexpr int kMK = 16;
inline constexpr int kAutoStop = 17;         // Check5
inline constexpr int kAutoStopMinutes = 18;  // Text1
inline constexpr int kElements = 19;
}  // namespace setting

// The 19 texts that hold every choice of the operator, mirrored in the settings file, one a line.
//
// The texts stay as the file or the handlers left them; the questions below read them where they are used.
class SettingsList {
 public:
  SettingsList();  // the defaults, with the decimal point as Dot

  // "1" for Comma when the system itself writes one and a half with a comma.
  void SetDefaults(bool decimal_comma);

  // Reads a settings file: element after element, one a line; elements that are missing keep their default.
  void Parse(std::string_view text, bool decimal_comma);
  std::string Text() const;  // the file's content, 19 lines ended by CR LF

  const std::string& operator[](int element) const { return elements_[static_cast<std::size_t>(element)]; }
  void Set(int element, std::string text) { elements_[static_cast<std::size_t>(element)] = std::move(text); }
  void Set(int element, int number) { Set(element, std::to_string(number)); }

  // The element as an item index or a check box value; -1 for a text that is no whole number of at
  // most five digits.
  int Index(int element) const;
  // A non-zero number or the word "True".
  bool IsOn(int element) const;
  double Number(int element) const;

  bool DecimalComma() const { return Index(setting::kDP) == 1; }
  // ";" with the decimal comma, so that a number stays one field; "," else.
  char FieldSeparator() const { return DecimalComma() ? ';' : ','; }

 private:
  std::array<std::string, setting::kElements> elements_;
};

}  // namespace quenlor::data
