// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <string_view>

namespace quenlor::app {

// How the main window stood when it was closed, kept in "Window.txt" in the program folder: the window
// system's own description of size, place and state in hexadecimal digits, then the left edge of the bar in
// twips, one a line.
struct WindowState {
  QByteArray geometry;
  double posi_left = 0;

  std::string Text() const;
  static std::optional<WindowState> Parse(std::string_view text);  // nothing for any other text
};

}  // namespace quenlor::app
