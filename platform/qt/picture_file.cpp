// SPDX-License-Identifier: MIT
#include "platform/qt/picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "platform/qt/page_painter.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::platform::qt {
namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kPointsPerPixel = 72.0 / kPixelsPerInch;
constexpr int kDotsPerMetre = 3780;  // 96 per inch
// Compression of middling effort: on graphs, two thirds of the usual one's time for a twentieth more bytes.
constexpr int kPngQuality = 50;
constexpr double kMarginMillimetres = 10;
// Lines of an SVG stand on whole parts of a pixel this fine.
constexpr int kSvgPartsPerPixel = 10;

QByteArray TenDigits(qint64 number) { return QByteArray::number(number).rightJustified(10, '0'); }

// The file's table tells where each object begins, as ten digits in a line of twenty bytes, and its end where
// the table does. `cut` bytes before all of them but the first object are gone.
void MoveTable(QByteArray& pdf, qsizetype cut) {
  constexpr qsizetype kEntry = 20;
  constexpr qsizetype kDigits = 10;
  const qsizetype table = pdf.lastIndexOf("\nxref\n") + 1;
  const qsizetype first = pdf.indexOf('\n', table + 5) + 1;
  const qsizetype end = pdf.indexOf("trailer", first);
  const qsizetype info = pdf.indexOf("1 0 obj");
  for (qsizetype entry = first; entry + kEntry <= end; entry += kEntry) {
    const qint64 offset = pdf.mid(entry, kDigits).toLongLong();
    if (pdf[entry + 17] == 'n' && offset > info) pdf.replace(entry, kDigits, TenDigits(offset - cut));
  }
  const qsizetype number = pdf.indexOf('\n', pdf.lastIndexOf("startxref")) + 1;
  pdf.replace(number, pdf.indexOf('\n', number) - number, QByteArray::number(table));
}

// The date of the making is the one thing in such a file that differs from run to run, and by its zone from
// place to place.
std::string WithoutDate(QByteArray pdf) {
  const qsizetype begin = pdf.indexOf("/CreationDate (");
  const qsizetype end = begin < 0 ? -1 : pdf.indexOf(')', begin) + 1;
  if (end > 0) {
    pdf.remove(begin, end - begin);
    MoveTable(pdf, end - begin);
  }
  return pdf.toStdString();
}

// The generator tells the size in millimetres, rounded, of which readers make a part of a pixel too many.
std::string InPixels(QByteArray svg, QSize pixels) {
  const qsizetype begin = svg.indexOf("<svg ");
  const qsizetype end = svg.indexOf("viewBox", begin);
  if (begin < 0 || end < 0) return svg.toStdString();
  const QString size = QStringLiteral("<svg width=\"%1\" height=\"%2\"\n ");
  return svg.replace(begin, end - begin, size.arg(pixels.width()).arg(pixels.height()).toLatin1())
      .toStdString();
}

QPageLayout LayoutOf(const PageSetup& setup) {
  return {QPageSize(setup.paper == Paper::kA4 ? QPageSize::A4 : QPageSize::Letter),
          setup.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
          QPageLayout::Millimeter};
}

std::string Pdf(const QPageLayout& layout, const std::string& title, int pages,
                const std::function<void(QPainter&, QSize dots, int number)>& draw) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(kPageDotsPerInch);
    writer.setPageLayout(layout);
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Quenlor"));
    QPainter painter(&writer);
    for (int number = 0; number < pages; ++number) {
      if (number > 0) writer.newPage();
      draw(painter, layout.paintRectPixels(kPageDotsPerInch).size(), number);
    }
  }
  return WithoutDate(buffer.data());
}

}  // namespace

std::string PngOf(QSize pixels, const DrawPicture& draw, double times) {
  QImage image(pixels * times, QImage::Format_RGB32);
  if (image.isNull()) return {};
  const int dots = qRound(kDotsPerMetre * times);
  image.setDotsPerMeterX(dots);  // else those of the screen
  image.setDotsPerMeterY(dots);
  {
    QPainter painter(&image);
    QtDrawingSurface surface(painter, image.size(), times);
    draw(surface);
  }
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG", kPngQuality)) return {};
  return buffer.data().toStdString();
}

std::string SvgOf(QSize pixels, const DrawPicture& draw) {
  QBuffer buffer;
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kPixelsPerInch);
  generator.setSize(pixels);
  generator.setViewBox(QRect(QPoint(0, 0), pixels));
  generator.setTitle({});
  generator.setDescription({});
  {
    QPainter painter(&generator);
    painter.scale(1.0 / kSvgPartsPerPixel, 1.0 / kSvgPartsPerPixel);
    QtDrawingSurface surface(painter, pixels * kSvgPartsPerPixel, kSvgPartsPerPixel);
    draw(surface);
  }
  return InPixels(buffer.data(), pixels);
}

std::string PdfOf(QSize pixels, const DrawPicture& draw) {
  const QPageSize page(QSizeF(pixels) * kPointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch);
  const QPageLayout layout(page, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0), QPageLayout::Point);
  return Pdf(layout, {}, 1, [&](QPainter& painter, QSize dots, int) {
    QtDrawingSurface surface(painter, dots, kPageDotsPerPen);
    draw(surface);
  });
}

PageSize PageSizeOf(const PageSetup& setup) {
  constexpr double kTwipsPerPoint = 20;
  const QRectF inside = LayoutOf(setup).paintRect(QPageLayout::Point);
  return {inside.width() * kTwipsPerPoint, inside.height() * kTwipsPerPoint};
}

std::string PdfOf(const PageSetup& setup, const std::string& title, int pages,
                  const std::function<void(DrawingSurface& page, int number)>& draw) {
  return Pdf(LayoutOf(setup), title, pages, [&](QPainter& painter, QSize dots, int number) {
    QtDrawingSurface surface(painter, dots, kPageDotsPerPen);
    draw(surface, number);
  });
}

}  // namespace quenlor::platform::qt
