// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/document.h"
#include "data/settings_list.h"
#include "link/raw_log.h"
#include "link/reception.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/file_system.h"
#include "platform/serial_port.h"
#include "platform/timer.h"

namespace quenlor::link {

// What a measurement needs of the machine it runs on.
struct MeasurementPorts {
  platform::SerialPort& MSComm1;
  platform::Clock& clock;
  platform::Timer& Timer1;  // 50 ms: looks for the next repeat request and the auto stop
  platform::Timer& Timer2;  // 5000 ms: the instrument owes an answer
  platform::EventLoop& loop;
  platform::FileSystem& files;
};

// Why a measurement ended.
enum class Ending {
  kByHand,      // Stop, another document, or the end of the program
  kAsAsked,     // by what was asked for at the start, or by a signal
  kNoReply,     // to an answered request
  kAutoStop,    // the set time is over
  kDeviceGone,  // pulled out or switched off
  kRunsUsedUp,  // no run number is left
};

// Told what happens in a measurement.
class MeasurementListener {
 public:
  virtual ~MeasurementListener() = default;
  virtual void Started() {}
  virtual void Ended(Ending /*why*/) {}  // after StateChanged
  virtual void StateChanged() {}         // Running or Stopping is another than before
  virtual void LineReceived(const std::string& /*line*/) {}
  virtual void ErrorLine(const std::string& /*line*/) {}
  virtual void Told(const std::string& /*text*/) {}  // what the operator should know
};

// Runs one measurement after the other: start word, repeat requests, auto stop, reply watchdog, and the end.
//
// A measurement is running exactly while the port is open. Stop takes two seconds with the Visco
// option, in which lines are still received; Stopping tells that this wait is on, and only then do both
// verbs do nothing.
class Measurement {
 public:
  Measurement(const MeasurementPorts& ports, data::Document& document, const data::SettingsList& settings,
              const std::string& program_folder);
  ~Measurement();
  Measurement(const Measurement&) = delete;
  Measurement& operator=(const Measurement&) = delete;

  void AddListener(MeasurementListener& listener) { listeners_.push_back(&listener); }
  void RemoveListener(MeasurementListener& listener) { std::erase(listeners_, &listener); }

  bool Running() const { return MSComm1_.PortOpen(); }
  bool Stopping() const { return stopping_; }
  int CommPort() const { return MSComm1_.CommPort(); }  // of the measurement that runs, or ran last

  // While it runs: how far it has come. Times in the time base of Document::StartTime.
  double StartedAt() const { return started_at_; }
  double LastByteAt() const { return reception_.LastByteAt(); }  // 0 before the first
  std::uint64_t BytesReceived() const { return reception_.BytesReceived(); }
  std::uint64_t LinesReceived() const { return reception_.LinesReceived(); }
  // The next request of Repeat; nothing without it.
  std::optional<double> NextRequestAt() const;
  // Where the readings are on the disk, as they come.
  std::string RawLogPath() const { return raw_log_.Path(CommPort()); }

  // Opens the port of the settings and starts. On failure the measurement is stopped and nothing was sent.
  // `progress` is told while a large raw log is written, and cannot leave it; it may serve events. What
  // arrives meanwhile waits at the port.
  std::optional<platform::OpenFailure> Start(const data::Progress& progress = {});

  // Ends the measurement; with the Visco option "STOP" is sent and the instrument has two seconds to take it.
  void Stop(Ending why = Ending::kByHand);

  // Ends it at once, for the end of the program; "STOP" is still sent with the Visco option.
  void StopWithoutWait();

  // Sends one command line. Nothing while the port is closed.
  void SendCommand(std::string_view text);

  // The command that is sent at Start without the Visco option, and at every repeat request.
  // Line ends that were pasted with it are left away: the terminator is the only one.
  void SetCommandData(std::string text);
  const std::string& CommandData() const { return command_data_; }

  // The Repeat box was clicked; its element of the settings list holds the new value already.
  void RepeatChanged();

  void Timer1_Timer();
  void Timer2_Timer();

 private:
  void StateChanged();
  void ErrorLine(const std::string& line);
  void Tell(const std::string& text);
  void TakeWaiting();
  std::optional<platform::OpenFailure> OpenPort(const data::Progress& progress);
  void ClosePort();
  void End(Ending why);
  void UpdateRepeatTimer();
  void WaitSeconds(double seconds) { loop_.WaitSeconds(seconds); }
  void ArmTimer2();
  void FollowClock(double now);
  bool AutoStopDue(double now) const;
  void OnComm(int CommEvent);

  platform::SerialPort& MSComm1_;
  platform::Clock& clock_;
  platform::Timer& Timer1_;
  platform::Timer& Timer2_;
  platform::EventLoop& loop_;
  data::Document& document_;
  const data::SettingsList& settings_;
  std::vector<MeasurementListener*> listeners_;
  RawLog raw_log_;
  Reception reception_;
  std::string CommandText;
  std::string command_data_;
  double NextRequestTime = 0;  // seconds of the clock's time base
  double last_tick_ = 0;       // when the clock was last looked at for it
  double set_ahead_ = 0;       // by how much the clock was, or back below 0, since the first line
  bool stopping_ = false;
  bool opening_log_ = false;
  bool measuring_ = false;      // from Start to the end that listeners are told of
  bool auto_stopping_ = false;  // "STOP" was sent since the set time is over
  double started_at_ = 0;
};

}  // namespace quenlor::link
