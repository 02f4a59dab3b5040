// SPDX-License-Identifier: MIT
#include "app/document_commands.h"

#include <utility>

#include "app/load_document.h"
#include "data/data_file.h"
#include "data/data_file_writer.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr const char* kFilter = "CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*";
constexpr const char* kNewName = "New.csv";

class BusyPointer {
 public:
  explicit BusyPointer(DocumentCommandsView& view) : view_(view) { view_.Busy(true); }
  ~BusyPointer() { view_.Busy(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  DocumentCommandsView& view_;
};

}  // namespace

bool DocumentCommands::MayDiscard() {
  if (!document_.DataChanged()) return true;
  return dialogs_.Show({.text = "Will you clear this data?",
                        .buttons = Buttons::kYesNo,
                        .icon = Icon::kExclamation,
                        .default_answer = Answer::kNo}) == Answer::kYes;
}

void DocumentCommands::New() {
  measurement_.Stop();
  if (!MayDiscard()) return;
  view_.AutoScalingOn();
  const std::string path = folder_ + "/New.txt";
  WriteNewTemplate(path);
  // A new document never fails: where no template can be kept, the usual titles serve.
  auto bytes = files_.Read(path);
  Load(path, bytes.ok() ? std::move(bytes.value()) : TemplateText());
  document_.SetFieldSeparator(settings_.List().FieldSeparator());
  document_.SetFileName(kNewName);
  view_.ClearReceivedData();
}

// An existing template is the operator's own, and stays.
void DocumentCommands::WriteNewTemplate(const std::string& path) {
  if (!files_.Exists(path)) files_.Replace(path, TemplateText());
}

std::string DocumentCommands::TemplateText() const {
  const data::SettingsList& list = settings_.List();
  return data::NewTemplate(list.IsOn(data::setting::kVisco), list.Index(data::setting::kFieldCount));
}

void DocumentCommands::Open() {
  measurement_.Stop();
  if (!MayDiscard()) return;
  if (const auto path = dialogs_.OpenFile(kFilter)) ReadDataFile(*path);
}

void DocumentCommands::Drop(const std::string& path) {
  // The two text endings are five characters long and so never meet the last four of a name.
  const std::string ending = path.size() < 4 ? path : path.substr(path.size() - 4);
  if (ending != ".csv" && ending != ".CSV" && ending != ".txt " && ending != ".TXT ") return;
  measurement_.Stop();
  if (MayDiscard()) ReadDataFile(path);
}

void DocumentCommands::ReadDataFile(const std::string& path) {
  const BusyPointer busy(view_);
  auto bytes = files_.Read(path);
  if (!bytes.ok()) return view_.Say(bytes.failure().text);
  Load(path, std::move(bytes.value()));
}

void DocumentCommands::Load(const std::string& path, std::string bytes) {
  LoadDocument(path, std::move(bytes), FileDate(files_, path), settings_.List(), document_);
  view_.SettingsApplied();
}

void DocumentCommands::Save() {
  const auto path = dialogs_.SaveFile(document_.FileName(), kFilter);
  if (!path) return;
  const BusyPointer busy(view_);
  const auto failed = files_.Replace(*path, [this](platform::ByteSink& sink) {
    data::WriteDataFile(document_, settings_.List(), [&](std::string_view piece) { sink.Write(piece); });
  });
  if (failed) return view_.Say(failed->text);
  document_.Saved(NameWithoutFolder(*path));
  settings_.SaveSettings();
  view_.Say("Saved " + *path);
}

bool DocumentCommands::ExitProgram() {
  measurement_.StopWithoutWait();
  if (!document_.DataChanged()) return true;
  const Answer answer = dialogs_.Show({.text = "Will you save this data?",
                                       .buttons = Buttons::kYesNoCancel,
                                       .icon = Icon::kExclamation,
                                       .default_answer = Answer::kYes});
  if (answer == Answer::kCancel) return false;
  if (answer == Answer::kYes) Save();
  return answer == Answer::kNo || !document_.DataChanged();
}

}  // namespace quenlor::app
