// SPDX-License-Identifier: MIT
#pragma once

#include <QScreen>
#include <QSize>
#include <QWidget>

namespace quenlor::platform::qt {

// The room for a window on its screen, within the frame that the desktop puts around it. How wide that is
// shows only after the window is there, so that before a usual one is reckoned with.
inline QSize RoomFor(const QWidget& window) {
  constexpr QSize kUsualFrame(8, 48);
  return window.screen()->availableSize() - (window.frameSize() - window.size()).expandedTo(kUsualFrame);
}

}  // namespace quenlor::platform::qt
