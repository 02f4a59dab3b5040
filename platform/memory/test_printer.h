// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/memory/recording_surface.h"
#include "platform/printer.h"

namespace quenlor::platform::memory {

// A printer that keeps what it prints, and whose dialog answers what a test told beforehand, in that order.
//
// A dialog that nobody told an answer for is cancelled, and AsScripted() is false from then on. Pages are
// surfaces of the dots that every printer's pages have.
class TestPrinter : public Printer {
 public:
  using Callback = std::function<void()>;  // what happens while the dialog is open

  struct Document {
    std::string title;
    std::vector<RecordingSurface> pages;
  };

  static constexpr PageSize kA4{11906, 16838};

  // The next dialog: print that many copies on such paper, or keep what was chosen before.
  void Accept(int copies, PageSize page, Callback while_open = {});
  void Accept(int copies = 1, Callback while_open = {}) { Accept(copies, page_, std::move(while_open)); }
  void Cancel(Callback while_open = {});

  // What stands as chosen, without a dialog.
  void SetCopies(int copies) { copies_ = copies; }
  void SetPage(PageSize page) { page_ = page; }

  // From now on every document fails after that many of its pages.
  void Fail(std::string text, int after_pages = 0);

  bool Choose(const std::string& title) override;
  int Copies() const override { return copies_; }
  PageSize Page() const override { return page_; }
  Done Print(const std::string& title, int pages,
             const std::function<void(DrawingSurface& page, int number)>& draw) override;

  int DialogsShown() const { return static_cast<int>(proposed_titles_.size()); }
  const std::vector<std::string>& ProposedTitles() const { return proposed_titles_; }  // by every dialog
  const std::vector<Document>& Documents() const { return documents_; }                // printed to their end
  const std::vector<std::string>& FailedTitles() const { return failed_titles_; }      // of all the others
  // Every dialog told was shown, and no other.
  bool AsScripted() const { return dialogs_.empty() && !surprised_; }

 private:
  struct Dialog {
    bool accepted = false;
    int copies = 1;
    PageSize page;
    Callback while_open;
  };

  std::deque<Dialog> dialogs_;
  std::vector<std::string> proposed_titles_;
  bool surprised_ = false;
  int copies_ = 1;
  PageSize page_ = kA4;
  Done failure_;
  int pages_before_failure_ = 0;
  std::vector<Document> documents_;
  std::vector<std::string> failed_titles_;
};

}  // namespace quenlor::platform::memory
