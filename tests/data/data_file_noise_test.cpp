// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "data/utf8.h"
#include "tests/data/document_builder.h"

namespace quenlor::data {
namespace {

std::string RandomBytes(Random& random, std::size_t length) {
  std::string bytes(length, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

// Lines that look like those of a data file, in any order and cut anywhere. The separator alone is settled.
std::string RandomLines(Random& random, char separator) {
  static const std::string kPieces[] = {"No.",
                                        "Info",
                                        "Axis",
                                        "Date",
                                        "Temp",
                                        "Memo",
                                        "1",
                                        "2",
                                        "12",
                                        "327",
                                        "25.1",
                                        "-",
                                        "E",
                                        " ",
                                        "\t",
                                        "x",
                                        "\xC3\xA4",
                                        "\xFF",
                                        "\xE2",
                                        "\xEF\xBB\xBF",
                                        "\r\n",
                                        "\n",
                                        "\r",
                                        "\r\n",
                                        "Sample Name",
                                        "00:01:05",
                                        std::string(1, '\0')};
  std::string text = std::string("No.") + separator;
  for (std::size_t n = Below(random, 120); n > 0; --n) {
    if (Below(random, 3) == 0)
      text += separator;
    else
      text += kPieces[Below(random, std::size(kPieces) - (Below(random, 8) == 0 ? 0 : 1))];
  }
  return text;
}

std::vector<Texts> Runs(const Laboratory& lab) {
  std::vector<Texts> runs;
  // The titles of the run table are written only where there are runs.
  if (lab.document.Grid4().Rows() < 2) return runs;
  for (int row = 0; row < lab.document.Grid4().Rows(); ++row) runs.push_back(lab.Run(row));
  return runs;
}

void ExpectSoundDocument(const Document& document) {
  const MeasurementTable& table = document.Grid1();
  ASSERT_GE(table.Cols(), 2);
  ASSERT_LE(table.Cols(), MeasurementTable::kMaxCols);
  for (MeasurementTable::Row row = 0; row < table.Rows(); ++row) {
    for (int col = 0; col < table.Cols(); ++col) {
      const std::string_view cell = table.TextMatrix(row, col);
      ASSERT_TRUE(IsUtf8(cell)) << row << ',' << col;
      ASSERT_EQ(cell.find_first_of("\r\n"), std::string_view::npos) << row << ',' << col;
    }
  }
  ASSERT_EQ(table.TextMatrix(table.EntryRow(), 0), "");
  ASSERT_GE(document.RunCount(), 0);
  ASSERT_LE(document.RunCount(), kMaxRuns);
  ASSERT_GE(document.Grid4().Rows(), document.RunCount() + 1);
}

// A reading that is divided by the other separator may hold the file's own in its cells; nothing is quoted.
bool HoldsItsSeparator(const Document& document) {
  for (const Texts& row : AllTexts(document.Grid1())) {
    for (const std::string& cell : row) {
      if (cell.find(document.FieldSeparator()) != std::string::npos) return true;
    }
  }
  return false;
}

void ExpectTheSameAfterWritingAndReading(const std::string& bytes) {
  Laboratory first;
  first.Open(bytes);
  ASSERT_NO_FATAL_FAILURE(ExpectSoundDocument(first.document));
  if (HoldsItsSeparator(first.document)) return;
  const std::string written = first.Bytes();
  Laboratory second;
  second.Open(written);
  SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 10'000)));
  ASSERT_EQ(AllTexts(second.document.Grid1()), AllTexts(first.document.Grid1()));
  ASSERT_EQ(Runs(second), Runs(first));
  ASSERT_EQ(second.document.RunCount(), first.document.RunCount());
  ASSERT_EQ(second.document.List2(), first.document.List2());
  ASSERT_EQ(second.Bytes(), written);
}

TEST(DataFileNoise, RandomBytesAreReadAndComeBackAsTheyWereRead) {
  for (std::uint64_t seed = 0; seed < 1500; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    ASSERT_NO_FATAL_FAILURE(ExpectTheSameAfterWritingAndReading(RandomBytes(random, Below(random, 3000))));
  }
}

TEST(DataFileNoise, AMegabyteOfRandomBytesComesBackAsItWasRead) {
  Random random(5);
  ExpectTheSameAfterWritingAndReading(RandomBytes(random, std::size_t{1} << 20));
}

TEST(DataFileNoise, LinesInAnyOrderAreReadAndComeBackAsTheyWereRead) {
  for (const char separator : {',', ';'}) {
    for (std::uint64_t seed = 0; seed < 500; ++seed) {
      SCOPED_TRACE(std::to_string(seed) + separator);
      Random random(seed);
      ASSERT_NO_FATAL_FAILURE(ExpectTheSameAfterWritingAndReading(RandomLines(random, separator)));
    }
  }
}

TEST(DataFileNoise, LinesOfBothSeparatorsGiveASoundDocument) {
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    Laboratory lab;
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += RandomLines(random, i % 2 == 0 ? ',' : ';');
    lab.Open(bytes);
    ASSERT_NO_FATAL_FAILURE(ExpectSoundDocument(lab.document));
    Laboratory again;
    again.Open(lab.Bytes());
    ASSERT_NO_FATAL_FAILURE(ExpectSoundDocument(again.document));
  }
}

TEST(DataFileNoise, AFileCutAnywhereIsReadUpToTheCut) {
  const std::string whole =
      "\xEF\xBB\xBFNo.,Time,\xC2\xB0 C,\xE2\x82\xAC\r\n1,00:00:00,1.5,x\r\n2,00:00:00,2.5,y\r\nInfo,Sample "
      "No.,Sample Name\r\n"
      "Info,No.1,Oil\r\nInfo,No.2,Water\r\nAxis,2,3,0,180,0,100,0,100,0,2,1,0,2,0\r\nDate,2002/03/"
      "20\r\nMemo,a,b\r\nc\r\n";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    ASSERT_NO_FATAL_FAILURE(ExpectTheSameAfterWritingAndReading(whole.substr(0, length)));
  }
}

TEST(DataFileNoise, ADocumentOfNoiseTakesReadingsEditsAndDeletions) {
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    Laboratory lab;
    lab.Open(RandomLines(random, ','));
    NaiveTable naive;
    naive.rows = AllTexts(lab.document.Grid1());
    const int runs = lab.document.RunCount();
    ASSERT_TRUE(lab.AppendRun({"5", "6"}));
    naive.AppendRow({std::to_string(runs + 1), "00:00:00", "5", "6"});
    const std::size_t row = 1 + Below(random, naive.rows.size() - 1);
    const std::size_t col = Below(random, naive.Cols());
    lab.document.SetCell(static_cast<Document::Row>(row), static_cast<int>(col), "edited");
    naive.rows[row][col] = "edited";
    ASSERT_EQ(AllTexts(lab.document.Grid1()), naive.rows);
    lab.document.RemoveRows(1, static_cast<Document::Row>(row));
    naive.RemoveRows(1, row);
    ASSERT_EQ(AllTexts(lab.document.Grid1()), naive.rows);
  }
}

TEST(DataFileNoise, AReadingLongerThanAMegabyteIsCutThere) {
  const std::string bytes = "No.,Time,Data1\r\n1,00.0," + std::string(3'000'000, '7') + ",9\r\n2,00.0,5\r\n";

  const DataFileContents contents = ParseDataFile(bytes);

  ASSERT_EQ(contents.table.Rows(), 4);
  EXPECT_EQ(contents.table.TextMatrix(1, 2).size(), (1u << 20) - 7);
  EXPECT_EQ(contents.table.TextMatrix(2, 2), "5");
}

TEST(DataFileNoise, ACutReadingEndsWithAWholeCharacter) {
  std::string line = "1,";
  while (line.size() < 1'100'000) line += "\xE2\x82\xAC";  // three bytes each

  const DataFileContents contents = ParseDataFile("No.,Time\r\n" + line + "\r\n");

  EXPECT_EQ(contents.table.TextMatrix(1, 1).size() % 3, 0u);
}

}  // namespace
}  // namespace quenlor::data
