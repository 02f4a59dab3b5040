// SPDX-License-Identifier: MIT
#include "platform/memory/test_printer.h"

#include <utility>

namespace quenlor::platform::memory {

void TestPrinter::Accept(int copies, PageSize page, Callback while_open) {
  dialogs_.push_back({true, copies, page, std::move(while_open)});
}

void TestPrinter::Cancel(Callback while_open) { dialogs_.push_back({false, 0, {}, std::move(while_open)}); }

void TestPrinter::Fail(std::string text, int after_pages) {
  failure_ = Failure{std::move(text)};
  pages_before_failure_ = after_pages;
}

bool TestPrinter::Choose(const std::string& title) {
  proposed_titles_.push_back(title);
  if (dialogs_.empty()) {
    surprised_ = true;
    return false;
  }
  const Dialog dialog = std::move(dialogs_.front());
  dialogs_.pop_front();
  if (dialog.while_open) dialog.while_open();
  if (!dialog.accepted) return false;
  copies_ = dialog.copies;
  page_ = dialog.page;
  return true;
}

Done TestPrinter::Print(const std::string& title, int pages,
                        const std::function<void(DrawingSurface& page, int number)>& draw) {
  Document document{title, {}};
  for (int number = 0; number < pages; ++number) {
    if (failure_ && number >= pages_before_failure_) break;
    const PixelRectangle dots = DotsOf(page_);
    RecordingSurface& page = document.pages.emplace_back(dots.width, dots.height, kPageDotsPerPen);
    draw(page, number);
  }
  if (failure_) {
    failed_titles_.push_back(title);
    return failure_;
  }
  documents_.push_back(std::move(document));
  return std::nullopt;
}

}  // namespace quenlor::platform::memory
