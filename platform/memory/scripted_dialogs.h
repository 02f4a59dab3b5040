// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace quenlor::platform::memory {

// Dialogs that answer what a test told beforehand, in that order.
//
// A box that nobody told an answer for, or not one of its buttons, gets the cautious answer and is kept in
// Unexpected(); so a test ends with EXPECT_TRUE(dialogs.AsScripted()).
class ScriptedDialogs : public Dialogs {
 public:
  using Callback = std::function<void()>;  // what happens while the box waits

  void Answer(platform::Answer answer, Callback while_open = {});
  void Path(std::string path, Callback while_open = {});
  void Cancel(Callback while_open = {});  // of a file box

  platform::Answer Show(const MessageBox& box) override;
  std::optional<std::string> OpenFile(const std::string& folder, const std::string& filter) override;
  std::optional<std::string> SaveFile(const std::string& folder, const std::string& name,
                                      const std::string& filter) override;

  const std::vector<MessageBox>& Boxes() const { return boxes_; }
  std::vector<std::string> Texts() const;                               // of Boxes()
  const std::vector<std::string>& Names() const { return names_; }      // that SaveFile proposed
  const std::vector<std::string>& Folders() const { return folders_; }  // where
  const std::vector<std::string>& OpenFolders() const { return open_folders_; }
  const std::vector<std::string>& Filters() const { return filters_; }  // of every file box
  const std::vector<std::string>& Unexpected() const { return unexpected_; }

  // Everything told was asked for, and nothing else was.
  bool AsScripted() const { return unexpected_.empty() && answers_.empty() && paths_.empty(); }

 private:
  struct BoxStep {
    platform::Answer answer;
    Callback while_open;
  };
  struct FileStep {
    std::optional<std::string> path;
    Callback while_open;
  };

  std::optional<std::string> NextPath(const std::string& box);

  std::deque<BoxStep> answers_;
  std::deque<FileStep> paths_;
  std::vector<MessageBox> boxes_;
  std::vector<std::string> names_;
  std::vector<std::string> folders_;
  std::vector<std::string> open_folders_;
  std::vector<std::string> filters_;
  std::vector<std::string> unexpected_;
};

}  // namespace quenlor::platform::memory
