// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMainWindow>
#include <optional>
#include <string>
#include <string_view>

#include "graph/posi.h"
#include "platform/file_system.h"

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

inline constexpr const char* kWindowFile = "Window.txt";

// Puts the window where the file of that path says, and keeps there where it is.
void RestoreWindow(const platform::FileSystem& files, const std::string& path, QMainWindow& window,
                   graph::TableAndGraph& halves);
platform::Done KeepWindow(platform::FileSystem& files, const std::string& path, const QMainWindow& window,
                          const graph::TableAndGraph& halves);

}  // namespace quenlor::app
