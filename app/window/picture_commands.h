// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <functional>
#include <string>

#include "app/desk/session.h"
#include "app/desk/status.h"
#include "graph/graph_pane.h"
#include "platform/dialogs.h"

namespace quenlor::app {

// The graph as the window shows it, for elsewhere: on the clipboard, or as a file.
class PictureCommands {
 public:
  PictureCommands(Session& session, platform::Dialogs& dialogs, Status& status)
      : session_(session), dialogs_(dialogs), status_(status) {}

  // As large as in the window, and in letters of that size.
  void CopyPicture(const graph::GraphPane& pane);
  void SavePicture(const graph::GraphPane& pane);

 private:
  std::string Drawn(std::string (*picture)(QSize, const std::function<void(platform::DrawingSurface&)>&),
                    QSize pixels, double largest_text) const;

  Session& session_;
  platform::Dialogs& dialogs_;
  Status& status_;
};

}  // namespace quenlor::app
