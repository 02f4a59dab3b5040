// SPDX-License-Identifier: MIT
#include "app/desk/document_commands.h"

#include <utility>

#include "app/desk/status.h"
#include "platform/busy_pointer.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr const char* kFilter = "CSV File(*.csv)|*.csv|ALL Files(*.*)|*.*";

// How far an opening has come when the file is read, and when its lines are divided.
constexpr double kReadShare = 0.3;
constexpr double kParsedShare = 0.75;

constexpr const char* kCommasDivide =
    "some fields hold \",\", which also divides them in files: Decimal Point Comma would keep them apart";

}  // namespace

std::string SavedText(const std::string& path, const data::Document& document) {
  return "Saved " + path + (document.CommasDivide() ? std::string("; ") + kCommasDivide : "");
}

std::string NoNumbersLeftText(const std::string& path) {
  return path + " has more runs than there are numbers left";
}

DocumentCommands::DocumentCommands(Session& session, link::Measurement& measurement,
                                   platform::Dialogs& dialogs, DocumentCommandsView& view)
    : session_(session),
      measurement_(measurement),
      dialogs_(dialogs),
      view_(view),
      recent_(session.Files(), session.File("Recent.txt")),
      left_(session.Files(), FolderOf(session.File("Seen.txt"))),
      folder_(recent_.Folder()) {
  session_.Document().AddListener(*this);
}

DocumentCommands::~DocumentCommands() { session_.Document().RemoveListener(*this); }

// Nothing is quoted in a file, and a sample's name is no reason to divide it otherwise than a spreadsheet
// expects.
void DocumentCommands::CommasDivideFields() { view_.Say(std::string("Note: ") + kCommasDivide); }

bool DocumentCommands::MayDiscard() {
  if (!session_.Document().DataChanged()) return true;
  return dialogs_.Show({.text = "Will you clear this data?",
                        .buttons = Buttons::kYesNo,
                        .icon = Icon::kExclamation,
                        .default_answer = Answer::kNo}) == Answer::kYes;
}

void DocumentCommands::New() {
  measurement_.Stop();
  if (!MayDiscard()) return;
  session_.New();
  view_.ShowChoices();
  view_.ClearReceivedData();
}

void DocumentCommands::Open() {
  measurement_.Stop();
  if (!MayDiscard()) return;
  if (const auto path = dialogs_.OpenFile(folder_, kFilter)) ReadDataFile(*path);
}

void DocumentCommands::OpenRecent(const std::string& path) {
  measurement_.Stop();
  if (MayDiscard()) ReadDataFile(path);
}

void DocumentCommands::Drop(const std::string& path) {
  // The two text endings are five characters long and so never meet the last four of a name.
  const std::string ending = path.size() < 4 ? path : path.substr(path.size() - 4);
  if (ending != ".csv" && ending != ".CSV" && ending != ".txt " && ending != ".TXT ") return;
  measurement_.Stop();
  if (MayDiscard()) ReadDataFile(path);
}

void DocumentCommands::ReadDataFile(const std::string& path) {
  const platform::BusyPointer busy([this](bool on) { view_.Busy(on); });
  auto contents = ReadContents("Opening ", path);
  if (!contents) return;
  const std::string name = NameWithoutFolder(path);
  const auto goes_on = [&](double part) { return view_.Progress("Opening " + name, part, false); };
  session_.Load(path, std::move(*contents), FileDate(session_.Files(), path),
                data::PartOf(goes_on, kParsedShare, 1));
  view_.ShowChoices();
  HasRead(path);
  const data::Document& document = session_.Document();
  TellOf("Opened " + name, document.RunCount(), document.Grid1().EntryRow() - 1);
}

void DocumentCommands::Append() {
  measurement_.Stop();
  const auto path = dialogs_.OpenFile(folder_, kFilter);
  if (!path) return;
  const platform::BusyPointer busy([this](bool on) { view_.Busy(on); });
  auto contents = ReadContents("Appending ", *path);
  if (!contents) return;
  const std::string name = NameWithoutFolder(*path);
  data::Document& document = session_.Document();
  const int runs = document.RunCount();
  const data::Document::Row readings = document.UnsavedReadings();
  if (!document.AppendRuns(std::move(*contents), name)) return view_.Say(NoNumbersLeftText(*path));
  HasRead(*path);
  TellOf("Appended " + name, document.RunCount() - runs, document.UnsavedReadings() - readings);
}

// Nothing when the file cannot be read or the operator has left it, which is told then.
std::optional<data::DataFileContents> DocumentCommands::ReadContents(const std::string& doing,
                                                                     const std::string& path) {
  const std::string what = doing + NameWithoutFolder(path);
  const auto may_leave = [&](double part) { return view_.Progress(what, part, true); };
  auto bytes = session_.Files().Read(path, data::PartOf(may_leave, 0, kReadShare));
  std::optional<data::DataFileContents> contents;
  if (!bytes.ok()) {
    view_.Say(bytes.failure().text);
    return contents;
  }
  contents = data::ParseDataFile(std::move(bytes.value()), data::PartOf(may_leave, kReadShare, kParsedShare));
  if (!contents) view_.Say(doing + path + " was left");
  return contents;
}

void DocumentCommands::HasRead(const std::string& path) {
  folder_ = FolderOf(path);
  recent_.Note(path);
  left_.Seen(path);
}

void DocumentCommands::TellOf(const std::string& done, int runs, data::Document::Row readings) {
  view_.Say(done + ": " + CountText(runs, "run", "runs") + ", " + CountText(readings, "reading", "readings"));
}

void DocumentCommands::Save() {
  const auto path = dialogs_.SaveFile(folder_, session_.Document().FileName(), kFilter);
  if (!path) return;
  const platform::BusyPointer busy([this](bool on) { view_.Busy(on); });
  const auto failed = session_.Save(
      *path, [&](double part) { return view_.Progress("Saving " + NameWithoutFolder(*path), part, false); });
  if (failed) return view_.Say(failed->text);
  session_.Document().Saved(NameWithoutFolder(*path));
  folder_ = FolderOf(*path);
  recent_.Note(*path);
  const auto not_kept = session_.Settings().SaveSettings();
  view_.Say(SavedText(*path, session_.Document()) + (not_kept ? "; " + not_kept->text : ""));
}

bool DocumentCommands::ExitProgram() {
  measurement_.StopWithoutWait();
  if (!session_.Document().DataChanged()) return true;
  const Answer answer = dialogs_.Show({.text = "Will you save this data?",
                                       .buttons = Buttons::kYesNoCancel,
                                       .icon = Icon::kExclamation,
                                       .default_answer = Answer::kYes});
  if (answer == Answer::kCancel) return false;
  if (answer == Answer::kYes) Save();
  return answer == Answer::kNo || !session_.Document().DataChanged();
}

}  // namespace quenlor::app
