// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

namespace quenlor::demo {

// The scheme of a dark desktop.
inline QPalette DarkPalette() {
  QPalette dark(QColor(0xe4e6e8), QColor(0x33373b), QColor(0x4a4f55), QColor(0x17191b), QColor(0x46494d),
                QColor(0xe4e6e8), QColor(0xffffff), QColor(0x1e2124), QColor(0x292c30));
  dark.setColor(QPalette::AlternateBase, QColor(0x26292d));
  dark.setColor(QPalette::Midlight, QColor(0x3d4247));
  dark.setColor(QPalette::Highlight, QColor(0x3d8fd8));
  dark.setColor(QPalette::HighlightedText, QColor(0xffffff));
  dark.setColor(QPalette::Link, QColor(0x6db3f2));
  dark.setColor(QPalette::LinkVisited, QColor(0xb294e8));
  dark.setColor(QPalette::ToolTipBase, QColor(0x33373b));
  dark.setColor(QPalette::ToolTipText, QColor(0xe4e6e8));
  dark.setColor(QPalette::PlaceholderText, QColor(0x9aa0a6));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, QColor(0x8a9096));
  return dark;
}

}  // namespace quenlor::demo
