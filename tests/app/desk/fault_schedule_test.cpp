// SPDX-License-Identifier: MIT
// Every operation on a file fails once, in every way and at every moment of what an operator does, and the
// disk stays broken from then on, too. Afterwards no reading is lost, every file is the old or the new one,
// and the operator knows.

#include <algorithm>
#include <array>
#include <iostream>
#include <set>

#include <gtest/gtest.h>

#include "app/desk/status.h"
#include "tests/app/desk/desk_bench.h"
#include "tests/app/desk/faulty_files.h"

namespace quenlor::app {
namespace {

using platform::Answer;
using platform::FailureKind;

const Fault kFaults[] = {
    {"full", {"No space left on device", FailureKind::kFull}},
    {"full for good", {"No space left on device", FailureKind::kFull}, Fault::Effect::kNothing, true},
    {"forbidden", {"Permission denied", FailureKind::kPermission}},
    {"forbidden for good", {"Permission denied", FailureKind::kPermission}, Fault::Effect::kNothing, true},
    {"too many open files", {"Too many open files"}},
    {"broken", {"Input/output error"}},
    {"broken for good", {"Input/output error"}, Fault::Effect::kNothing, true},
    {"broken after it was done", {"Input/output error"}, Fault::Effect::kAllTheSame},
};

// What is kept for comfort alone, or asked for twice; without it nothing is lost, and no word is said.
bool IsComfort(const std::string& hit) {
  for (const char* name : {"Recent.txt", "Seen.txt", "Saved.txt", "New.txt"}) {
    if (hit.ends_with(name)) return true;
  }
  return hit.starts_with("date ") || hit.starts_with("look at ");
}

// Each reading of the tests is a number of its own, from 7001 on.
std::set<std::string> ReadingsIn(const std::string& text) {
  std::set<std::string> readings;
  for (std::size_t at = text.find("700"); at != text.npos; at = text.find("700", at + 1))
    readings.insert(text.substr(at, 4));
  return readings;
}

struct Desk : DeskBenchOn<FaultyFiles>, private link::MeasurementListener {
  Desk() {
    measurement.AddListener(*this);
    session.OnTrouble([this](const std::string& trouble) { told.push_back(trouble); });
    session.List().Set(data::setting::kVisco, 0);
    session.List().Set(data::setting::kRepeat, 0);
    commands.New();
    said.clear();
  }
  ~Desk() { measurement.RemoveListener(*this); }

  std::set<std::string> OnDisk() const {
    std::set<std::string> readings;
    for (const std::string& path : files.Paths()) readings.merge(ReadingsIn(files.Content(path)));
    return readings;
  }
  std::set<std::string> InTable() const {
    std::string text;
    const data::MeasurementTable& table = session.Document().Grid1();
    for (data::MeasurementTable::Row row = 1; row < table.EntryRow(); ++row) table.AppendLine(row, ',', text);
    return ReadingsIn(text);
  }
  std::set<std::string> Kept() const {
    std::set<std::string> kept = OnDisk();
    kept.merge(InTable());
    return kept;
  }
  void Start() {
    if (const auto failure = measurement.Start()) told.push_back(failure->Text());
  }
  void Line(const std::string& reading) {
    if (measurement.Running()) received.insert(reading);
    MSComm1.Feed(reading + "\r");
    clock.Advance(6);
  }
  void ReadFromDisk(const std::string& reading) {
    files.Put("/data/a.csv", "No.,Time,Viscosity,Temp\r\n1,00.0," + reading + ",25\r\n");
    commands.ReadDataFile("/data/a.csv");
    said.clear();
  }

  std::set<std::string> received;
  std::vector<std::string> told;

