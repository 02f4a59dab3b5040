// SPDX-License-Identifier: MIT
#include "bench/readings.h"

#include <charconv>
#include <cmath>

namespace quenlor::bench {
namespace {

void AppendNumber(double number, int decimals, std::string& text) {
  char buffer[32];
  const auto [end, error] =
      std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, decimals);
  text.append(buffer, end);
}

void AppendTwoDigits(std::int64_t number, std::string& text) {
  if (number < 10) text += '0';
  text += std::to_string(number);
}

void AppendTime(double seconds, std::string& text) {
  const auto whole = static_cast<std::int64_t>(seconds);
  AppendTwoDigits(whole / 3600, text);
  text += ':';
  AppendTwoDigits(whole / 60 % 60, text);
  text += ':';
  AppendTwoDigits(whole % 60, text);
}

}  // namespace

ReadingSource::Reading ReadingSource::Next() {
  const double seconds = seconds_++;
  const double drift = std::sin(seconds / 40'000) + 0.3 * std::sin(seconds / 700);
  return {seconds, 160 + 50 * drift + 4 * Noise(),
          25 + 0.2 * std::sin(seconds / 5000) + temp_noise_ * Noise()};
}

double ReadingSource::Noise() {
  random_ = random_ * 6364136223846793005u + 1442695040888963407u;
  return static_cast<double>(random_ >> 40) / (1 << 23) - 1;
}

void AppendInstrumentLine(const ReadingSource::Reading& reading, std::string& text) {
  AppendNumber(reading.visco, 1, text);
  text += ",mPa.s,";
  AppendNumber(reading.temp, 2, text);
  text += ",C";
}

void AppendFileLine(int run, const ReadingSource::Reading& reading, std::string& text) {
  (text += std::to_string(run)) += ',';
  AppendTime(reading.seconds, text);
  text += ',';
  AppendInstrumentLine(reading, text);
}

std::string DataFileText(std::int64_t readings, int runs, bool noisy_temp) {
  std::string text;
  text.reserve(static_cast<std::size_t>(readings) * 36 + 64);
  text += "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";
  for (int run = 1; run <= runs; ++run) {
    ReadingSource source(noisy_temp);
    for (std::int64_t i = 0; i < readings / runs; ++i) {
      AppendFileLine(run, source.Next(), text);
      text += "\r\n";
    }
  }
  return text;
}

}  // namespace quenlor::bench
