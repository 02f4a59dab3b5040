// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace quenlor::platform {

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Icon { kCritical, kQuestion, kExclamation };
enum class Answer { kOk, kCancel, kYes, kNo };

// What a box keeps from the operator while it waits.
enum class Blocks {
  kItsWindow,     // the box stands over it
  kWholeProgram,  // but it stands beside its window, which shows what the question is about
};

struct MessageBox {
  std::string text;
  Buttons buttons = Buttons::kOk;
  Icon icon = Icon::kExclamation;
  Answer default_answer = Answer::kOk;
  std::string title = "Quenlor";
  Blocks blocks = Blocks::kItsWindow;
};

// What closing a box by its title bar or by Esc counts as: Cancel where there is one, else No, else Ok.
constexpr Answer CautiousAnswer(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk:
      return Answer::kOk;
    case Buttons::kYesNo:
      return Answer::kNo;
    case Buttons::kOkCancel:
    case Buttons::kYesNoCancel:
      break;
  }
  return Answer::kCancel;
}

// The modal boxes that wait for the operator. The adapter shows them, the twin answers from a script.
// A carriage return in a text starts a new line; nothing else in it has a meaning.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual Answer Show(const MessageBox& box) = 0;

  // A path, or nothing when the operator cancels; the box begins in `folder` (empty: where a file was chosen
  // last). `filter` is "caption|pattern|caption|pattern…".
  virtual std::optional<std::string> OpenFile(const std::string& folder, const std::string& filter) = 0;
  // The same for saving, with `name` preset, and a
  // question before an existing file is overwritten. With a filter of one suffix chosen ("*.csv"), a name
  // that ends otherwise gets that suffix. A name that is no UTF-8 is proposed as if it were Latin-1; a folder
  // of such a name counts as empty.
  virtual std::optional<std::string> SaveFile(const std::string& folder, const std::string& name,
                                              const std::string& filter) = 0;
};

}  // namespace quenlor::platform
