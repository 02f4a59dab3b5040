// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "data/settings_list.h"

namespace quenlor::link {

// The items of the RS-232C menu's groups, by item index; the line settings are made of these captions.
inline constexpr std::array<std::string_view, 8> BPS = {"600",  "1200",  "2400",  "4800",
                                                        "9600", "14400", "19200", "28800"};
inline constexpr std::array<std::string_view, 3> Parity = {"E", "O", "N"};
inline constexpr std::array<std::string_view, 2> Length = {"7", "8"};
inline constexpr std::array<std::string_view, 3> Bit = {"1", "1.5", "2"};
inline constexpr std::array<std::string_view, 2> Term = {"CR/LF", "CR"};

inline constexpr int kMostPorts = 256;  // as many as Windows numbers; a longer menu helps nobody

// The number of items of the Com Port menu (1 to this): at least the four that are always there, and no more
// than a menu can show, whatever the settings file says.
int PortCount(const data::SettingsList& settings);

struct PortSettings {
  int CommPort = 0;
  std::string Settings;  // "9600N81"
};

// What the checked items of the RS-232C menu mean. Nothing when an element of the settings list
// names no item.
std::optional<PortSettings> ApplyPortSettings(const data::SettingsList& settings);

// What ends a sent command: carriage return, and line feed as well under "CR/LF".
std::string_view Terminator(const data::SettingsList& settings);

}  // namespace quenlor::link
