// SPDX-License-Identifier: MIT
#include "app/desk/measure_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "app/desk/choose_word.h"
#include "data/run_table.h"
#include "data/text_number.h"
#include "link/port_settings.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

constexpr std::array<std::string_view, 2> kSwitch = {"off", "on"};
constexpr std::array<std::string_view, 2> kDecimalPoints = {"Dot", "Comma"};
constexpr std::array<std::string_view, 2> kOnLoss = {"end", "wait"};

// Far beyond any measurement, and sums of it stay whole numbers of milliseconds.
constexpr double kMostSeconds = 1e9;

// Options whose words are the items of a menu, or on and off.
struct MenuOption {
  std::string_view name;
  int element;
  std::span<const std::string_view> words;
};
constexpr std::array<MenuOption, 8> kMenuOptions = {{{"--baud", setting::kBPS, link::BPS},
                                                     {"--parity", setting::kParity, link::Parity},
                                                     {"--length", setting::kLength, link::Length},
                                                     {"--stop-bit", setting::kBit, link::Bit},
                                                     {"--terminator", setting::kTerm, link::Term},
                                                     {"--visco", setting::kVisco, kSwitch},
                                                     {"--number", setting::kNum, kSwitch},
                                                     {"--decimal-point", setting::kDP, kDecimalPoints}}};

// A box that is ticked, and its number.
struct BoxOption {
  std::string_view name;
  int box;
  int number;
  std::string_view unit;
};
constexpr std::array<BoxOption, 2> kBoxOptions = {
    {{"--repeat", setting::kRepeat, setting::kRepeatSeconds, "seconds"},
     {"--auto-stop", setting::kAutoStop, setting::kAutoStopMinutes, "minutes"}}};

constexpr std::array<std::string_view, 9> kOtherOptions = {"--com-port", "--command", "--settings",
                                                           "--readings", "--minutes", "--runs",
                                                           "--pause",    "--on-loss", "--quiet"};

template <class Options>
auto Find(const Options& options, std::string_view name) {
  const auto found = std::ranges::find(options, name, [](const auto& option) { return option.name; });
  return found == options.end() ? nullptr : &*found;
}

// The whole text as a number, written with a point.
std::optional<double> Number(const std::string& text, double most) {
  double number = 0;
  const char* const end_of_text = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), end_of_text, number, std::chars_format::fixed);
  const bool whole = error == std::errc() && end == end_of_text;
  if (!whole || !(number >= 0 && number <= most)) return std::nullopt;
  return number;
}

// From 1 to `most`; 0 for anything else.
std::int64_t Count(const std::string& text, std::int64_t most) {
  std::int64_t count = 0;
  const char* const end_of_text = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), end_of_text, count);
  return error == std::errc() && end == end_of_text && count >= 1 && count <= most ? count : 0;
}

std::string Needs(const std::string& option, const std::string& what, const std::string& value) {
  return option + " needs " + what + ", not " + value;
}

std::string TakeMenuOption(const MenuOption& menu, const std::string& value, MeasureOptions& options) {
  std::size_t index = 0;
  std::string wrong = ChooseWord(std::string(menu.name), value, menu.words, index);
  if (wrong.empty()) options.choices.emplace_back(menu.element, std::to_string(index));
  return wrong;
}

std::string TakeBoxOption(const BoxOption& box, const std::string& value, MeasureOptions& options) {
  const bool off = value == kSwitch[0];
  const auto number = Number(value, kMostSeconds);
  if (!off && !number)
    return Needs(std::string(box.name), "a number of " + std::string(box.unit) + ", or off", value);
  options.choices.emplace_back(box.box, off ? "0" : "1");
  if (number) options.choices.emplace_back(box.number, data::GeneralText(*number));
  return {};
}

std::string TakeCount(const std::string& option, const std::string& value, MeasureOptions& options) {
  const bool runs = option == "--runs";
  const std::int64_t count = Count(value, runs ? data::kMaxRuns : std::numeric_limits<std::int64_t>::max());
  if (count == 0)
    return Needs(option, runs ? "a number from 1 to " + std::to_string(data::kMaxRuns) : "a number from 1",
                 value);
  if (runs)
    options.runs = static_cast<int>(count);
  else
    options.readings = count;
  return {};
}

bool AutoStops(const data::SettingsList& settings) {
  return settings.Index(setting::kRepeat) == 1 && settings.Index(setting::kAutoStop) == 1 &&
         settings.Number(setting::kAutoStopMinutes) > 0;
}

}  // namespace

bool IsMeasureOption(std::string_view option) {
  return Find(kMenuOptions, option) != nullptr || Find(kBoxOptions, option) != nullptr ||
         std::ranges::find(kOtherOptions, option) != kOtherOptions.end();
}

bool MeasureOptionTakesValue(std::string_view option) { return option != "--quiet"; }

std::string TakeMeasureOption(const std::string& option, const std::string& value, MeasureOptions& options) {
  if (const auto* menu = Find(kMenuOptions, option)) return TakeMenuOption(*menu, value, options);
  if (const auto* box = Find(kBoxOptions, option)) return TakeBoxOption(*box, value, options);
  if (option == "--command") options.command = value;
  if (option == "--settings") options.settings_file = value;
  if (option == "--quiet") options.quiet = true;
  if (option == "--readings" || option == "--runs") return TakeCount(option, value, options);
  if (option == "--com-port") {
    const std::int64_t port = Count(value, link::kMostPorts);
    if (port == 0) return Needs(option, "a port number", value);
    options.choices.emplace_back(setting::kPort, std::to_string(port));
  }
  if (option == "--minutes") {
    options.minutes = Number(value, kMostSeconds / 60);
    if (options.minutes.value_or(0) <= 0) return Needs(option, "a number of minutes", value);
  }
  if (option == "--pause") {
    const auto seconds = Number(value, kMostSeconds);
    if (!seconds) return Needs(option, "a number of seconds", value);
    options.pause = *seconds;
  }
  if (option == "--on-loss") {
    std::size_t index = 0;
    std::string wrong = ChooseWord(option, value, kOnLoss, index);
    options.wait_on_loss = index == 1;
    return wrong;
  }
  return {};
}

std::string ApplyMeasureOptions(const MeasureOptions& options, data::SettingsList& settings) {
  const auto chosen = [&](int element) {
    return std::ranges::find(options.choices, element, &std::pair<int, std::string>::first) !=
           options.choices.end();
  };
  for (const auto& [element, text] : options.choices) settings.Set(element, text);
  if (chosen(setting::kPort) && settings.Index(setting::kPort) > link::PortCount(settings))
    return Needs("--com-port", "a number from 1 to " + std::to_string(link::PortCount(settings)),
                 settings[setting::kPort]);
  const bool stop_asked = chosen(setting::kAutoStop) && settings.Number(setting::kAutoStopMinutes) > 0 &&
                          settings.Index(setting::kAutoStop) == 1;
  if (stop_asked && !AutoStops(settings)) return "--auto-stop works together with Repeat: --repeat SECONDS";
  if (options.runs > 1 && !options.readings && !options.minutes && !AutoStops(settings))
    return "--runs needs what ends a run: --readings, --minutes, or --auto-stop";
  return {};
}

}  // namespace quenlor::app
