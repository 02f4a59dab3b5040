// SPDX-License-Identifier: MIT
#include "instrument/viscometer.h"

#include <algorithm>
#include <utility>

#include "instrument/reading_line.h"

namespace quenlor::instrument {
namespace {

constexpr char kCarriageReturn = '\r';
constexpr char kLineFeed = '\n';
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kAck = "\x06";

constexpr std::size_t kLongestCommand = 256;   // far beyond any command; the rest of a longer one is lost
constexpr std::size_t kMostPolls = 4096;       // waiting for an answer; more than these are lost
constexpr int kMostReadings = 8192;            // made at a time, sent or not
constexpr std::size_t kOutputLimit = 65536;    // nothing is made while that much waits to be taken
constexpr std::size_t kFullSpeedLimit = 4096;  // about what a serial driver holds: 200 lines a turn
constexpr double kFullSpeedStep = 1;           // seconds of the curves a reading at interval 0

bool Every(std::int64_t n, std::int64_t number) { return n > 0 && number % n == 0; }

}  // namespace

Viscometer::Viscometer(const ViscometerOptions& options)
    : options_(options), noise_(options.seed), fault_noise_(options.seed + 1) {}

void Viscometer::Receive(std::string_view bytes, double now_seconds) {
  now_ = now_seconds;
  for (const char c : bytes) {
    if (c == kCarriageReturn) {
      // At interval 0 a reading is due when the host takes it, not before.
      if (!FullSpeed()) Advance();
      Obey(std::exchange(command_, {}));
    } else if (c != kLineFeed && command_.size() < kLongestCommand) {
      command_ += c;
    }
  }
}

std::string Viscometer::Emit(double now_seconds) {
  now_ = now_seconds;
  Advance();
  return std::exchange(output_, {});
}

std::optional<double> Viscometer::NextDue() const {
  if (!output_.empty()) return now_;
  return ReadingDue();
}

void Viscometer::Obey(std::string_view command) {
  if (dropped_) return;
  if (command == "QUENLOR" || command == "START") {
    BeginRun(Mode::kStreaming);
  } else if (command == "Q" || command == "QM") {
    TakePoll();
  } else if (command == "STOP") {
    mode_ = Mode::kStopped;
    polls_.clear();
  } else if (!command.empty() && options_.faults.babble && !Mute() && output_.size() < kOutputLimit) {
    output_ += GarbageText();
    output_ += kLineEnd;
  }
}

void Viscometer::BeginRun(Mode mode) {
  mode_ = mode;
  run_start_ = now_;
  number_ = 0;
  polls_.clear();
}

void Viscometer::TakePoll() {
  switch (mode_) {
    case Mode::kStopped:
      if (!options_.polls_after_stop) return;
      [[fallthrough]];
    case Mode::kUntouched:
      BeginRun(Mode::kPolled);
      break;
    case Mode::kStreaming:
    case Mode::kPolled:
      mode_ = Mode::kPolled;
  }
  if (!Mute() && polls_.size() < kMostPolls) polls_.push_back(now_);
}

void Viscometer::Advance() {
  const std::size_t limit = FullSpeed() ? kFullSpeedLimit : kOutputLimit;
  for (int made = 0; made < kMostReadings && output_.size() < limit; ++made) {
    const auto due = ReadingDue();
    if (!due || *due > now_) return;
    if (polls_.empty()) {
      AddReading(StreamSeconds());
    } else {
      AddReading(polls_.front() - run_start_);
      polls_.pop_front();
    }
  }
}

// Nothing will be said, whatever is asked.
bool Viscometer::Mute() const {
  const auto& silence_after = options_.faults.silence_after;
  return dropped_ || (silence_after && number_ >= *silence_after);
}

bool Viscometer::FullSpeed() const { return mode_ == Mode::kStreaming && options_.interval == 0; }

std::optional<double> Viscometer::ReadingDue() const {
  if (Mute()) return std::nullopt;
  if (!polls_.empty()) return polls_.front() + options_.faults.late_seconds;
  if (mode_ != Mode::kStreaming || (options_.count > 0 && number_ >= options_.count)) return std::nullopt;
  return run_start_ + (FullSpeed() ? 0 : StreamSeconds()) + options_.faults.late_seconds;
}

// When in the run the next streamed reading is taken. Counted from the start each time, so that the grid
// cannot drift.
double Viscometer::StreamSeconds() const {
  if (FullSpeed()) return static_cast<double>(number_ + 1) * kFullSpeedStep;
  const std::int64_t intervals = number_ / options_.faults.burst + 1;
  return static_cast<double>(intervals) * options_.interval;
}

void Viscometer::AddReading(double run_seconds) {
  const Faults& faults = options_.faults;
  ++number_;
  std::string text = ReadingText(run_seconds);  // made in any case, so that a fault does not shift the noise
  if (number_ == faults.hang_up_after) dropped_ = true;
  if (Every(faults.missing_every, number_)) return;

  if (Every(faults.garbage_every, number_)) text = GarbageText();
  const bool half = Every(faults.half_every, number_);
  if (half) text.resize(text.size() / 2);
  const bool endless = faults.endless_from > 0 && number_ >= faults.endless_from;

  if (faults.ack != Ack::kNone) output_ += kAck;
  if (faults.ack == Ack::kOwnLine && !endless) output_ += kLineEnd;
  output_ += text;
  if (!half && !endless) output_ += kLineEnd;
}

std::string Viscometer::ReadingText(double run_seconds) {
  // Two statements: the order in which arguments are made is not fixed, and the noise must be.
  const double viscosity =
      ValueAt(options_.viscosity, run_seconds) + options_.viscosity_noise * noise_.Normal();
  const double temperature =
      ValueAt(options_.temperature, run_seconds) + options_.temperature_noise * noise_.Normal();
  return ReadingLine(options_.form, number_, viscosity, temperature);
}

// Random bytes with everything that upsets a reader, a NUL and one beyond ASCII among them, but
// no carriage return.
std::string Viscometer::GarbageText() {
  std::string text(static_cast<std::size_t>(4 + fault_noise_.Below(29)), ' ');
  for (char& c : text) {
    do {
      c = static_cast<char>(fault_noise_.Below(256));
    } while (c == kCarriageReturn);
  }
  text[1] = '\0';
  text[2] = static_cast<char>(128 + fault_noise_.Below(128));
  return text;
}

}  // namespace quenlor::instrument
