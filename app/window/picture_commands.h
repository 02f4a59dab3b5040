// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/desk/session.h"
#include "app/desk/status.h"
#include "graph/graph_pane.h"
#include "platform/dialogs.h"
#include "platform/qt/picture_file.h"

namespace quenlor::app {

// The graph as the window shows it, for elsewhere: on the clipboard, or as a file.
class PictureCommands {
 public:
  PictureCommands(Session& session, platform::Dialogs& dialogs, Status& status)
      : session_(session), dialogs_(dialogs), status_(status) {}

  // As large as in the window, and in letters of that size; a file in the format, and so many times as fine,
  // as the ending of its name says.
  void CopyPicture(const graph::GraphPane& pane);
  void SavePicture(const graph::GraphPane& pane);

 private:
  platform::qt::DrawPicture Graph(const graph::GraphPane& pane) const;
  std::string Drawn(const std::string& path, const graph::GraphPane& pane) const;

  Session& session_;
  platform::Dialogs& dialogs_;
  Status& status_;
};

}  // namespace quenlor::app
