// SPDX-License-Identifier: MIT
#include "app/batch_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "app/desk/choose_word.h"

namespace quenlor::app {
namespace {

using graph::GraphKind;

constexpr int kLargestPicture = 32767;  // pixels along a side, as much as pictures can have

struct Option {
  std::string_view name;
  bool takes_value;
  std::string_view tasks;  // that it belongs to; empty for one that names a task itself
};
constexpr std::array<Option, 10> kOptions = {{{"--report", true, ""},
                                              {"--graph", true, ""},
                                              {"--statistics", false, ""},
                                              {"--measure", true, ""},
                                              {"--merge", true, ""},
                                              {"--size", true, "--graph"},
                                              {"--format", true, "--statistics or --measure"},
                                              {"--paper", true, "--report"},
                                              {"--landscape", false, "--report"},
                                              {"--kind", true, "--report or --graph"}}};

const Option* Find(std::string_view name) {
  const auto* found = std::ranges::find(kOptions, name, &Option::name);
  return found == kOptions.end() ? nullptr : found;
}

// The choice that a word stands for.
template <class Choice, std::size_t N>
std::string Choose(const std::string& option, const std::string& word,
                   const std::array<std::pair<std::string_view, Choice>, N>& words, Choice& choice) {
  std::array<std::string_view, N> names;
  std::ranges::transform(words, names.begin(), &std::pair<std::string_view, Choice>::first);
  std::size_t index = 0;
  std::string wrong = ChooseWord(option, word, names, index);
  if (wrong.empty()) choice = words[index].second;
  return wrong;
}

constexpr std::array<std::pair<std::string_view, GraphKind>, 3> kKinds = {
    {{"visco-time", GraphKind::ViscoTime},
     {"visco-temp-time", GraphKind::ViscoTempTime},
     {"visco-temp", GraphKind::ViscoTemp}}};
constexpr std::array<std::pair<std::string_view, OutputFormat>, 3> kFormats = {
    {{"text", OutputFormat::kText}, {"csv", OutputFormat::kCsv}, {"json", OutputFormat::kJson}}};
constexpr std::array<std::pair<std::string_view, bool>, 2> kPapers = {{{"A4", false}, {"Letter", true}}};
constexpr std::array<std::pair<std::string_view, PictureFormat>, 3> kSuffixes = {
    {{"png", PictureFormat::kPng}, {"svg", PictureFormat::kSvg}, {"pdf", PictureFormat::kPdf}}};

std::string Suffix(const std::string& path) {
  const std::size_t dot = path.find_last_of("./");
  if (dot == std::string::npos || path[dot] != '.') return {};
  std::string suffix = path.substr(dot + 1);
  for (char& c : suffix) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return suffix;
}

// A whole number of pixels; 0 for anything else.
int Pixels(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && number > 0 && number <= kLargestPicture ? number : 0;
}

}  // namespace

bool BatchOptionsReader::Knows(std::string_view option) {
  return Find(option) != nullptr || IsMeasureOption(option);
}

bool BatchOptionsReader::TakesValue(std::string_view option) {
  const Option* const found = Find(option);
  return found != nullptr ? found->takes_value : MeasureOptionTakesValue(option);
}

std::string BatchOptionsReader::Take(const std::string& option, const std::string& value) {
  if (option == "--report") {
    // Whoever forgets the output means the first of the data files to be read, not to be replaced.
    if (Suffix(value) != "pdf") return "--report makes a .pdf file, not " + value;
    return TakeTask(Task::kReport, option, value);
  }
  if (option == "--statistics") return TakeTask(Task::kStatistics, option, {});
  if (option == "--merge") return TakeTask(Task::kMerge, option, value);
  if (option == "--measure") return TakeTask(Task::kMeasure, option, value);
  if (option == "--graph") {
    if (!Choose(option, Suffix(value), kSuffixes, options_.picture).empty())
      return "--graph makes .png, .svg and .pdf files, not " + value;
    return TakeTask(Task::kGraph, option, value);
  }
  details_.push_back(option);
  if (option == "--size") return TakeSize(value);
  if (option == "--format") return Choose(option, value, kFormats, options_.format);
  if (option == "--paper") return Choose(option, value, kPapers, options_.letter);
  if (option == "--kind") return Choose(option, value, kKinds, options_.kind);
  if (IsMeasureOption(option)) return TakeMeasureOption(option, value, options_.measure);
  options_.landscape = true;
  return {};
}

std::string BatchOptionsReader::TakeTask(Task task, const std::string& option, const std::string& output) {
  if (options_.task != Task::kWindow)
    return "only one of --report, --graph, --statistics, --merge and --measure";
  task_option_ = option;
  options_.task = task;
  options_.output = output;
  return {};
}

std::string BatchOptionsReader::TakeSize(const std::string& value) {
  const std::size_t by = value.find('x');
  options_.width = Pixels(value.substr(0, by));
  options_.height = by == std::string::npos ? 0 : Pixels(value.substr(by + 1));
  if (options_.width == 0 || options_.height == 0) return "--size needs WIDTHxHEIGHT in pixels, not " + value;
  return {};
}

std::string BatchOptionsReader::Check(const std::vector<std::string>& files) const {
  for (const std::string& detail : details_) {
    const Option* const known = Find(detail);
    const std::string_view tasks = known != nullptr ? known->tasks : "--measure";
    if (task_option_.empty() || tasks.find(task_option_) == tasks.npos)
      return detail + " belongs to " + std::string(tasks);
  }
  if (options_.task == Task::kWindow) {
    if (std::ranges::count(files, kStandardInput) > 0) return "only batch commands read standard input";
    return files.size() > 1 ? "more than one file: " + files[1] : "";
  }
  if (options_.task == Task::kMeasure) return files.empty() ? "" : "--measure reads no file: " + files[0];
  if (files.empty()) return task_option_ + " needs a file";
  if (std::ranges::count(files, kStandardInput) > 1) return "standard input can be read only once";
  if (options_.task == Task::kGraph && files.size() > 1) return "--graph takes one file: " + files[1];
  return {};
}

}  // namespace quenlor::app
