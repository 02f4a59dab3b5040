// SPDX-License-Identifier: MIT
#include "app/desk/status.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/text_number.h"
#include "link/port_settings.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

constexpr double kSaidSeconds = 8;     // that a text is to be seen beside a measurement that waits
constexpr double kSilenceSeconds = 5;  // after which what helps is told
constexpr std::string_view kDivider = " · ";

std::string Seconds(double seconds) {
  seconds = std::max(seconds, 0.0);
  if (seconds >= 9.95) return data::GeneralText(std::round(seconds)) + " s";
  const std::string tenths = data::GeneralText(std::round(seconds * 10) / 10);
  return (tenths.find('.') == std::string::npos ? tenths + ".0" : tenths) + " s";
}

void Add(std::string& text, std::string_view part) {
  if (part.empty()) return;
  if (!text.empty()) text += kDivider;
  text += part;
}

// "2400E71" as it is read: "2400 E71".
std::string LineText(const std::string& settings) {
  const auto letter = std::ranges::find_if_not(settings, data::IsDigit);
  return std::string(settings.begin(), letter) + ' ' + std::string(letter, settings.end());
}

}  // namespace

std::string_view ShortDeviceName(std::string_view device) {
  const std::size_t slash = device.rfind('/');
  if (slash == device.npos || slash == 0) return device;
  const bool only_a_number = std::ranges::all_of(device.substr(slash + 1), data::IsDigit);
  return device.substr((only_a_number ? device.rfind('/', slash - 1) : slash) + 1);
}

Status::Status(Session& session, link::Measurement& measurement, const platform::Clock& clock,
               std::function<std::string(int)> name_of_port)
    : session_(session), measurement_(measurement), clock_(clock), name_of_port_(std::move(name_of_port)) {
  session_.Document().AddListener(*this);
  measurement_.AddListener(*this);
}

Status::~Status() {
  session_.Document().RemoveListener(*this);
  measurement_.RemoveListener(*this);
}

void Status::Say(std::string text) {
  said_ = std::move(text);
  said_at_ = Now();
  Changed();
}

StatusFields Status::Fields() const {
  const double now = Now();
  StatusFields fields;
  const bool running = measurement_.Running();
  fields.message = said_;
  if (running && (said_.empty() || std::fabs(now - said_at_) > kSaidSeconds)) fields.message = WaitsFor(now);
  fields.state = measurement_.Stopping() ? "Stopping"
                 : running               ? "Measuring"
                 : end_.empty()          ? "Stopped"
                                         : end_;
  if (line_errors_ > 0)
    fields.errors = CountText(line_errors_, "line error", "line errors") + ", last " + last_error_time_;
  fields.port = PortField();
  if (running) {
    fields.run = RunField();
    fields.ages = AgesField(now);
  }
  fields.document = DocumentField();
  fields.running = running;
  fields.tone = running ? StatusFields::Tone::kRunning : StatusFields::Tone::kIdle;
  if (line_errors_ > 0 || !log_trouble_.empty()) fields.tone = StatusFields::Tone::kWarning;
  return fields;
}

// While a measurement runs: what comes next, or what keeps it from coming.
std::string Status::WaitsFor(double now) const {
  if (!log_trouble_.empty()) return log_trouble_;
  const data::SettingsList& list = session_.List();
  const std::string check_line = "check Baud Rate, Parity, Length";
  if (measurement_.LinesReceived() == 0) {
    const double since = now - measurement_.StartedAt();
    if (measurement_.BytesReceived() > 0 || line_damaged_) {
      const auto bytes = static_cast<std::int64_t>(measurement_.BytesReceived());
      return CountText(bytes, "byte", "bytes") + " received, no line end: " + check_line;
    }
    std::string text = "Waiting for the first reading: nothing received for " + Seconds(since);
    if (since >= kSilenceSeconds) {
      text += "; is the instrument on, and is it port " + std::to_string(measurement_.CommPort()) + "?";
    }
    return text;
  }
  if (line_damaged_) return "The line damages characters: " + check_line;
  const bool repeat = list.Index(setting::kRepeat) == 1;
  const double interval = list.Number(setting::kRepeatSeconds);
  const double age = now - session_.Document().LastReadingAt();
  if (repeat && age > std::max(3 * interval, kSilenceSeconds)) {
    return "No reading for " + Seconds(age) + "; is the instrument still on?";
  }
  std::string text = !repeat         ? "Taking what the instrument sends"
                     : interval <= 0 ? "Reading as fast as it goes"
                                     : "Reading every " + data::GeneralText(interval) + " s";
  const double minutes = list.Number(setting::kAutoStopMinutes);
  if (repeat && list.Index(setting::kAutoStop) == 1 && minutes > 0)
    text += ", Auto Stop at " + data::SecondsToTime(minutes * 60);
  return text;
}

std::string Status::DeviceText(int port) const {
  const std::string device = name_of_port_(port);
  return device.empty() ? "(no device)" : std::string(ShortDeviceName(device));
}

