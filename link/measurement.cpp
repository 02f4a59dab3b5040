// SPDX-License-Identifier: MIT
#include "link/measurement.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "link/port_settings.h"

namespace quenlor::link {
namespace {

using namespace std::chrono_literals;
namespace setting = data::setting;

constexpr auto kRequestTick = 50ms;
constexpr auto kReplyTimeout = 5000ms;
constexpr double kStopSeconds = 2.0;  // what the instrument needs to take "STOP"
// No window stalls for so long: the clock was set, or the machine has slept.
constexpr double kLongestStallSeconds = 3600.0;
constexpr double kUsualStallSeconds = 1.0;
constexpr std::string_view kStartWord = "QUENLOR";
constexpr std::string_view kStopWord = "STOP";
constexpr std::string_view kAnsweredRequest = "QM";

}  // namespace

Measurement::Measurement(const MeasurementPorts& ports, data::Document& document,
                         const data::SettingsList& settings, const std::string& program_folder)
    : MSComm1_(ports.MSComm1),
      clock_(ports.clock),
      Timer1_(ports.Timer1),
      Timer2_(ports.Timer2),
      loop_(ports.loop),
      document_(document),
      settings_(settings),
      raw_log_(ports.files, ports.clock, document, program_folder,
               [this](const std::string& text) { Tell(text); }),
      reception_(ports.MSComm1, ports.clock, document, settings, raw_log_,
                 {.line_begins = [this] { Timer2_.Enabled(false); },
                  .line_received =
                      [this](const std::string& line) {
                        for (MeasurementListener* listener : listeners_) listener->LineReceived(line);
                      },
                  .error = [this](const std::string& line) { ErrorLine(line); },
                  .runs_used_up =
                      [this] {
                        if (settings_.IsOn(setting::kVisco)) SendCommand(kStopWord);
                        End(Ending::kRunsUsedUp);
                      }}) {
  Timer1_.Interval(kRequestTick);
  Timer2_.Interval(kReplyTimeout);
  Timer1_.OnTimer([this] { Timer1_Timer(); });
  Timer2_.OnTimer([this] { Timer2_Timer(); });
  MSComm1_.OnComm([this](int CommEvent) { OnComm(CommEvent); });
}

Measurement::~Measurement() {
  MSComm1_.OnComm({});
  Timer1_.Enabled(false);
  Timer2_.Enabled(false);
}

void Measurement::StateChanged() {
  for (MeasurementListener* listener : listeners_) listener->StateChanged();
}

void Measurement::Tell(const std::string& text) {
  for (MeasurementListener* listener : listeners_) listener->Told(text);
}

void Measurement::ErrorLine(const std::string& line) {
  for (MeasurementListener* listener : listeners_) listener->ErrorLine(line);
}

std::optional<platform::OpenFailure> Measurement::Start(const data::Progress& progress) {
  if (Running() || stopping_) return {};
  if (auto failure = OpenPort(progress)) return failure;
  document_.BeginMeasurement();
  started_at_ = clock_.Now().seconds;
  measuring_ = true;
  auto_stopping_ = false;

  const bool visco = settings_.IsOn(setting::kVisco);
  const bool repeat = settings_.Index(setting::kRepeat) == 1;
  CommandText = std::string(visco ? kStartWord : std::string_view(command_data_));
  if (visco || repeat) {
    MSComm1_.ClearOutBuffer();
    MSComm1_.Output(CommandText.append(Terminator(settings_)));
  }
  last_tick_ = clock_.Now().seconds;
  set_ahead_ = 0;
  NextRequestTime = last_tick_ + settings_.Number(setting::kRepeatSeconds);
  UpdateRepeatTimer();
  Timer2_.Enabled(false);
  for (MeasurementListener* listener : listeners_) listener->Started();
  TakeWaiting();
  return {};
}

std::optional<double> Measurement::NextRequestAt() const {
  if (!Timer1_.Enabled()) return std::nullopt;
  return NextRequestTime;
}

std::optional<platform::OpenFailure> Measurement::OpenPort(const data::Progress& progress) {
  reception_.Begin();
  const auto port = ApplyPortSettings(settings_);
  if (!port) return platform::OpenFailure{"", "a choice of the RS-232C menu is missing", ""};
  if (auto failure = MSComm1_.Open(port->CommPort, port->Settings)) return failure;
  StateChanged();
  loop_.Paint();
  MSComm1_.RTSEnable(true);
  opening_log_ = true;
  const auto failed = raw_log_.RewriteRawLog(port->CommPort, progress);
  opening_log_ = false;
  if (failed) {
    ClosePort();
    return platform::OpenFailure{"", failed->text, ""};
  }
  if (Running()) return {};
  raw_log_.Close();
  return platform::OpenFailure{"", "the device has gone", ""};
}

// What arrived before a timer, a click or the end got its turn came first. While the raw log is written there
// is none yet that a reading could be added to.
void Measurement::TakeWaiting() {
  if (!opening_log_) reception_.TakeWaiting();
}

void Measurement::Stop(Ending why) {
  if (!Running() || stopping_) return;
  TakeWaiting();
  if (!Running()) return;
  Timer2_.Enabled(false);
  if (settings_.IsOn(setting::kVisco)) {
    CommandText = kStopWord;
    SendCommand(CommandText);
    stopping_ = true;
    StateChanged();
    WaitSeconds(kStopSeconds);
    TakeWaiting();
    stopping_ = false;
  }
  End(why);
}

void Measurement::StopWithoutWait() {
  TakeWaiting();
  if (!Running()) return;
  if (settings_.IsOn(setting::kVisco)) SendCommand(kStopWord);
  End(Ending::kByHand);
}

// The port may be closed already, when its device has gone; the rest of a measurement ends all the same.
void Measurement::ClosePort() {
  if (Running()) {
    MSComm1_.RTSEnable(false);
    MSComm1_.Close();
  }
  MSComm1_.ClearInBuffer();
  raw_log_.Close();
  UpdateRepeatTimer();
  Timer2_.Enabled(false);
  StateChanged();
}

// However many roads lead to one end, it is told once, with the first reason.
void Measurement::End(Ending why) {
  ClosePort();
  if (!std::exchange(measuring_, false)) return;
  for (MeasurementListener* listener : listeners_) listener->Ended(why);
}

void Measurement::UpdateRepeatTimer() {
  Timer1_.Enabled(settings_.Index(setting::kRepeat) == 1 && Running());
}

void Measurement::RepeatChanged() {
  if (settings_.Index(setting::kRepeat) == 1) NextRequestTime = last_tick_ = clock_.Now().seconds;
  UpdateRepeatTimer();
}

void Measurement::SetCommandData(std::string text) {
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  command_data_ = std::move(text);
}

void Measurement::SendCommand(std::string_view text) {
  if (!Running()) return;
  MSComm1_.ClearOutBuffer();
  MSComm1_.Output(std::string(text).append(Terminator(settings_)));
  if (text.starts_with(kAnsweredRequest) && document_.StartTime() != 0) ArmTimer2();
}

// An answer that is owed already stays owed from the first request on.
void Measurement::ArmTimer2() {
  Timer2_.Interval(kReplyTimeout);
  Timer2_.Enabled(true);
}

void Measurement::Timer1_Timer() {
  TakeWaiting();
  const double now = clock_.Now().seconds;
  FollowClock(now);
  if (!Running() || now < NextRequestTime) return;
  if (AutoStopDue(now)) {
    CommandText = kStopWord;
    SendCommand(CommandText);
    ArmTimer2();
    auto_stopping_ = true;
  } else {
    auto_stopping_ = false;
    CommandText = command_data_;
    SendCommand(CommandText);
  }
  // The next moment of the grid, not an interval from now: requests never drift.
  NextRequestTime += settings_.Number(setting::kRepeatSeconds);
}

// A clock that is set takes along what is waited for: nothing waits for a time that went away, and no request
// makes up for a time that never was. After a mere stall requests do follow each other.
void Measurement::FollowClock(double now) {
  const double gone = now - std::exchange(last_tick_, now);
  if (gone >= 0 && gone <= kUsualStallSeconds) return;
  const bool was_set = gone < 0 || gone >= kLongestStallSeconds;
  NextRequestTime += was_set ? gone : std::clamp(-set_ahead_, 0.0, gone);
  if (document_.StartTime() != 0) set_ahead_ += gone;
}

// One second before the full minutes, so that the last reading still falls within them.
bool Measurement::AutoStopDue(double now) const {
  const double minutes = settings_.Number(setting::kAutoStopMinutes);
  return document_.StartTime() != 0 && minutes > 0 && settings_.Index(setting::kRepeat) == 1 &&
         settings_.Index(setting::kAutoStop) == 1 &&
         now - std::min(set_ahead_, 0.0) >= document_.StartTime() + minutes * 60 - 1;
}

void Measurement::Timer2_Timer() {
  TakeWaiting();
  if (!Timer2_.Enabled()) return;  // the answer was there
  Timer2_.Enabled(false);
  if (Running()) End(auto_stopping_ ? Ending::kAutoStop : Ending::kNoReply);
}

void Measurement::OnComm(int CommEvent) {
  if (opening_log_ && CommEvent == platform::comm_event::kReceive) return;
  reception_.MSComm1_OnComm(CommEvent);
  if (CommEvent != platform::comm_event::kPortGone) return;
  TakeWaiting();
  End(Ending::kDeviceGone);
}

}  // namespace quenlor::link
