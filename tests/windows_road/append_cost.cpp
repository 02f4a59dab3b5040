// SPDX-License-Identifier: MIT
//
// What a reading in the raw log costs: the file is looked at, opened, written to and closed. Beside it, the
// same lines written to a file that stays open.
//
// Usage: quenlor-append-cost FOLDER

#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <string>

#include "platform/qt/qt_file_system.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  constexpr int kReadings = 5000;
  const std::string line = "1,00:00:00,1,1197.0,20.0,\r\n";
  const std::string path = std::string(argv[1]) + "/append_cost.txt";
  quenlor::platform::qt::QtFileSystem files;
  const auto nothing = [](quenlor::platform::ByteSink&) {};
  if (files.Replace(path, nothing)) return 1;

  QElapsedTimer timer;
  timer.start();
  for (int reading = 0; reading < kReadings; ++reading) {
    if (!files.State(path).ok() || files.Append(path, line)) return 1;
  }
  const double append_us = static_cast<double>(timer.nsecsElapsed()) / 1000 / kReadings;

  QFile open_file(QString::fromStdString(path));
  if (!open_file.open(QIODevice::Append | QIODevice::Unbuffered)) return 1;
  timer.restart();
  for (int reading = 0; reading < kReadings; ++reading) {
    if (open_file.write(line.data(), static_cast<qint64>(line.size())) < 0) return 1;
  }
  const double write_us = static_cast<double>(timer.nsecsElapsed()) / 1000 / kReadings;
  open_file.close();
  open_file.remove();

  constexpr double kReadingAtFullRate = 1e6 / 1440;
  std::printf(
      "a reading in the raw log: %.1f us, %.1f %% of its time at full rate (a write alone: %.1f us)\n",
      append_us, 100 * append_us / kReadingAtFullRate, write_us);
}