std::string Status::PortField() const {
  const auto chosen = link::ApplyPortSettings(session_.List());
  if (!chosen) return "A choice of the RS-232C menu is missing";
  const auto term = static_cast<std::size_t>(session_.List().Index(setting::kTerm));
  std::string text = "Port " + std::to_string(chosen->CommPort) + ' ' + DeviceText(chosen->CommPort);
  Add(text, LineText(chosen->Settings) + ' ' + std::string(link::Term[term]));
  return text;
}

std::string Status::RunField() const {
  const data::Document& document = session_.Document();
  if (document.StartTime() == 0) return {};
  std::string text = "Run " + std::to_string(document.RunCount());
  Add(text, CountText(readings_, "reading", "readings"));
  Add(text, document.Grid4().TextMatrix(document.RunCount(), 2));
  return text;
}

std::string Status::AgesField(double now) const {
  std::string text;
  if (session_.Document().StartTime() != 0)
    text = "last " + Seconds(now - session_.Document().LastReadingAt());
  if (const auto next = measurement_.NextRequestAt()) {
    // A second that has begun counts, as on a clock that is counted down.
    Add(text, "next in " + data::GeneralText(std::max(std::ceil(*next - now), 0.0)) + " s");
  }
  return text;
}

std::string Status::DocumentField() const {
  const data::Document& document = session_.Document();
  std::string text = document.FileName();
  if (document.UnsavedReadings() > 0) {
    Add(text, CountText(document.UnsavedReadings(), "unsaved reading", "unsaved readings"));
  } else if (document.EditedSinceSave()) {
    Add(text, "edited since saved");
  }
  Add(text, graph::HolesTold(session_.Graph().Missing().Holes()));
  return text;
}

std::string Status::DevicesThere() const {
  std::string text;
  constexpr int kMostTold = 4;
  int told = 0;
  for (int port = 1; port <= link::PortCount(session_.List()) && told < kMostTold; ++port) {
    const std::string device = name_of_port_(port);
    if (device.empty()) continue;
    text += (told++ == 0 ? "" : ", ") + std::to_string(port) + " is " + std::string(ShortDeviceName(device));
  }
  return text.empty() ? "no serial device is there" : text;
}

void Status::StartRefused(const platform::OpenFailure& failure) {
  const auto chosen = link::ApplyPortSettings(session_.List());
  std::string text = failure.Text();
  if (chosen && name_of_port_(chosen->CommPort).empty()) {
    text = "Port " + std::to_string(chosen->CommPort) + ": " + text + "; " + DevicesThere();
  }
  Say(std::move(text));
}

void Status::Started() {
  said_.clear();
  end_.clear();
  end_sentence_.clear();
  log_trouble_.clear();
  line_errors_ = 0;
  line_damaged_ = false;
  readings_ = 0;
  Changed();
}

void Status::Ended(link::Ending why) {
  const std::string time = ClockTime();
  const auto ended = [&](const std::string& field, const std::string& reason) {
    end_ = field + ' ' + time;
    end_sentence_ = "The measurement has ended at " + time + ": " + reason;
  };
  switch (why) {
    case link::Ending::kByHand:
      ended("Stopped by hand", "stopped by hand");
      break;
    case link::Ending::kAsAsked:
      ended("Ended", "as asked");
      break;
    case link::Ending::kNoReply:
      ended("No reply", "no reply to QM for 5 s");
      break;
    case link::Ending::kAutoStop:
      ended("Auto Stop", "Auto Stop after " + session_.List()[setting::kAutoStopMinutes] + " min");
      break;
    case link::Ending::kDeviceGone:
      ended("Device gone", "port " + std::to_string(measurement_.CommPort()) + " is gone; " +
                               (log_trouble_.empty()
                                    ? CountText(readings_, "reading is", "readings are") + " safe in " +
                                          measurement_.RawLogPath()
                                    : CountText(readings_, "reading is", "readings are") + " in the table"));
      break;
    case link::Ending::kRunsUsedUp:
      ended("Run numbers used up", "all run numbers, 1 to 32767, are used up");
      break;
  }
  if (!log_trouble_.empty()) end_sentence_ += "; " + log_trouble_;
  Say(end_sentence_);
}

void Status::ErrorLine(const std::string& line) {
  ++line_errors_;
  last_error_time_ = ClockTime();
  const auto is = [&](int event) { return line.ends_with(' ' + std::to_string(event)); };
  if (is(platform::comm_event::kFraming) || is(platform::comm_event::kParity)) line_damaged_ = true;
  Changed();
}

// The measurement tells of its raw log, which stays in view as long as readings are missing there.
void Status::Told(const std::string& text) {
  log_trouble_ = text.starts_with("Raw Log Not") ? text : std::string();
  Say(text);
}

void Status::DocumentReplaced() { Say({}); }

}  // namespace quenlor::app
