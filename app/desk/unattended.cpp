// SPDX-License-Identifier: MIT
#include "app/desk/unattended.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "app/desk/document_commands.h"
#include "app/desk/reading_text.h"
#include "data/utf8.h"
#include "link/command_list.h"

namespace quenlor::app {
namespace {

constexpr double kLookSeconds = 1;   // between two looks for a device that went away
constexpr double kLongestWait = 60;  // so that a clock that was set is noticed
constexpr std::size_t kSensibleSettings = 65536;

}  // namespace

Unattended::Unattended(UnattendedOrder order, const UnattendedPorts& ports)
    : order_(std::move(order)),
      ports_(ports),
      read_only_(ports.measurement.files),
      session_(read_only_, ports.place, ports.system_writes_comma),
      measurement_(ports_.measurement, session_.Document(), session_.List(), ports.place.folder),
      status_(session_, measurement_, ports_.measurement.clock, ports.name_of_port) {
  measurement_.AddListener(*this);
  session_.Document().AddListener(*this);
  ports_.turn.OnTimer([this] { Turn(); });
}

Unattended::~Unattended() {
  ports_.turn.Enabled(false);
  ports_.turn.OnTimer({});
  measurement_.RemoveListener(*this);
  session_.Document().RemoveListener(*this);
}

// The time stands before every line, so that a log of a weekend can be read on Monday.
void Unattended::Fail(const std::string& text) const {
  ports_.complain(data::DateTimeText(ports_.measurement.clock.Now().local_second) + ' ' + text);
}

void Unattended::Say(const std::string& text) const {
  if (!order_.options.quiet) Fail(text);
}

void Unattended::Begin(std::function<void(ExitStatus)> ended) {
  ended_ = std::move(ended);
  const std::string wrong = WrongSettings();
  if (!wrong.empty()) {
    ports_.complain(wrong);
    exit_ = ExitStatus::kWrongUsage;
  } else if (const auto failed = ports_.why_not_written(order_.output)) {
    ports_.complain(failed->text);
    exit_ = ExitStatus::kCannotWrite;
  }
  if (exit_ != ExitStatus::kDone) return EndWith(exit_);
  output_was_there_ = ports_.measurement.files.Exists(order_.output);

  const auto commands = link::LoadCommandList({read_only_, session_.File("Command_V.txt")});
  const auto& entries = commands.Entries();
  const std::string last = entries.empty() ? std::string() : entries.back();
  measurement_.SetCommandData(commands.BytesOf(order_.options.command.value_or(last)));
  session_.New();
  StartRun();
}

// The settings as they hold for this call; what is wrong with them.
std::string Unattended::WrongSettings() {
  const std::string& other = order_.options.settings_file;
  auto text = read_only_.Read(other.empty() ? session_.File(session_.SettingsName()) : other);
  // Settings that are there and cannot be read are not the defaults.
  if (!text.ok() && !(other.empty() && NotFound(text))) return text.failure().text;
  if (!other.empty()) {
    text.value().resize(std::min(text.value().size(), kSensibleSettings));
    session_.List().Parse(data::ToUtf8(std::move(text.value())), ports_.system_writes_comma);
  }
  return ApplyMeasureOptions(order_.options, session_.List());
}

void Unattended::StartRun() {
  readings_ = 0;
  run_began_ = Now();
  StartAgain();
}

// The port is opened for the first time, for the next run, or since its device may be there again.
void Unattended::StartAgain() {
  why_stop_.clear();
  const auto failure = measurement_.Start();
  if (!failure) return;
  const bool waits = order_.options.wait_on_loss && saves_;
  const std::string said_before = status_.Said();
  status_.StartRefused(*failure);
  if (!waits) {
    Fail(status_.Said());
    return EndWith(ExitStatus::kCannotOpen);
  }
  if (status_.Said() != said_before) Say("Waiting for the port: " + status_.Said());
  phase_ = Phase::kDeviceAway;
  due_ = Now() + kLookSeconds;
  AskForTurn();
}

void Unattended::Started() {
  phase_ = Phase::kMeasuring;
  saves_ = true;
  const StatusFields fields = status_.Fields();
  Say(fields.state + ": " + fields.port);
  AskForTurn();
}

void Unattended::ReadingAppended(Row /*row*/) {
  ++readings_;
  if (!output_failed_) {
    if (const auto failed = ports_.write_standard_output(ReadingText(order_.format, session_.Document()))) {
      // Whoever listened is gone; the readings still reach the disk.
      output_failed_ = true;
      Fail(failed->text);
    }
  }
  if (order_.options.readings && readings_ == *order_.options.readings)
    StopRun(CountText(readings_, "reading", "readings"));
}

void Unattended::Stop(const std::string& why) {
  stop_all_ = true;
  StopRun(why);
}

// Only notes it: a line is perhaps being taken.
void Unattended::StopRun(const std::string& why) {
  if (phase_ == Phase::kEnding || phase_ == Phase::kEnded) return;
  if (!why_stop_.empty()) return;
  Say("Stopping: " + why);
  why_stop_ = why;
  AskForTurn(0);
}

bool Unattended::MinutesAreOver() const {
  return order_.options.minutes && Now() >= run_began_ + *order_.options.minutes * 60;
}

// What comes next by itself.
void Unattended::AskForTurn() {
  if (!why_stop_.empty() || phase_ == Phase::kEnding) return AskForTurn(0);
  double next = kLongestWait;
  if (phase_ != Phase::kMeasuring) next = std::min(next, due_ - Now());
  if (phase_ != Phase::kPause && order_.options.minutes)
    next = std::min(next, run_began_ + *order_.options.minutes * 60 - Now());
  if (phase_ == Phase::kMeasuring && !order_.options.minutes) return;
  AskForTurn(next);
}

void Unattended::AskForTurn(double seconds) {
  const double milliseconds = std::ceil(std::clamp(seconds, 0.0, kLongestWait) * 1000);
  ports_.turn.Enabled(false);
  ports_.turn.Interval(std::chrono::milliseconds(std::max<std::int64_t>(1, std::llround(milliseconds))));
  ports_.turn.Enabled(true);
}

void Unattended::Turn() {
  ports_.turn.Enabled(false);
  if (phase_ == Phase::kEnded) return;
  if (phase_ == Phase::kEnding) {
    Save();
    phase_ = Phase::kEnded;
    if (ended_) std::exchange(ended_, {})(exit_);
    return;
  }
  if (why_stop_.empty() && phase_ != Phase::kPause && MinutesAreOver())
    return StopRun(data::GeneralText(*order_.options.minutes) + " min are over");
  if (!why_stop_.empty()) {
    if (phase_ == Phase::kMeasuring) return measurement_.Stop(link::Ending::kAsAsked);
    return RunIsDone();
  }
  const bool due = phase_ != Phase::kMeasuring && Now() >= due_;
  if (due && phase_ == Phase::kPause) return StartRun();
  if (due) return StartAgain();
  AskForTurn();
}

void Unattended::Ended(link::Ending why) {
  Say(status_.LastEnd());
  if (!why_stop_.empty() || why == link::Ending::kAsAsked || why == link::Ending::kAutoStop)
    return RunIsDone();
  if (why == link::Ending::kDeviceGone && order_.options.wait_on_loss) {
    phase_ = Phase::kDeviceAway;
    due_ = Now() + kLookSeconds;
    return AskForTurn();
  }
  EndWith(ExitStatus::kMeasurementLost);
}

void Unattended::RunIsDone() {
  ++runs_done_;
  why_stop_.clear();
  if (stop_all_ || runs_done_ >= order_.options.runs) return EndWith(ExitStatus::kDone);
  phase_ = Phase::kPause;
  due_ = Now() + order_.options.pause;
  if (order_.options.pause > 0) Say("Pausing for " + data::GeneralText(order_.options.pause) + " s");
  AskForTurn();
}

void Unattended::EndWith(ExitStatus status) {
  exit_ = status;
  phase_ = Phase::kEnding;
  AskForTurn(0);
}

void Unattended::Save() {
  if (!saves_) return;
  const std::string path = FreePath();
  data::Document& document = session_.Document();
  if (const auto failed = session_.SaveOn(ports_.measurement.files, path)) {
    Fail(failed->text + "; the readings are in " + measurement_.RawLogPath());
    exit_ = ExitStatus::kCannotWrite;
    return;
  }
  const data::Document::Row readings = document.UnsavedReadings();
  document.Saved(NameWithoutFolder(path));
  Say(SavedText(path, document));
  if (readings == 0) Fail("No reading has come");
  if (output_failed_ && exit_ == ExitStatus::kDone) exit_ = ExitStatus::kCannotWrite;
}

// What has come to stand there meanwhile is somebody's readings. What was there before is no file to lose.
std::string Unattended::FreePath() const {
  const std::string& asked = order_.output;
  if (output_was_there_) return asked;
  const std::size_t name = FolderOf(asked) == "." ? 0 : FolderOf(asked).size();
  const std::size_t dot = std::max(asked.rfind('.') + 1, name + 1) - 1;
  const std::size_t ending = dot > name ? dot : asked.size();
  std::string path = asked;
  for (int n = 2; ports_.measurement.files.Exists(path); ++n)
    path = asked.substr(0, ending) + "-" + std::to_string(n) + asked.substr(ending);
  return path;
}

}  // namespace quenlor::app
