// SPDX-License-Identifier: MIT
//
// Printing and statistics from the main window's menus.

#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/print_form.h"
#include "reports/statistics_window.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using platform::memory::RecordingSurface;
using testing::Contains;
using testing::Not;
using testing::StartsWith;

class ReportWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    Open();
    Start();
    Reading("12.5 25.0");
    Reading("14.5 26.0");
  }

  static reports::PrintForm* Form3() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* form = qobject_cast<reports::PrintForm*>(widget)) return form;
    }
    return nullptr;
  }

  std::vector<std::string> PrintedTexts(std::size_t document = 0) {
    std::vector<std::string> texts;
    for (const auto& call :
         printer.Documents().at(document).pages.at(0).Calls(RecordingSurface::Call::Kind::kText))
      texts.push_back(call.text);
    return texts;
  }
};

TEST_F(ReportWindowTest, PrintShowsThePageInPlaceOfTheMainWindowAndPrintsIt) {
  files.Remove(std::string(kFolder) + "/quenlor.ini");
  printer.Accept();
  dialogs.Answer(Answer::kOk, [&] {
    EXPECT_FALSE(window->isVisible());
    ASSERT_NE(Form3(), nullptr);
    EXPECT_TRUE(Form3()->isVisible());
    EXPECT_EQ(window->FrontWindow(), Form3());
  });
  Choose("mPrint");
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(Form3()->isVisible());
  EXPECT_EQ(window->FrontWindow(), window.get());
  EXPECT_THAT(PrintedTexts(), Contains("New.csv"));
  EXPECT_THAT(PrintedTexts(), Contains("14.5"));
  EXPECT_NE(File("quenlor.ini"), "");
}

TEST_F(ReportWindowTest, TheMainWindowComesBackWhereItWas) {
  window->move(37, 53);
  const QPoint place = window->pos();
  printer.Accept();
  dialogs.Answer(Answer::kCancel);
  Choose("mPrint");
  EXPECT_EQ(window->pos(), place);
}

TEST_F(ReportWindowTest, CancelAtTheQuestionPrintsNothingAndWritesNoSettings) {
  files.Remove(std::string(kFolder) + "/quenlor.ini");
  printer.Accept();
  dialogs.Answer(Answer::kCancel);
  Choose("mPrint");
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(printer.Documents().empty());
  EXPECT_EQ(File("quenlor.ini"), "");
}

TEST_F(ReportWindowTest, WhatArrivesWhileTheQuestionWaitsIsRecordedAndNotPrinted) {
  printer.Accept();
  dialogs.Answer(Answer::kOk, [&] {
    Reading("99.9 30.0");
    EXPECT_THAT(Readings(), testing::HasSubstr("99.9"));
  });
  Choose("mPrint");
  EXPECT_THAT(PrintedTexts(), Not(Contains("99.9")));
  EXPECT_TRUE(Running());
}

TEST_F(ReportWindowTest, ASecondPrintWhileTheQuestionWaitsIsRefused) {
  printer.Accept();
  dialogs.Answer(Answer::kOk, [&] {
    Choose("mPrint");
    Choose("mNew");
  });
  Choose("mPrint");
  EXPECT_EQ(printer.DialogsShown(), 1);
  EXPECT_EQ(printer.Documents().size(), 1U);
}

TEST_F(ReportWindowTest, HidingTheMainWindowDoesNotEndTheProgram) {
  bool ended = false;
  QObject::connect(qApp, &QGuiApplication::lastWindowClosed, window.get(), [&] { ended = true; });
  printer.Accept();
  dialogs.Answer(Answer::kOk, [&] {
    EXPECT_FALSE(Form3()->close());
    QApplication::processEvents();
  });
  Choose("mPrint");
  QApplication::processEvents();
  EXPECT_FALSE(ended);
}

TEST_F(ReportWindowTest, WithoutAPrinterTheWindowComesBackInSilence) {
  printer.Cancel();
  printer.Fail("no printer");
  dialogs.Answer(Answer::kOk);
  Choose("mPrint");
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
}

TEST_F(ReportWindowTest, ANewDocumentHidesThePage) {
  printer.Accept();
  dialogs.Answer(Answer::kCancel);
  Choose("mPrint");
  Form3()->show();
  dialogs.Answer(Answer::kYes);
  Choose("mNew");
  EXPECT_FALSE(Form3()->isVisible());
}

TEST_F(ReportWindowTest, StatisticsAreASnapshotThatEachChoiceRenews) {
  Choose("mStatistics");
  auto* Form4 = window->findChild<reports::StatisticsWindow*>();
  ASSERT_NE(Form4, nullptr);
  EXPECT_TRUE(Form4->isVisible());
  EXPECT_FALSE(Form4->isModal());
  const auto copied = [&] {
    QTest::mouseClick(Form4->findChild<QWidget*>(QStringLiteral("Copy")), Qt::LeftButton);
    return clipboard.Text().value_or("");
  };
  const std::string before = copied();
  EXPECT_THAT(before, StartsWith("New.csv\r\n"));
  EXPECT_THAT(before, testing::HasSubstr("14.5"));
  Reading("77.7 26.0");
  EXPECT_EQ(copied(), before);
  Choose("mStatistics");
  EXPECT_EQ(window->findChildren<reports::StatisticsWindow*>().size(), 1);
  EXPECT_THAT(copied(), testing::HasSubstr("77.7"));
}

TEST_F(ReportWindowTest, AClosedStatisticsWindowIsGoneUntilItIsWantedAgain) {
  Choose("mStatistics");
  window->findChild<reports::StatisticsWindow*>()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window->findChild<reports::StatisticsWindow*>(), nullptr);
  Choose("mStatistics");
  EXPECT_TRUE(window->findChild<reports::StatisticsWindow*>()->isVisible());
}

TEST_F(ReportWindowTest, TheEndOfTheProgramClosesTheStatistics) {
  Choose("mStatistics");
  const QPointer<reports::StatisticsWindow> Form4 = window->findChild<reports::StatisticsWindow*>();
  dialogs.Answer(Answer::kNo);
  window->close();
  EXPECT_TRUE(!Form4 || !Form4->isVisible());
}

TEST_F(ReportWindowTest, TheEndOfTheProgramWhileThePrinterOfTheStatisticsIsChosenPrintsNothing) {
  Choose("mStatistics");
  auto* const Print =
      window->findChild<reports::StatisticsWindow*>()->findChild<QPushButton*>(QStringLiteral("Print"));
  printer.Accept(1, [&] {
    dialogs.Answer(Answer::kNo);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
  Print->click();
  EXPECT_EQ(printer.DialogsShown(), 1);
  EXPECT_TRUE(printer.Documents().empty());
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace quenlor::app
