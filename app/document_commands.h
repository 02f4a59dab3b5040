// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/settings_file.h"
#include "data/document.h"
#include "link/measurement.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"

namespace quenlor::app {

// What the commands on documents change on the window beside the document itself.
class DocumentCommandsView {
 public:
  virtual ~DocumentCommandsView() = default;
  virtual void Say(const std::string& text) = 0;  // in the status bar
  virtual void Busy(bool busy) = 0;               // the waiting pointer
  virtual void SettingsApplied() = 0;             // a file has set some elements of the settings list
  virtual void AutoScalingOn() = 0;               // the boxes of all three axes
  virtual void ClearReceivedData() = 0;
};

// New, Open, Save, a dropped file, and the end of the program: each stops what runs, asks before it discards,
// and leaves everything as it was when it is cancelled or fails.
class DocumentCommands {
 public:
  DocumentCommands(data::Document& document, SettingsFile& settings, link::Measurement& measurement,
                   platform::FileSystem& files, platform::Dialogs& dialogs, DocumentCommandsView& view,
                   std::string program_folder)
      : document_(document),
        settings_(settings),
        measurement_(measurement),
        files_(files),
        dialogs_(dialogs),
        view_(view),
        folder_(std::move(program_folder)) {}

  void New();
  void Open();
  void Save();
  void Drop(const std::string& path);          // only ".csv" and ".CSV" are taken
  void ReadDataFile(const std::string& path);  // without a question, at the program's start

  // True when the program may end: stopped, and saved or given up by the operator.
  bool ExitProgram();

 private:
  bool MayDiscard();
  void WriteNewTemplate(const std::string& path);
  std::string TemplateText() const;
  void Load(const std::string& path, std::string bytes);

  data::Document& document_;
  SettingsFile& settings_;
  link::Measurement& measurement_;
  platform::FileSystem& files_;
  platform::Dialogs& dialogs_;
  DocumentCommandsView& view_;
  std::string folder_;
};

}  // namespace quenlor::app
