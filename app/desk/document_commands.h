// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/desk/left_readings.h"
#include "app/desk/recent_files.h"
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
  // How far a long work has come. Where it may be left the operator is heard, and false leaves it; where not,
  // nothing but this is shown.
  virtual bool Progress(const std::string& /*what*/, double /*part*/, bool /*may_leave*/) { return true; }
  virtual void ShowChoices() = 0;  // a file has set settings, or all three axes scale again
  virtual void ClearReceivedData() = 0;
};

// That a document stands in its file, and what a reader of the file has to know.
std::string SavedText(const std::string& path, const data::Document& document);

// Why a file cannot be appended.
std::string NoNumbersLeftText(const std::string& path);

// New, Open, Append, Save, a dropped file, and the end of the program: each stops what runs, asks before it
// discards, and leaves everything as it was when it is cancelled or fails.
class DocumentCommands : private data::DocumentListener {
 public:
  DocumentCommands(Session& session, link::Measurement& measurement, platform::Dialogs& dialogs,
                   DocumentCommandsView& view);
  ~DocumentCommands() override;
  DocumentCommands(const DocumentCommands&) = delete;
  DocumentCommands& operator=(const DocumentCommands&) = delete;

  void New();
  void Open();
  void Append();  // the runs of a file to the document, as unsaved readings
  void Save();
  void Drop(const std::string& path);          // only ".csv" and ".CSV" are taken
  void ReadDataFile(const std::string& path);  // without a question, at the program's start

  // Of the file that was opened or saved last; empty before.
  const std::string& Folder() const { return folder_; }

  // True when the program may end: stopped, and saved or given up by the operator.
  bool ExitProgram();

  void OpenRecent(const std::string& path);  // with the question that Open asks
  std::vector<std::string> Recent() const { return recent_.Paths(); }
  // Readings of an earlier life that nobody has saved; told until they are opened or dismissed.
  std::optional<LeftReadings::Left> ReadingsLeft() const { return left_.Find(); }
  void Dismiss(const std::string& path) { left_.Seen(path); }

 private:
  bool MayDiscard();
  std::optional<data::DataFileContents> ReadContents(const std::string& doing, const std::string& path);
  void HasRead(const std::string& path);
  void TellOf(const std::string& done, int runs, data::Document::Row readings);
  void CommasDivideFields() override;

  Session& session_;
  link::Measurement& measurement_;
  platform::Dialogs& dialogs_;
  DocumentCommandsView& view_;
  RecentFiles recent_;
  LeftReadings left_;
  std::string folder_;
};

}  // namespace quenlor::app
