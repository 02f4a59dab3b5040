// SPDX-License-Identifier: MIT
#include "platform/qt/qt_printer.h"

#include <QDir>
#include <QLineEdit>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "data/utf8.h"
#include "platform/qt/native_file.h"
#include "platform/qt/page_painter.h"

namespace quenlor::platform::qt {
namespace {

constexpr double kTwipsPerPoint = 20;

// "oil.pdf" of "oil.csv". A title may hold what no file name can.
QString FileFor(const std::string& title, const std::string& folder) {
  QString name = QString::fromStdString(data::ToUtf8(title));
  for (const char* suffix : {".csv", ".txt"}) {
    if (name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive)) name.chop(4);
  }
  name.replace(u'/', u'_');
  const bool can_be_shown = !folder.empty() && data::IsUtf8(folder);
  const QString place = can_be_shown ? QString::fromStdString(folder)
                                     : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(place).absoluteFilePath(name + QStringLiteral(".pdf"));
}

}  // namespace

QPrinter& QtPrinter::Chosen() const {
  if (printer_ != nullptr) return *printer_;
  printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer_->setResolution(kPageDotsPerInch);
  printer_->setCreator(QStringLiteral("Quenlor"));
  // A printer knows its own paper; a file gets the paper of the country.
  if (printer_->outputFormat() == QPrinter::PdfFormat) {
    const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    printer_->setPageSize(QPageSize(letter ? QPageSize::Letter : QPageSize::A4));
  }
  return *printer_;
}

bool QtPrinter::Choose(const std::string& title) {
  const QPointer<QPrintDialog> dialog(new QPrintDialog(&Chosen(), parent_()));
  dialog->setObjectName(QStringLiteral("CommonDialog1"));
  dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  // A report is not printed by page numbers; the dialog shows them for printers that could.
  if (auto* ranges = dialog->findChild<QWidget*>(QStringLiteral("gbPrintRange")))
    ranges->setMaximumSize(0, 0);
  if (auto* file = dialog->findChild<QLineEdit*>(QStringLiteral("filename"))) {
    const QString proposal = FileFor(title, folder_());
    if (proposal != proposed_ || Chosen().outputFileName().isEmpty()) file->setText(proposal);
    proposed_ = proposal;
  }
  const bool accepted = dialog->exec() == QDialog::Accepted;
  delete dialog.data();  // unless its parent took it along meanwhile
  return accepted;
}

int QtPrinter::Copies() const { return std::max(1, Chosen().copyCount()); }

PageSize QtPrinter::Page() const {
  const QRectF paint = Chosen().pageLayout().paintRect(QPageLayout::Point);
  return {paint.width() * kTwipsPerPoint, paint.height() * kTwipsPerPoint};
}

Done QtPrinter::Print(const std::string& title, int pages,
                      const std::function<void(DrawingSurface& page, int number)>& draw) {
  QPrinter& printer = Chosen();
  const int copies = printer.copyCount();
  printer.setCopyCount(1);  // each copy is printed as a document of its own
  printer.setDocName(QString::fromStdString(title));
  bool printed = false;
  Failure failure{"cannot print " + title};
  {
    QPainter painter;
    printed = painter.begin(&printer);
    if (!printed && !printer.outputFileName().isEmpty()) failure = Cannot("print " + title, LastReason());
    for (int number = 0; printed && number < pages; ++number) {
      if (number > 0) printed = printer.newPage();
      if (!printed) break;
      const QRect area = printer.pageLayout().paintRectPixels(printer.resolution());
      PaintPage(painter, area.size(), DotsOf(Page()), [&](DrawingSurface& page) { draw(page, number); });
    }
    if (painter.isActive()) printed = painter.end() && printed;
  }
  printed = printed && printer.printerState() != QPrinter::Error;
  if (!printed) BeginAnew();
  Chosen().setCopyCount(copies);
  if (!printed) return failure;
  return std::nullopt;
}

// After a failure the old one stays busy for ever, and nothing about it can be changed any more.
void QtPrinter::BeginAnew() {
  const std::unique_ptr<QPrinter> old = std::exchange(printer_, nullptr);
  QPrinter& printer = Chosen();
  printer.setPrinterName(old->printerName());
  printer.setOutputFormat(old->outputFormat());
  printer.setOutputFileName(old->outputFileName());
  printer.setPageLayout(old->pageLayout());
}

}  // namespace quenlor::platform::qt
