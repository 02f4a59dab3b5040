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
  explicit QtPrinter(std::function<QWidget*()> parent) : parent_(std::move(parent)) {}

  bool Choose() override;
  int Copies() const override;
  PageSize Page() const override;
  Done Print(const std::string& title, int pages,
             const std::function<void(DrawingSurface& page, int number)>& draw) override;

 private:
  QPrinter& Chosen() const;
  void BeginAnew();

  std::function<QWidget*()> parent_;
  mutable std::unique_ptr<QPrinter> printer_;
};

}  // namespace quenlor::platform::qt
