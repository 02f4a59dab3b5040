// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace quenlor::bench {

// The seconds that `work` takes.
template <class Work>
double Seconds(const Work& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// A piece of our work and the baseline that it is judged by. Each function does its work once and tells the
// seconds of it; what it has to prepare or to clear away before and after is not counted.
struct Pair {
  std::function<double()> ours;
  std::function<double()> baseline;
};

// How a row of the table reads.
enum class Shown {
  Time,       // seconds of each; ratio: ours to the baseline's
  TimesFast,  // seconds of each; ratio: how many times faster ours is
  Rate,       // things a second; ratio: our rate to the baseline's
};

struct Row {
  std::string work;
  std::string goal;
  int repetitions = 9;
  Shown shown = Shown::Time;
  std::int64_t things = 1;  // how many of what is counted are done in one go
};

// Adds a row to the table; `prepare` is called when its turn has come.
//
// Machines drift by half within minutes. So both sides are measured in turn, again and again, and the row
// shows medians: of our times, of the baseline's, and of the ratios within each repetition.
void AddRow(const Row& row, const std::function<Pair()>& prepare);

// The rows of each subject.
void AddOpenRows();
void AddSaveRows();
void AddReceiveRows();
void AddRedrawRows();
void AddReadoutRows();
void AddNewestReadingRows();

// Measures the rows and prints each as a line, its parts divided by "|". What is left of the arguments are
// Google Benchmark's own, such as --benchmark_filter.
int MeasureRows(int argc, char** argv);

}  // namespace quenlor::bench
