// SPDX-License-Identifier: MIT
#include "platform/memory/scripted_dialogs.h"

#include <utility>

namespace quenlor::platform::memory {
namespace {

bool Offers(Buttons buttons, Answer answer) {
  switch (answer) {
    case Answer::kOk:
      return buttons == Buttons::kOk || buttons == Buttons::kOkCancel;
    case Answer::kCancel:
      return buttons == Buttons::kOkCancel || buttons == Buttons::kYesNoCancel;
    case Answer::kYes:
    case Answer::kNo:
      break;
  }
  return buttons == Buttons::kYesNo || buttons == Buttons::kYesNoCancel;
}

template <class Step>
Step TakeFirst(std::deque<Step>& steps) {
  Step step = std::move(steps.front());
  steps.pop_front();
  return step;
}

}  // namespace

void ScriptedDialogs::Answer(platform::Answer answer, Callback while_open) {
  answers_.push_back({answer, std::move(while_open)});
}

void ScriptedDialogs::Path(std::string path, Callback while_open) {
  paths_.push_back({std::move(path), std::move(while_open)});
}

void ScriptedDialogs::Cancel(Callback while_open) { paths_.push_back({std::nullopt, std::move(while_open)}); }

platform::Answer ScriptedDialogs::Show(const MessageBox& box) {
  boxes_.push_back(box);
  if (answers_.empty()) {
    unexpected_.push_back(box.text);
    return CautiousAnswer(box.buttons);
  }
  const BoxStep step = TakeFirst(answers_);
  if (step.while_open) step.while_open();
  if (Offers(box.buttons, step.answer)) return step.answer;
  unexpected_.push_back("no such button: " + box.text);
  return CautiousAnswer(box.buttons);
}

std::optional<std::string> ScriptedDialogs::OpenFile(const std::string& folder, const std::string& filter) {
  open_folders_.push_back(folder);
  filters_.push_back(filter);
  return NextPath("open a file");
}

std::optional<std::string> ScriptedDialogs::SaveFile(const std::string& folder, const std::string& name,
                                                     const std::string& filter) {
  folders_.push_back(folder);
  names_.push_back(name);
  filters_.push_back(filter);
  return NextPath("save as " + name);
}

std::vector<std::string> ScriptedDialogs::Texts() const {
  std::vector<std::string> texts;
  for (const MessageBox& box : boxes_) texts.push_back(box.text);
  return texts;
}

std::optional<std::string> ScriptedDialogs::NextPath(const std::string& box) {
  if (paths_.empty()) {
    unexpected_.push_back(box);
    return std::nullopt;
  }
  FileStep step = TakeFirst(paths_);
  if (step.while_open) step.while_open();
  return std::move(step.path);
}

}  // namespace quenlor::platform::memory
