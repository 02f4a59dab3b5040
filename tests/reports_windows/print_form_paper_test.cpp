// SPDX-License-Identifier: MIT
//
// The page as the preview shows it, and as a reader of the printed file sees it.

#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/qt/picture_file.h"
#include "reports/print_form.h"
#include "tests/pdf_text.h"
#include "tests/reports/report_desk.h"

namespace quenlor::reports {
namespace {

using testing::HasSubstr;

constexpr double kMarginMillimetres = 10;
constexpr double kMillimetresPerInch = 25.4;

struct Document {
  const char* name;
  int runs;
  int readings;
  graph::GraphKind kind;
  bool log;
  const char* remarks;
  platform::qt::PageSetup paper;
};

void PrintTo(const Document& document, std::ostream* out) { *out << document.name; }

constexpr auto kTime = graph::GraphKind::ViscoTime;
constexpr auto kBoth = graph::GraphKind::ViscoTempTime;
constexpr auto kTemp = graph::GraphKind::ViscoTemp;
constexpr auto kLetter = platform::qt::Paper::kLetter;

const Document kDocuments[] = {
    {"Empty", 0, 0, kTime, false, "", {}},
    {"OneRun", 1, 300, kTime, false, "first batch", {}},
    {"TenRuns", 10, 60, kTime, false, "ten batches", {}},
    {"LogAxis", 3, 60, kTime, true, "", {}},
    {"BothCurves", 1, 200, kBoth, false, "", {kLetter, false}},
    {"OverTemperature", 2, 100, kTemp, false, "", {}},
    {"Landscape", 10, 60, kBoth, false, "turned", {kLetter, true}},
    {"ManyRuns", 300, 5, kTime, false, "", {}},
    {"LongRemarks",
     2,
     20,
     kTime,
     false,
     "a remark that goes on and on until it has filled more than a line of the page, and then goes on still, "
     "as "
     "remarks of long days do, with a second thought and with a third one",
     {}},
    {"OtherLetters", 2, 20, kTime, false, "вязкость при 25 °C, Δείγμα µPa·s", {}},
};

QImage Rendered(const std::string& pdf, double dots_per_inch) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("page.pdf")));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(pdf));
  file.close();
  QProcess renderer;
  renderer.start(QStringLiteral("pdftoppm"),
                 {QStringLiteral("-r"), QString::number(dots_per_inch), QStringLiteral("-gray"),
                  QStringLiteral("-singlefile"), file.fileName(), folder.filePath(QStringLiteral("page"))});
  EXPECT_TRUE(renderer.waitForFinished());
  QImageReader::setAllocationLimit(0);  // a screen of fine pixels makes large pictures
  return QImage(folder.filePath(QStringLiteral("page.pgm")));
}

// The mean difference of grey levels between pictures of one shape, seen from so far that three of the first
// one's pixels blur into one.
double Difference(const QImage& one, const QImage& other) {
  const QSize far = one.deviceIndependentSize().toSize() / 3;
  const auto blurred = [&](const QImage& image) {
    return image.convertToFormat(QImage::Format_Grayscale8)
        .scaled(far, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  };
  const QImage a = blurred(one);
  const QImage b = blurred(other);
  double sum = 0;
  for (int y = 0; y < far.height(); ++y) {
    for (int x = 0; x < far.width(); ++x) sum += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
  }
  return sum / far.width() / far.height();
}

class PreviewAndPaper : public testing::TestWithParam<Document> {
 protected:
  void SetUp() override {
    const Document& document = GetParam();
    desk_.Open(Rows(document.runs, document.readings));
    desk_.SetKind(document.kind);
    if (document.log) desk_.SetLogAxis();
    if (*document.remarks != '\0') desk_.document.SetRemarks(document.remarks);
    form_.ShowPage(platform::qt::PageSizeOf(document.paper));
    form_.Draw([this](platform::DrawingSurface& page) { reports::Draw(page, desk_.Content()); });
  }
  std::string Pdf() {
    return platform::qt::PdfOf(GetParam().paper, "report", 1,
                               [this](platform::DrawingSurface& paper, int) { form_.Page().Replay(paper); });
  }

  ReportDesk desk_;
  PrintForm form_;
};

TEST_P(PreviewAndPaper, AreThePictureOfEachOther) {
  const QImage preview = form_.grab().toImage();
  const double inches = platform::qt::PageSizeOf(GetParam().paper).width / platform::kTwipsPerInch;
  // A renderer draws hairlines a whole dot wide, so it gets dots that are finer than the screen's.
  constexpr int kFiner = 3;
  const double dots_per_inch = kFiner * preview.width() / inches;
  const int margin = static_cast<int>(std::lround(kMarginMillimetres / kMillimetresPerInch * dots_per_inch));
  const QImage paper =
      Rendered(Pdf(), dots_per_inch).copy(QRect(QPoint(margin, margin), kFiner * preview.size()));
  const double difference = Difference(preview, paper);
  const auto eight_pixels = static_cast<int>(std::lround(8 * kFiner * preview.devicePixelRatio()));
  const double of_another = Difference(preview, paper.copy(QRect(QPoint(eight_pixels, 0), paper.size())));
  EXPECT_LT(difference, 3.5);
  EXPECT_LT(3 * difference, of_another) << "as it would be eight pixels farther to the left";
}

TEST_P(PreviewAndPaper, TheCaptionsOnPaperAreText) {
  const std::string text = PdfText(Pdf());
  const graph::Captions& captions = desk_.Captions();
  const bool over_temp = GetParam().kind == kTemp;
  for (const std::size_t i : {1U, 3U, 4U}) EXPECT_THAT(text, HasSubstr(captions.Label6[i]));
  EXPECT_THAT(text, HasSubstr(captions.Label6[over_temp ? 2 : 0]));
  for (const std::size_t i : {2U, 3U}) EXPECT_THAT(text, HasSubstr(captions.Label5[i]));
  for (std::size_t run = 1; run <= 10 && static_cast<int>(run) <= GetParam().runs; ++run)
    EXPECT_THAT(text, HasSubstr("No." + std::to_string(run)));
  std::istringstream remarks(GetParam().remarks);
  for (std::string word; remarks >> word;) EXPECT_THAT(text, HasSubstr(word));
}

INSTANTIATE_TEST_SUITE_P(Reports, PreviewAndPaper, testing::ValuesIn(kDocuments),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace quenlor::reports
