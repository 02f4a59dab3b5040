// SPDX-License-Identifier: MIT
#include "reports/statistics_text.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/utf8.h"
#include "tests/reports/statistics_readings.h"

namespace quenlor::reports {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kFile = "oil.csv";
constexpr std::string_view kDate = "2024/03/05 10:00:00";

std::string Csv(const StatisticsTable& table, std::string_view file = kFile) {
  std::string text;
  AppendCsv({file, kDate, table}, text);
  return text;
}

std::string Json(const StatisticsTable& table, std::string_view file = kFile) {
  const StatisticsSheet sheet{file, kDate, table};
  return JsonText({&sheet, 1});
}

TEST(StatisticsClipboardText, OfThreeColumnsHasTheTitlesBelowTheCaptions) {
  const StatisticsTable table(Readings({}, {"No.", "Time", "Viscosity"}), 2, 3);

  EXPECT_THAT(ClipboardText({kFile, kDate, table}),
              StartsWith("oil.csv\r\n2024/03/05 10:00:00\r\n\tNo.\tTime\tViscosity\r\n"));
}

TEST(StatisticsClipboardText, EveryLineOfTheTableBeginsWithATab) {
  const StatisticsTable table(RunsOf({"1.5", "2,25"}), kVisco, kTemp, ',');

  EXPECT_EQ(ClipboardText({kFile, kDate, table}),
            "oil.csv\r\n"
            "2024/03/05 10:00:00\r\n"
            "\tNo.\tTime\tViscosity\tTemp\r\n"
            "\tNo.\t00:01:00\t1.5\t25.0\r\n"
            "\t1\t00:01:00\t2,25\t25.0\r\n"
            "\tMaximum\t00:01:00\t2,25\t25\r\n"
            "\tMinimum\t00:01:00\t1,5\t25\r\n"
            "\tAverage\t00:01:00\t1,88\t25,0\r\n"
            "\tStd Dev\t00:00:00\t0,53\t0,0\r\n");
}

TEST(StatisticsCsv, IsABlockWithATitleLineAndTheDocumentInFrontOfEveryLine) {
  const StatisticsTable table(RunsOf({"1.5", "2.25"}), kVisco, kTemp);

  EXPECT_EQ(Csv(table),
            "File,Date,No.,Time,Viscosity,Temp\n"
            "oil.csv,2024/03/05 10:00:00,No.,00:01:00,1.5,25.0\n"
            "oil.csv,2024/03/05 10:00:00,1,00:01:00,2.25,25.0\n"
            "oil.csv,2024/03/05 10:00:00,Maximum,00:01:00,2.25,25\n"
            "oil.csv,2024/03/05 10:00:00,Minimum,00:01:00,1.5,25\n"
            "oil.csv,2024/03/05 10:00:00,Average,00:01:00,1.88,25.0\n"
            "oil.csv,2024/03/05 10:00:00,Std Dev,00:00:00,0.53,0.0\n");
}

TEST(StatisticsCsv, FieldsThatWouldBeMisreadAreQuoted) {
  const StatisticsTable table(Readings({{"1", "00:01:00", "2,25", "a \"b\""}}), kVisco, kTemp);

  const std::string text = Csv(table, "a,b\r.csv");

  EXPECT_THAT(text, HasSubstr("\"a,b\r.csv\",2024/03/05 10:00:00,No.,00:01:00,\"2,25\",\"a \"\"b\"\"\"\n"));
}

TEST(StatisticsCsv, BlocksOfSeveralDocumentsFollowOneAnother) {
  const StatisticsTable table(RunsOf({"1.5"}), kVisco, kTemp);
  std::string text;
  AppendCsv({"a.csv", kDate, table}, text);
  AppendCsv({"b.csv", kDate, table}, text);

  EXPECT_EQ(text, Csv(table, "a.csv") + Csv(table, "b.csv"));
}

TEST(StatisticsJson, IsAnArrayOfOneObjectADocument) {
  const StatisticsTable table(RunsOf({"1.5", "2,25"}), kVisco, kTemp);

  EXPECT_EQ(Json(table), R"([
{"file": "oil.csv", "date": "2024/03/05 10:00:00",
 "columns": ["No.", "Time", "Viscosity", "Temp"],
 "runs": [
  {"label": "No.", "cells": ["00:01:00", "1.5", "25.0"]},
  {"label": "1", "cells": ["00:01:00", "2,25", "25.0"]}],
 "statistics": {"time": {"column": 1, "maximum": 60, "minimum": 60, "average": 60, "standard_deviation": 0},
  "viscosity": {"column": 2, "maximum": 2.25, "minimum": 1.5, "average": 1.875, "standard_deviation": 0.5303300858899106},
  "temperature": {"column": 3, "maximum": 25, "minimum": 25, "average": 25, "standard_deviation": 0}}}
]
)");
}

TEST(StatisticsJson, WhatThereIsNoneOfIsNull) {
  EXPECT_THAT(
      Json(StatisticsTable(RunsOf({"1.5"}), kVisco, 9)),
      testing::AllOf(HasSubstr("\"viscosity\": {\"column\": 2, \"maximum\": 1.5, \"minimum\": 1.5, "
                               "\"average\": 1.5, \"standard_deviation\": null}"),
                     HasSubstr("\"temperature\": {\"column\": 9, \"maximum\": null, \"minimum\": null, "
                               "\"average\": null, \"standard_deviation\": null}")));
  EXPECT_THAT(
      Json(StatisticsTable()),
      testing::AllOf(HasSubstr("\"runs\": [],"), HasSubstr("\"time\": {\"column\": 1, \"maximum\": null")));
}

TEST(StatisticsJson, OfNoDocumentsIsAnEmptyArray) { EXPECT_EQ(JsonText({}), "[\n]\n"); }

TEST(StatisticsJson, ObjectsOfSeveralDocumentsAreDividedByCommas) {
  const StatisticsTable table;
  const std::array sheets = {StatisticsSheet{"a", kDate, table}, StatisticsSheet{"b", kDate, table}};

  const std::string json = JsonText(sheets);

  EXPECT_THAT(json, StartsWith("[\n{\"file\": \"a\""));
  EXPECT_THAT(json, HasSubstr("}},\n{\"file\": \"b\""));
}

TEST(StatisticsJson, TextsAreEscaped) {
  const StatisticsTable table(Readings({{"1", "0", "\"\\\t\x01\x1f\x7f/", "20"}}), kVisco, kTemp);

  EXPECT_THAT(Json(table), HasSubstr(R"("\"\\\u0009\u0001\u001f)"
                                     "\x7f/\""));
}

TEST(StatisticsText, ForScriptsIsUtf8WhateverTheFileIsCalled) {
  const StatisticsTable table(RunsOf({"1.5"}), kVisco, kTemp);

  for (const std::string_view name : {"\xE9t\xE9.csv", "\xFF\xFE", "Öl.csv"}) {
    EXPECT_TRUE(data::IsUtf8(Csv(table, name)));
    EXPECT_TRUE(data::IsUtf8(Json(table, name)));
  }
  EXPECT_THAT(Json(table, "\xE9t\xE9.csv"), HasSubstr("\"été.csv\""));
  EXPECT_THAT(Csv(table, "Öl.csv"), HasSubstr("\nÖl.csv,"));
}

}  // namespace
}  // namespace quenlor::reports
