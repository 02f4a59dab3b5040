// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <random>
#include <vector>

#include "data/data_file.h"
#include "tests/graph/plot_readings.h"

namespace quenlor::graph {

// Readings and ranges thrown by dice; equal seeds throw equal ones.

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int Int(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }
  double Real(double low, double high) { return std::uniform_real_distribution(low, high)(engine_); }
  bool Once(int in) { return Int(1, in) == 1; }
  double AnyOf(std::initializer_list<double> values) {
    return values.begin()[Int(0, static_cast<int>(values.size()) - 1)];
  }

 private:
  std::mt19937 engine_;
};

// Values as a laboratory has them, and as it had better not: resting, drifting, noisy, with gaps and spikes.
class Signal {
 public:
  explicit Signal(Dice& dice) : dice_(dice), kind_(dice.Int(0, 6)), value_(dice.Real(0, 100)) {}

  double Next() {
    switch (kind_) {
      case 0:
        break;
      case 1:
        value_ += dice_.Real(-1, 1);
        break;
      case 2:
        return dice_.Real(0, 100);
      case 3:
        if (dice_.Once(40)) value_ = dice_.Real(-50, 150);
        return value_ + dice_.Real(-0.5, 0.5);
      case 4:
        if (dice_.Once(30)) return dice_.AnyOf({1e308, -1e308, 0, -5, 1e-9, 1e9, 1e-300});
        return std::exp(dice_.Real(-5, 8));
      case 5:
        return 50 + 45 * std::sin(value_ += 0.01);
      default:
        return dice_.Once(2) ? 20 + dice_.Real(0, 3) : 80 + dice_.Real(0, 3);
    }
    return value_;
  }

 private:
  Dice& dice_;
  int kind_;
  double value_;
};

// Mostly forwards; also standing still, with gaps, backwards and anywhere.
class TestTime {
 public:
  TestTime(Dice& dice, int readings) : dice_(dice), kind_(dice.Int(0, 5)), step_(200.0 / readings) {}

  void NewRun() {
    if (!dice_.Once(4)) time_ = 0;
  }

  double Next() {
    switch (kind_) {
      case 0:
      case 1:
        time_ += step_;
        break;
      case 2:
        time_ += dice_.Once(50) ? 20 : dice_.Real(0, step_);
        break;
      case 3:
        time_ += dice_.Once(5) ? -3 * step_ : 2 * step_;
        break;
      case 4:
        if (dice_.Once(20)) time_ = dice_.AnyOf({-1e308, 1e308, 0, -100, 100, 300});
        time_ += step_;
        break;
      default:
        return dice_.Real(-20, 220);
    }
    return time_;
  }

 private:
  Dice& dice_;
  int kind_;
  double step_;
  double time_ = 0;
};

inline std::vector<TestReading> RandomReadings(Dice& dice) {
  const int count = dice.Int(0, dice.Once(4) ? 6000 : 700);
  const int run_length = dice.Once(3) ? count + 1 : std::max(1, count / dice.Int(1, dice.Once(5) ? 400 : 14));
  Signal visco(dice);
  Signal temp(dice);
  TestTime time(dice, std::min(count, run_length) + 1);
  std::vector<TestReading> readings;
  for (int i = 0, run = dice.Int(0, 4); i < count; ++i) {
    if (i > 0 && i % run_length == 0) {
      run = dice.Once(5) ? 1 : run + 1;
      time.NewRun();
    }
    readings.push_back({run, time.Next(), visco.Next(), temp.Next()});
  }
  return readings;
}

inline data::AxisRanges RandomRanges(Dice& dice) {
  data::AxisRanges ranges;
  if (dice.Once(3)) {
    ranges.TimeMin = dice.Real(-10, 150);
    ranges.TimeMax = ranges.TimeMin + dice.AnyOf({0.001, 3, 100, 1e6, -50, 0});
  }
  if (dice.Once(2)) {
    ranges.ViscoMin = dice.Real(-50, 80);
    ranges.ViscoMax = ranges.ViscoMin + dice.AnyOf({0.01, 3, 100, 1e6, 1e308});
  }
  if (dice.Once(2)) {
    ranges.TempMin = dice.Real(-50, 80);
    ranges.TempMax = ranges.TempMin + dice.AnyOf({0.01, 3, 100, 1e6, -50});
  }
  ranges.ViscoLogMin = static_cast<std::int16_t>(dice.Int(-3, 2));
  ranges.ViscoLogMax = static_cast<std::int16_t>(ranges.ViscoLogMin + dice.Int(1, 6));
  return ranges;
}

}  // namespace quenlor::graph
