// SPDX-License-Identifier: MIT
#include "platform/qt/qt_printer.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

// Runs `act` with the printer dialog once it waits for the operator.
void WhenOpen(const std::function<void(QPrintDialog&)>& act) {
  auto* poll = new QTimer(qApp);
  QObject::connect(poll, &QTimer::timeout, poll, [poll, act, polls = 0]() mutable {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    if (dialog && dialog->isVisible()) {
      poll->stop();
      poll->deleteLater();
      act(*dialog);
    } else if (++polls > 2000) {
      ADD_FAILURE() << "no dialog opened";
      poll->stop();
      poll->deleteLater();
    }
  });
  poll->start(2);
}

class QtPrinterTest : public testing::Test {
 protected:
  QString Path() const { return folder_.filePath(QStringLiteral("out.pdf")); }

  // Chooses the PDF file, the one printer that is everywhere.
  void ChooseFile(int copies = 1) {
    WhenOpen([this, copies](QPrintDialog& dialog) {
      dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
      dialog.printer()->setOutputFileName(Path());
      dialog.printer()->setCopyCount(copies);
      dialog.done(QDialog::Accepted);
    });
    EXPECT_TRUE(printer_.Choose("report"));
  }
  static void DrawLine(DrawingSurface& page, int) {
    page.SetPen({});
    page.DrawLine({0, 0}, {100, 100});
  }

  QTemporaryDir folder_;
  QWidget window_;
  QtPrinter printer_{[this] { return &window_; }, [this] { return folder_.path().toStdString(); }};
};

TEST_F(QtPrinterTest, PagesAreAsLargeAsWhatCanBePrintedOn) {
  ChooseFile();
  PixelRectangle whole;
  double pen = 0;
  EXPECT_FALSE(printer_.Print("report", 1, [&](DrawingSurface& page, int) {
    whole = page.Whole();
    pen = page.PenScale();
  }));
  const PageSize size = printer_.Page();
  EXPECT_NEAR(whole.width, size.width / 1440 * kPageDotsPerInch, 1);
  EXPECT_NEAR(whole.height, size.height / 1440 * kPageDotsPerInch, 1);
  EXPECT_EQ(pen, kPageDotsPerPen);
}

TEST_F(QtPrinterTest, EveryPageOfADocumentIsDrawnOnceWhateverTheCopies) {
  ChooseFile(3);
  EXPECT_EQ(printer_.Copies(), 3);
  std::vector<int> numbers;
  EXPECT_FALSE(printer_.Print("report", 2, [&](DrawingSurface& page, int number) {
    numbers.push_back(number);
    DrawLine(page, number);
  }));
  EXPECT_EQ(numbers, (std::vector{0, 1}));
  EXPECT_EQ(printer_.Copies(), 3);
  EXPECT_TRUE(QFile::exists(Path()));
}

TEST_F(QtPrinterTest, ACancelledDialogLeavesWhatWasChosenBefore) {
  ChooseFile(2);
  WhenOpen([](QPrintDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(printer_.Choose("report"));
  EXPECT_EQ(printer_.Copies(), 2);
  EXPECT_FALSE(printer_.Print("report", 1, DrawLine));
  EXPECT_TRUE(QFile::exists(Path()));
}

TEST_F(QtPrinterTest, TheDialogAsksForNoPageNumbers) {
  WhenOpen([](QPrintDialog& dialog) {
    const auto* ranges = dialog.findChild<QWidget*>(QStringLiteral("gbPrintRange"));
    EXPECT_TRUE(ranges == nullptr || ranges->maximumSize().isEmpty());
    EXPECT_FALSE(dialog.testOption(QAbstractPrintDialog::PrintPageRange));
    dialog.reject();
  });
  printer_.Choose("report");
}

TEST_F(QtPrinterTest, AFileIsProposedUnderTheDocumentsNameInItsFolder) {
  const auto proposed = [&](const std::string& title, const QString& typed = {}) {
    QString proposal;
    WhenOpen([&](QPrintDialog& dialog) {
      auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
      ASSERT_NE(file, nullptr);
      proposal = file->text();
      if (typed.isEmpty()) return dialog.reject();
      file->setText(typed);
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    printer_.Choose(title);
    return proposal;
  };
  EXPECT_EQ(proposed("oil.csv"), folder_.filePath(QStringLiteral("oil.pdf")));
  EXPECT_EQ(proposed("batch 1.5"), folder_.filePath(QStringLiteral("batch 1.5.pdf")));
  EXPECT_EQ(proposed("a/b\xF6.TXT"), folder_.filePath(QStringLiteral("a_bö.pdf")));
  EXPECT_EQ(proposed("oil.csv", Path()), folder_.filePath(QStringLiteral("oil.pdf")));
  EXPECT_EQ(proposed("oil.csv"), Path()) << "what was chosen for this document stays";
  EXPECT_EQ(proposed("water.csv"), folder_.filePath(QStringLiteral("water.pdf")));
  EXPECT_FALSE(printer_.Print("report", 1, DrawLine));
  EXPECT_TRUE(QFile::exists(Path()));
}

TEST_F(QtPrinterTest, ThereIsAtLeastOneCopyAndAPageBeforeAnythingWasChosen) {
  EXPECT_GE(printer_.Copies(), 1);
  EXPECT_GT(printer_.Page().width, 5000);
  EXPECT_GT(printer_.Page().height, 5000);
}

TEST_F(QtPrinterTest, AFileThatCannotBeMadeIsAFailure) {
  WhenOpen([](QPrintDialog& dialog) {
    dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog.printer()->setOutputFileName(QStringLiteral("/proc/nowhere/out.pdf"));
    dialog.done(QDialog::Accepted);
  });
  EXPECT_TRUE(printer_.Choose("report"));
  const Done done = printer_.Print("report", 1, DrawLine);
  ASSERT_TRUE(done);
  EXPECT_EQ(done->text, "cannot print report: No such file or directory");
  EXPECT_EQ(done->kind, FailureKind::kNotFound);
}

TEST_F(QtPrinterTest, PrintingGoesOnAfterAFailure) {
  ChooseFile(2);
  const PageSize page = printer_.Page();
  WhenOpen([](QPrintDialog& dialog) {
    dialog.printer()->setOutputFileName(QStringLiteral("/proc/nowhere/out.pdf"));
    dialog.done(QDialog::Accepted);
  });
  EXPECT_TRUE(printer_.Choose("report"));
  EXPECT_TRUE(printer_.Print("report", 1, DrawLine));
  EXPECT_EQ(printer_.Copies(), 2);
  EXPECT_EQ(printer_.Page(), page);
  ChooseFile(3);
  EXPECT_EQ(printer_.Copies(), 3);
  EXPECT_FALSE(printer_.Print("report", 1, DrawLine));
  EXPECT_TRUE(QFile::exists(Path()));
}

TEST_F(QtPrinterTest, ADialogWhoseWindowGoesAwayIsACancelledOne) {
  auto parent = std::make_unique<QWidget>();
  QtPrinter printer([&] { return parent.get(); }, [] { return std::string(); });
  WhenOpen([&](QPrintDialog&) { parent.reset(); });
  EXPECT_FALSE(printer.Choose("report"));
}

}  // namespace
}  // namespace quenlor::platform::qt
