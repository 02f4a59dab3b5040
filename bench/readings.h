// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quenlor::bench {

// The readings of a long measurement: a viscosity that drifts, a temperature that is held, noise on both, one
// reading a second. The same ones every time.
class ReadingSource {
 public:
  struct Reading {
    double seconds = 0;  // since the run began
    double visco = 0;
    double temp = 0;
  };

  // A temperature so noisy that it crosses the graph from reading to reading, instead of one that is held.
  explicit ReadingSource(bool noisy_temp = false) : temp_noise_(noisy_temp ? 20 : 0.05) {}

  Reading Next();

 private:
  double Noise();  // -1 to 1

  double temp_noise_;
  double seconds_ = 0;
  std::uint64_t random_ = 20240315;
};

// The instrument's line of a reading: viscosity, unit, temperature, unit, without its end.
void AppendInstrumentLine(const ReadingSource::Reading& reading, std::string& text);

// The same as a line of a data file, without its end.
void AppendFileLine(int run, const ReadingSource::Reading& reading, std::string& text);

// A data file: the title row and so many readings of about 32 bytes, divided evenly among the runs; every run
// begins at time 0.
std::string DataFileText(std::int64_t readings, int runs = 1, bool noisy_temp = false);

}  // namespace quenlor::bench