 private:
  void Told(const std::string& text) override { told.push_back(text); }
};

struct Scenario {
  const char* name;
  void (*given)(Desk&);
  void (*when)(Desk&);
};

const Scenario kScenarios[] = {
    {"measure", [](Desk&) {},
     [](Desk& desk) {
       desk.Start();
       for (const char* reading : {"7001", "7002", "7003"}) desk.Line(reading);
       desk.measurement.Stop();
     }},
    {"measure again, with readings of somebody else in the raw log",
     [](Desk& desk) {
       desk.Measure({"7001"});
       desk.files.Put("/lab/Com_1.txt", "No.,Time,Viscosity\r\n1,00.0,7005\r\n");
     },
     [](Desk& desk) {
       desk.Start();
       desk.Line("7002");
       desk.measurement.Stop();
     }},
    {"measure while somebody cuts the raw log", [](Desk&) {},
     [](Desk& desk) {
       desk.Start();
       desk.Line("7001");
       if (desk.files.Exists("/lab/Com_1.txt")) desk.files.Put("/lab/Com_1.txt", "No.,Ti");
       desk.Line("7002");
       desk.measurement.Stop();
     }},
    {"save over an older file",
     [](Desk& desk) {
       desk.ReadFromDisk("7001");
       desk.Measure({"7002"});
       desk.dialogs.Path("/data/a.csv");
     },
     [](Desk& desk) { desk.commands.Save(); }},
    {"open", [](Desk& desk) { desk.files.Put("/data/b.csv", "No.,Time,Viscosity\r\n1,00.0,7009\r\n"); },
     [](Desk& desk) { desk.commands.ReadDataFile("/data/b.csv"); }},
    {"choose colours", [](Desk&) {},
     [](Desk& desk) {
       desk.session.SetColors(graph::ColorSettings(graph::kDefaultColors, graph::Scheme::Black));
     }},
    {"choose settings", [](Desk&) {},
     [](Desk& desk) {
       desk.session.List().Set(data::setting::kBPS, 5);
       desk.session.Settings().SaveSettings();
     }},
    {"end, and save",
     [](Desk& desk) {
       desk.Start();
       desk.Line("7001");
       desk.dialogs.Answer(Answer::kYes);
       desk.dialogs.Path("/data/a.csv");
     },
     [](Desk& desk) { desk.commands.ExitProgram(); }},
};

// The contents that a file may have: that before, and that after a run without a fault.
using Contents = std::map<std::string, std::string>;
Contents ContentsOf(const Desk& desk) {
  Contents contents;
  for (const std::string& path : desk.files.Paths()) contents[path] = desk.files.Content(path);
  return contents;
}

void Try(const Scenario& scenario, const Fault& fault, int at, const Contents& whole, bool& reached) {
  Desk desk;
  scenario.given(desk);
  const Contents before = ContentsOf(desk);
  std::set<std::string> readings = desk.Kept();
  desk.told.clear();
  desk.said.clear();
  desk.files.FailAt(at, fault);

  scenario.when(desk);

  reached = !desk.files.Hit().empty();
  const std::vector<std::string> hits = desk.files.Hit();
  desk.files.Heal();
  SCOPED_TRACE(std::string(scenario.name) + ", operation " + std::to_string(at) + " " + fault.name + ": " +
               testing::PrintToString(hits));
  readings.merge(std::set<std::string>(desk.received));
  const std::set<std::string> kept = desk.Kept();
  for (const std::string& reading : readings) EXPECT_TRUE(kept.contains(reading)) << reading << " is lost";
  for (const char* path : {"/lab/quenlor.ini", "/lab/Color.txt", "/data/a.csv"}) {
    const auto old = before.find(path);
    const auto made = whole.find(path);
    const std::string now = desk.files.Content(path);
    EXPECT_TRUE((old != before.end() && now == old->second) || (made != whole.end() && now == made->second) ||
                now.empty())
        << path << " is neither the old nor the new one: " << now;
    EXPECT_FALSE(old != before.end() && now.empty()) << path << " is gone";
  }
  const std::string log = desk.files.Content("/lab/Com_1.txt");
  for (const std::string& reading : desk.received) {
    const std::size_t first = log.find(reading);
    EXPECT_TRUE(first == log.npos || log.find(reading, first + 1) == log.npos) << reading << " stands twice";
  }
  const bool is_told = !desk.told.empty() || std::ranges::any_of(desk.said, [](const auto& text) {
    return text.find("cannot") != text.npos;
  });
  const bool is_to_be_told = !std::ranges::all_of(hits, IsComfort);
  EXPECT_TRUE(is_told || !is_to_be_told) << "nobody was told";

  // A healed disk takes everything again.
  if (desk.measurement.Running()) desk.measurement.Stop();
  desk.Start();
  desk.measurement.Stop();
  const std::set<std::string> disk = desk.OnDisk();
  for (const std::string& reading : desk.received) EXPECT_TRUE(disk.contains(reading)) << reading;
}

TEST(FaultSchedule, NoFailingOperationLosesAReadingOrAFileOrGoesUntold) {
  int points = 0;
  for (const Scenario& scenario : kScenarios) {
    Desk sound;
    scenario.given(sound);
    scenario.when(sound);
    const Contents whole = ContentsOf(sound);
    for (const Fault& fault : kFaults) {
      bool reached = true;
      for (int at = 1; reached; ++at) {
        Try(scenario, fault, at, whole, reached);
        points += reached ? 1 : 0;
      }
    }
  }
  std::cout << points << " points visited\n";
  EXPECT_GT(points, 300);
}

}  // namespace
}  // namespace quenlor::app
