// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

#include "platform/dialogs.h"

class QFileDialog;
class QWidget;

namespace quenlor::platform::qt {

// Boxes on the screen, modal to the window that `parent` names at the time (none: to the whole application).
//
// File boxes open in the folder of the file chosen last, at first in the user's documents.
class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(std::function<QWidget*()> parent);

  Answer Show(const MessageBox& box) override;
  std::optional<std::string> OpenFile(const std::string& folder, const std::string& filter) override;
  std::optional<std::string> SaveFile(const std::string& folder, const std::string& name,
                                      const std::string& filter) override;

 private:
  QString FolderToShow(const std::string& folder) const;
  void Prepare(QFileDialog& dialog, const QString& folder, const std::string& filter) const;
  std::optional<std::string> Run(QFileDialog* dialog);

  std::function<QWidget*()> parent_;
  QString folder_;
};

}  // namespace quenlor::platform::qt
