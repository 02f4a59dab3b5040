// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/desk/exit_status.h"
#include "app/desk/measure_options.h"
#include "app/desk/read_only_files.h"
#include "app/desk/session.h"
#include "app/desk/status.h"
#include "link/measurement.h"

namespace quenlor::app {

// What is asked for: where the readings go, in which form they are told meanwhile, and the rest.
struct UnattendedOrder {
  std::string output;
  OutputFormat format = OutputFormat::kText;
  MeasureOptions options;
};

// What a measurement without a window stands on.
struct UnattendedPorts {
  link::MeasurementPorts measurement;
  platform::Timer& turn;  // for what cannot be done while the line is being told of, or has its time
  Session::Place place;   // settings and commands are read there, and stay as they are; raw logs are kept
  bool system_writes_comma = false;
  std::function<std::string(int port)> name_of_port;
  // Looked at before all begins: no folder for it, or readings there that would be lost.
  std::function<platform::Done(const std::string& path)> why_not_written;
  std::function<platform::Done(std::string_view)> write_standard_output;
  std::function<void(const std::string&)> complain;  // a line on standard error
};

// Measures without a window: the runs that were asked for in one document, each reading told as it comes, and
// the data file at the end, whatever that was.
//
// The end of a run is found while its readings come, and done in a turn of its own, so that "STOP" has its
// two seconds in which lines are still taken. A device that went away is waited for if that was asked for;
// the measurement then goes on as a new run of the document.
class Unattended : private link::MeasurementListener, private data::DocumentListener {
 public:
  Unattended(UnattendedOrder order, const UnattendedPorts& ports);
  ~Unattended() override;
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;

  // Reads what there is and starts; `ended` is called once, in a turn or from here, with all written.
  void Begin(std::function<void(ExitStatus)> ended);

  // Ends everything as the Stop button would; `why` is told ("interrupted").
  void Stop(const std::string& why);

  const data::Document& Document() const { return session_.Document(); }

 private:
  enum class Phase { kMeasuring, kPause, kDeviceAway, kEnding, kEnded };

  std::string WrongSettings();
  void StartRun();
  void StartAgain();
  void StopRun(const std::string& why);
  void RunIsDone();
  void Turn();
  void AskForTurn(double seconds);
  void AskForTurn();
  bool MinutesAreOver() const;
  void EndWith(ExitStatus status);
  void Save();
  std::string FreePath() const;
  void Say(const std::string& text) const;
  void Fail(const std::string& text) const;
  double Now() const { return ports_.measurement.clock.Now().seconds; }

  void Started() override;
  void Ended(link::Ending why) override;
  void ErrorLine(const std::string& line) override { Say(line); }
  void Told(const std::string& text) override { Fail(text); }
  void ReadingAppended(Row row) override;

  const UnattendedOrder order_;
  const UnattendedPorts ports_;
  ReadOnlyFiles read_only_;
  Session session_;
  link::Measurement measurement_;
  Status status_;
  std::function<void(ExitStatus)> ended_;
  Phase phase_ = Phase::kPause;
  ExitStatus exit_ = ExitStatus::kDone;
  std::string why_stop_;        // of this run; empty while it goes on
  bool stop_all_ = false;       // no other run follows
  bool output_failed_ = false;  // standard output takes no more
  bool saves_ = false;          // there was a measurement
  bool output_was_there_ = false;
  int runs_done_ = 0;
  std::int64_t readings_ = 0;  // of this run, also where it was interrupted
  double run_began_ = 0;
  double due_ = 0;  // the end of a pause, or the next look for the device
};

}  // namespace quenlor::app
