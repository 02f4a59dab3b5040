// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk/measure_options.h"
#include "graph/plot_axes.h"

namespace quenlor::app {

inline constexpr std::string_view kStandardInput = "-";  // as a file

enum class Task { kWindow, kReport, kGraph, kStatistics, kMeasure, kMerge };
enum class PictureFormat { kPng, kSvg, kPdf };

// What is to be made without a window, of data files or by measuring.
struct BatchOptions {
  Task task = Task::kWindow;
  std::string output;  // a report, a picture, a data file
  PictureFormat picture = PictureFormat::kPng;
  int width = 1200;  // of a picture, in pixels
  int height = 800;
  graph::GraphKind kind = graph::GraphKind::ViscoTime;
  OutputFormat format = OutputFormat::kText;
  bool letter = false;  // paper: else A4
  bool landscape = false;
  MeasureOptions measure;
};

// The options of the batch commands as the command line names them, one after the other.
class BatchOptionsReader {
 public:
  // Whether it is one of these options, and whether one that is takes a value.
  static bool Knows(std::string_view option);
  static bool TakesValue(std::string_view option);

  // What is wrong with it, in one line; empty when nothing is.
  std::string Take(const std::string& option, const std::string& value);

  // What is wrong with the whole; empty when nothing is. `files` are the command line's.
  std::string Check(const std::vector<std::string>& files) const;

  const BatchOptions& Options() const { return options_; }

 private:
  std::string TakeTask(Task task, const std::string& option, const std::string& output);
  std::string TakeSize(const std::string& value);

  BatchOptions options_;
  std::string task_option_;           // as it was written
  std::vector<std::string> details_;  // options that belong to a task
};

}  // namespace quenlor::app
