// SPDX-License-Identifier: MIT
#include "platform/qt/picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>

#include "platform/qt/page_painter.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::platform::qt {
namespace {

constexpr double kPointsPerPixel = 72.0 / 96.0;
// Compression of middling effort: on graphs, two thirds of the usual one's time for a twentieth more bytes.
constexpr int kPngQuality = 50;
constexpr double kMarginMillimetres = 10;
// Lines of an SVG stand on whole parts of a pixel this fine.
constexpr int kSvgPartsPerPixel = 10;

// The date of the making is the one thing in such a file that differs from run to run. Blanks in its place
// keep all else where the file's table says it is.
std::string WithoutDate(QByteArray pdf) {
  for (const char* const key : {"/CreationDate (", "/ModDate ("}) {
    const qsizetype begin = pdf.lastIndexOf(key);
    const qsizetype end = begin < 0 ? -1 : pdf.indexOf(')', begin);
    if (end < 0) continue;
    std::fill(pdf.begin() + begin, pdf.begin() + end + 1, ' ');
  }
  return pdf.toStdString();
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

std::string PngOf(QSize pixels, const DrawPicture& draw) {
  QImage image(pixels, QImage::Format_RGB32);
  if (image.isNull()) return {};
  {
    QPainter painter(&image);
    QtDrawingSurface surface(painter, pixels);
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
  return buffer.data().toStdString();
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
