// SPDX-License-Identifier: MIT
#include "platform/qt/picture_file.h"

#include <QDateTime>
#include <QImage>
#include <QTest>
#include <QXmlStreamReader>
#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/pdf_text.h"

namespace quenlor::platform::qt {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr Rgb kRed{255, 0, 0};

void Draw(DrawingSurface& surface) {
  const PixelRectangle whole = surface.Whole();
  surface.SetViewport({whole, {0, 0, 100, 100}});
  surface.Clear({255, 255, 255});
  surface.SetPen({kRed, 2});
  surface.DrawLine({0, 50}, {100, 50});
  surface.SetPen({});
  surface.DrawText({10, 20}, Across::kLeft, Down::kCentre, "Viscosität 12.5 測", 10);
}

QByteArray Bytes(const std::string& text) { return QByteArray::fromStdString(text); }

void WaitForTheNextSecond() {
  const qint64 second = QDateTime::currentSecsSinceEpoch();
  EXPECT_TRUE(QTest::qWaitFor([&] { return QDateTime::currentSecsSinceEpoch() > second; }, 3000));
}

TEST(PictureFile, APngHasThePixelsAsked) {
  const QImage image = QImage::fromData(Bytes(PngOf({300, 200}, Draw)), "PNG");
  ASSERT_EQ(image.size(), QSize(300, 200));
  EXPECT_EQ(image.pixelColor(150, 100), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(150, 150), QColor(Qt::white));
}

TEST(PictureFile, AFinerPngIsTheSamePictureWithMorePixels) {
  const QImage image = QImage::fromData(Bytes(PngOf({300, 200}, Draw, 2)), "PNG");
  const QImage coarse = QImage::fromData(Bytes(PngOf({300, 200}, Draw)), "PNG");
  ASSERT_EQ(image.size(), QSize(600, 400));
  const auto red = [](const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == QColor(Qt::red);
    return count;
  };
  EXPECT_GT(red(coarse), 0);
  EXPECT_NEAR(red(image), 4 * red(coarse), red(coarse)) << "pens are as wide";
}

TEST(PictureFile, APictureTooLargeForTheMemoryIsNone) { EXPECT_EQ(PngOf({0, 100}, Draw), ""); }

TEST(PictureFile, AnSvgIsAsLargeAsAskedAndHoldsLinesAndLetters) {
  const std::string svg = SvgOf({300, 200}, Draw);
  EXPECT_THAT(svg, HasSubstr("viewBox=\"0 0 300 200\""));
  EXPECT_THAT(svg, HasSubstr("Viscosität 12.5"));
  EXPECT_THAT(svg, HasSubstr("#ff0000"));
  EXPECT_THAT(svg, Not(HasSubstr("<image")));
}

TEST(PictureFile, AnSvgIsReadWhateverItsTextsHold) {
  const std::string text = std::string("a\0b\x1F", 4) + "<&>\xEF\xBF\xBE\xEF\xBF\xBF";
  const std::string svg = SvgOf({300, 200}, [&](DrawingSurface& surface) {
    surface.SetViewport({surface.Whole(), {0, 0, 100, 100}});
    surface.DrawText({10, 20}, Across::kLeft, Down::kCentre, text, 10);
  });
  QXmlStreamReader reader(Bytes(svg));
  QString read;
  while (!reader.atEnd()) {
    if (reader.readNext() == QXmlStreamReader::Characters) read += reader.text();
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  EXPECT_EQ(read.trimmed(), QStringLiteral("a b <&>")) << read.toStdString();
}

TEST(PictureFile, APdfHoldsItsTextAsText) {
  EXPECT_THAT(PdfText(PdfOf({300, 200}, Draw)), HasSubstr("Viscosität 12.5"));
}

TEST(PictureFile, ADocumentHasAPageForEachCall) {
  const std::string pdf = PdfOf(PageSetup{}, "report", 3, [](DrawingSurface& page, int number) {
    page.SetPen({});
    page.DrawText({1000, 1000}, Across::kLeft, Down::kTop, "page number " + std::to_string(number), 200);
  });
  const std::string text = PdfText(pdf);
  for (const char* page : {"page number 0", "page number 1", "page number 2"})
    EXPECT_THAT(text, HasSubstr(page));
  EXPECT_EQ(std::ranges::count(text, '\f'), 3);
}

TEST(PictureFile, APageIsThePaperWithoutItsMargins) {
  // A4 is 210 by 297 mm; 10 mm are left free on each side.
  const PageSize a4 = PageSizeOf({Paper::kA4, false});
  EXPECT_NEAR(a4.width, 190 / 25.4 * 1440, 20);
  EXPECT_NEAR(a4.height, 277 / 25.4 * 1440, 20);
  const PageSize letter = PageSizeOf({Paper::kLetter, true});
  EXPECT_NEAR(letter.width, (11 * 25.4 - 20) / 25.4 * 1440, 20);
  EXPECT_NEAR(letter.height, (8.5 * 25.4 - 20) / 25.4 * 1440, 20);
}

TEST(PictureFile, AnSvgsLengthsAreItsPixels) {
  EXPECT_THAT(SvgOf({1200, 800}, Draw),
              HasSubstr("<svg width=\"1200\" height=\"800\"\n viewBox=\"0 0 1200 800\""));
}

// A reader that trusts the table finds each object where it says.
TEST(PictureFile, TheTableOfAPdfHolds) {
  const QByteArray pdf = Bytes(PdfOf({300, 200}, Draw));
  const qsizetype start =
      pdf.mid(pdf.lastIndexOf("startxref") + 10).trimmed().split('\n').first().trimmed().toLongLong();
  ASSERT_TRUE(pdf.mid(start).startsWith("xref\n0 "));
  const QList<QByteArray> lines = pdf.mid(start).split('\n');
  const int objects = lines[1].mid(2).trimmed().toInt();
  ASSERT_GT(objects, 5);
  for (int object = 1; object < objects; ++object) {
    const qsizetype offset = lines[object + 2].left(10).toLongLong();
    EXPECT_TRUE(pdf.mid(offset).startsWith(QByteArray::number(object) + " 0 obj")) << object;
  }
}

TEST(PictureFile, EqualDrawingsGiveEqualBytesInEveryZone) {
  const QByteArray before = qgetenv("TZ");
  std::vector<std::string> pdfs;
  for (const char* zone : {"UTC", "Pacific/Auckland", "America/St_Johns"}) {
    qputenv("TZ", zone);
    ::tzset();
    pdfs.push_back(PdfOf({300, 200}, Draw));
  }
  before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
  ::tzset();
  EXPECT_EQ(pdfs[0], pdfs[1]);
  EXPECT_EQ(pdfs[0], pdfs[2]);
}

TEST(PictureFile, EqualDrawingsGiveEqualBytesAtAnyTime) {
  const auto page = [](DrawingSurface& surface, int) { Draw(surface); };
  const auto all = [&] {
    return std::vector<std::string>{PngOf({300, 200}, Draw), SvgOf({300, 200}, Draw), PdfOf({300, 200}, Draw),
                                    PdfOf(PageSetup{}, "report", 2, page)};
  };
  const auto now = all();
  WaitForTheNextSecond();
  const auto later = all();
  for (std::size_t i = 0; i < now.size(); ++i) EXPECT_TRUE(now[i] == later[i]) << i;
  EXPECT_THAT(now[3], Not(HasSubstr("/CreationDate")));
}

}  // namespace
}  // namespace quenlor::platform::qt
