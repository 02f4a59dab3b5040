// SPDX-License-Identifier: MIT
#include "reports/print_report.h"

#include <gtest/gtest.h>

#include "platform/memory/scripted_dialogs.h"
#include "platform/memory/test_printer.h"

namespace quenlor::reports {
namespace {

using platform::Answer;
using platform::PageSize;

// Main window and Form3, as far as printing concerns them.
struct Desk : PrintWindows {
  platform::memory::TestPrinter printer;
  platform::memory::ScriptedDialogs dialogs;
  PageRecord page;
  PageSize form3;
  bool main_visible = true;
  bool form3_visible = false;
  int busy = 0;
  int drawings = 0;
  int saves = 0;
  int windows_gone = 0;  // moments without any window

  void HideMainWindow() override { main_visible = false; }
  void ShowMainWindow() override { main_visible = true; }
  void ShowForm3(const PageSize& size) override {
    form3 = size;
    form3_visible = true;
  }
  void HideForm3() override {
    form3_visible = false;
    if (!main_visible) ++windows_gone;
  }
  const PageRecord& Draw() override {
    ++drawings;
    page = PageRecord(form3.width, form3.height, {});
    page.SetPen({});
    page.DrawText({1, 1}, platform::Across::kLeft, platform::Down::kTop,
                  "drawing " + std::to_string(drawings), 9);
    return page;
  }
  void Busy(bool on) override { busy += on ? 1 : -1; }

  void Print() {
    PrintReport(printer, dialogs, *this, "oil.csv", [this] { ++saves; });
    EXPECT_TRUE(main_visible);
    EXPECT_FALSE(form3_visible);
    EXPECT_EQ(busy, 0);
    EXPECT_EQ(windows_gone, 0);
    EXPECT_TRUE(dialogs.AsScripted());
  }
};

TEST(PrintReport, AsksWithThePageInSightAndTheMainWindowHidden) {
  Desk desk;
  desk.printer.Accept();
  desk.dialogs.Answer(Answer::kOk, [&] {
    EXPECT_FALSE(desk.main_visible);
    EXPECT_TRUE(desk.form3_visible);
    EXPECT_EQ(desk.drawings, 1);
    EXPECT_EQ(desk.busy, 0);
    EXPECT_TRUE(desk.printer.Documents().empty());
  });
  desk.Print();
  const platform::MessageBox& box = desk.dialogs.Boxes().at(0);
  EXPECT_EQ(box.text, "Will you print this data ?");
  EXPECT_EQ(box.title, "Printer");
  EXPECT_EQ(box.buttons, platform::Buttons::kOkCancel);
  EXPECT_EQ(box.icon, platform::Icon::kQuestion);
  EXPECT_EQ(box.blocks, platform::Blocks::kWholeProgram) << "the paper must not be changed behind it";
}

TEST(PrintReport, PrintsThePageThatWasShownAndSavesTheSettings) {
  Desk desk;
  desk.printer.Accept(1, {5000, 7000});
  desk.dialogs.Answer(Answer::kOk);
  desk.Print();
  EXPECT_EQ(desk.printer.ProposedTitles().at(0), "oil.csv");
  EXPECT_EQ(desk.form3, (PageSize{5000, 7000}));
  EXPECT_EQ(desk.drawings, 1);
  ASSERT_EQ(desk.printer.Documents().size(), 1U);
  EXPECT_EQ(desk.printer.Documents()[0].title, "oil.csv");
  ASSERT_EQ(desk.printer.Documents()[0].pages.size(), 1U);
  EXPECT_EQ(desk.printer.Documents()[0].pages[0].Calls().at(0).text, "drawing 1");
  EXPECT_EQ(desk.saves, 1);
}

TEST(PrintReport, ACancelledPrinterDialogStillShowsThePageAndOkPrintsWithTheCopiesOfBefore) {
  Desk desk;
  desk.printer.SetCopies(2);
  desk.printer.Cancel();
  desk.dialogs.Answer(Answer::kOk);
  desk.Print();
  EXPECT_EQ(desk.drawings, 1);
  EXPECT_EQ(desk.printer.Documents().size(), 2U);
}

TEST(PrintReport, CancelAtTheQuestionPrintsNothingAndSavesNothing) {
  Desk desk;
  desk.printer.Accept();
  desk.dialogs.Answer(Answer::kCancel);
  desk.Print();
  EXPECT_TRUE(desk.printer.Documents().empty());
  EXPECT_EQ(desk.saves, 0);
}

TEST(PrintReport, ThreeCopiesAreThreeDocumentsOfOnePage) {
  Desk desk;
  desk.printer.Accept(3);
  desk.dialogs.Answer(Answer::kOk);
  desk.Print();
  ASSERT_EQ(desk.printer.Documents().size(), 3U);
  for (const auto& document : desk.printer.Documents()) EXPECT_EQ(document.pages.size(), 1U);
}

TEST(PrintReport, APrinterThatFailsIsPassedOverInSilence) {
  Desk desk;
  desk.printer.Cancel();
  desk.printer.Fail("no printer");
  desk.printer.SetCopies(2);
  desk.dialogs.Answer(Answer::kOk);
  desk.Print();
  EXPECT_EQ(desk.printer.FailedTitles().size(), 2U);
  EXPECT_EQ(desk.dialogs.Boxes().size(), 1U);
  EXPECT_EQ(desk.saves, 1);
}

}  // namespace
}  // namespace quenlor::reports
