// SPDX-License-Identifier: MIT
#pragma once

#include <QPrinter>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/printer.h"

namespace quenlor::platform::qt {

// A printer of the desktop's, or a PDF file, as the operator chooses. Looking for printers takes a while, so
// it is put off until somebody wants to print.
class QtPrinter final : public Printer {
 public:
  // `folder` is where files are proposed (empty: among the user's documents).
  QtPrinter(std::function<QWidget*()> parent, std::function<std::string()> folder)
      : parent_(std::move(parent)), folder_(std::move(folder)) {}

  bool Choose(const std::string& title) override;
  int Copies() const override;
  PageSize Page() const override;
  Done Print(const std::string& title, int pages,
             const std::function<void(DrawingSurface& page, int number)>& draw) override;

 private:
  QPrinter& Chosen() const;
  void BeginAnew();

  std::function<QWidget*()> parent_;
  std::function<std::string()> folder_;
  QString proposed_;  // file; it is not proposed again over one that the operator preferred
  mutable std::unique_ptr<QPrinter> printer_;
};

}  // namespace quenlor::platform::qt
