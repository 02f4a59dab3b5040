// SPDX-License-Identifier: MIT
#include "app/desk/reading_text.h"

#include <gtest/gtest.h>

#include "platform/memory/test_clock.h"

namespace quenlor::app {
namespace {

struct Readings {
  data::SettingsList settings;
  data::Document document{settings};
  double seconds = 0;

  Readings() { document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp,\"U\"\r\n"), "", ""); }
  void Append(std::vector<std::string_view> fields) {
    auto now = platform::memory::MomentAt(2026, 11, 21, 9, 30, seconds);
    document.AppendReading(fields, now);
    seconds += 59;
  }
};

TEST(ReadingText, TextIsTheCellsDividedByTabs) {
  Readings readings;
  readings.Append({"1.5", "mPa.s", "25"});
  EXPECT_EQ(ReadingText(OutputFormat::kText, readings.document), "1\t00:00:00\t1.5\tmPa.s\t25\t\n");
}

TEST(ReadingText, CsvHasItsTitlesOnceAndQuotesWhereItMust) {
  Readings readings;
  readings.Append({"1,5", "say \"x\"", "25"});
  EXPECT_EQ(ReadingText(OutputFormat::kCsv, readings.document),
            "No.,Time,Viscosity,Unit1,Temp,\"\"\"U\"\"\"\n1,00:00:00,\"1,5\",\"say \"\"x\"\"\",25,\n");
  readings.Append({"2"});
  EXPECT_EQ(ReadingText(OutputFormat::kCsv, readings.document), "1,00:00:59,2,,,\n");
}

TEST(ReadingText, JsonIsOneObjectALineWithNumbersWhereThereAreSome) {
  Readings readings;
  readings.Append({"1"});
  readings.Append({"1,5", "\"\x01", "low"});
  EXPECT_EQ(ReadingText(OutputFormat::kJson, readings.document),
            "{\"run\": 1, \"time\": 59, \"viscosity\": 1.5, \"temperature\": null, "
            "\"date\": \"2026/11/21 09:30:59\", "
            "\"cells\": [\"1\", \"00:00:59\", \"1,5\", \"\\\"\\u0001\", \"low\", \"\"]}\n");
}

}  // namespace
}  // namespace quenlor::app
