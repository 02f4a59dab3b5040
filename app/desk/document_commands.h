// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/desk/session.h"
#include "link/measurement.h"
#include "platform/dialogs.h"

namespace quenlor::app {

// What the commands on documents change on the window beside the document itself.
class DocumentCommandsView {
 public:
  virtual ~DocumentCommandsView() = default;
  virtual void Say(const std::string& text) = 0;  // in the status bar
  virtual void Busy(bool busy) = 0;               // the waiting pointer
  virtual void ShowChoices() = 0;                 // a file has set settings, or all three axes scale again
  virtual void ClearReceivedData() = 0;
};

// New, Open, Save, a dropped file, and the end of the program: each stops what runs, asks before it discards,
// and leaves everything as it was when it is cancelled or fails.
class DocumentCommands : private data::DocumentListener {
 public:
  DocumentCommands(Session& session, link::Measurement& measurement, platform::Dialogs& dialogs,
                   DocumentCommandsView& view);
  ~DocumentCommands() override;
  DocumentCommands(const DocumentCommands&) = delete;
  DocumentCommands& operator=(const DocumentCommands&) = delete;

  void New();
  void Open();
  void Save();
  void Drop(const std::string& path);          // only ".csv" and ".CSV" are taken
  void ReadDataFile(const std::string& path);  // without a question, at the program's start

  // Of the file that was opened or saved last; empty before.
  const std::string& Folder() const { return folder_; }

  // True when the program may end: stopped, and saved or given up by the operator.
  bool ExitProgram();

 private:
  bool MayDiscard();
  void CommasDivideFields() override;
  void WriteNewTemplate(const std::string& path);
  std::string TemplateText() const;
  void Load(const std::string& path, std::string bytes);

  Session& session_;
  link::Measurement& measurement_;
  platform::Dialogs& dialogs_;
  DocumentCommandsView& view_;
  std::string folder_;
};

}  // namespace quenlor::app
