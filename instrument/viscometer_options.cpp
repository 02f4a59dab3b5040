// SPDX-License-Identifier: MIT
#include "instrument/viscometer_options.h"

#include <algorithm>
#include <limits>
#include <span>

#include "instrument/number_text.h"

namespace quenlor::instrument {
namespace {

// Sets what the value says; false when the value is none for this setting.
using Setter = bool (*)(ViscometerOptions& options, std::string_view value);

struct Setting {
  std::string_view name;
  std::string_view expected;  // completes "… is not …"
  Setter set;
};

bool SetNumber(double& target, std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number || *number < 0) return false;
  target = *number;
  return true;
}

bool SetCount(std::int64_t& target, std::string_view text, std::int64_t least) {
  const auto count = ParseCount(text);
  if (!count || *count < least) return false;
  target = *count;
  return true;
}

bool SetCurve(Curve& target, std::string_view text) {
  const auto curve = ParseCurve(text);
  if (!curve) return false;
  target = *curve;
  return true;
}

template <class T>
struct Word {
  std::string_view name;
  T value;
};

template <class T>
bool SetWord(T& target, std::string_view text, std::initializer_list<Word<T>> words) {
  const auto word =
      std::find_if(words.begin(), words.end(), [text](const auto& w) { return w.name == text; });
  if (word == words.end()) return false;
  target = word->value;
  return true;
}

constexpr std::string_view kEvery = "a whole number of 1 or more";
constexpr std::string_view kSeconds = "a number of seconds, 0 or more";
constexpr std::string_view kDeviation = "a standard deviation, 0 or more";
constexpr std::string_view kCurve =
    "a curve (const:VALUE, ramp:START:PER_SECOND or exp:START:END:TIME_CONSTANT with a time constant above "
    "0)";

constexpr Setting kFaults[] = {
    {"late", kSeconds, [](auto& o, auto v) { return SetNumber(o.faults.late_seconds, v); }},
    {"missing", kEvery, [](auto& o, auto v) { return SetCount(o.faults.missing_every, v, 1); }},
    {"garbage", kEvery, [](auto& o, auto v) { return SetCount(o.faults.garbage_every, v, 1); }},
    {"half", kEvery, [](auto& o, auto v) { return SetCount(o.faults.half_every, v, 1); }},
    {"endless", kEvery, [](auto& o, auto v) { return SetCount(o.faults.endless_from, v, 1); }},
    {"ack", "'before' or 'line'",
     [](auto& o, auto v) {
       return SetWord<Ack>(o.faults.ack, v, {{"before", Ack::kBefore}, {"line", Ack::kOwnLine}});
     }},
    {"burst", kEvery, [](auto& o, auto v) { return SetCount(o.faults.burst, v, 1); }},
    {"silence", "a whole number of 0 or more",
     [](auto& o, auto v) { return SetCount(o.faults.silence_after.emplace(), v, 0); }},
    {"hangup", kEvery, [](auto& o, auto v) { return SetCount(o.faults.hang_up_after, v, 1); }},
    {"babble", "'unknown'",
     [](auto& o, auto v) {
       return SetWord<bool>(o.faults.babble, v, {{"unknown", true}});
     }},
};

constexpr Setting kOptions[] = {
    {"--interval", kSeconds, [](auto& o, auto v) { return SetNumber(o.interval, v); }},
    {"--count", "a whole number of 0 or more", [](auto& o, auto v) { return SetCount(o.count, v, 0); }},
    {"--viscosity", kCurve, [](auto& o, auto v) { return SetCurve(o.viscosity, v); }},
    {"--temperature", kCurve, [](auto& o, auto v) { return SetCurve(o.temperature, v); }},
    {"--viscosity-noise", kDeviation, [](auto& o, auto v) { return SetNumber(o.viscosity_noise, v); }},
    {"--temperature-noise", kDeviation, [](auto& o, auto v) { return SetNumber(o.temperature_noise, v); }},
    {"--seed", "a whole number of 0 or more",
     [](auto& o, auto v) {
       const auto seed = ParseCount(v);
       if (seed) o.seed = static_cast<std::uint64_t>(*seed);
       return seed.has_value();
     }},
    {"--form", "'visco', 'bare', 'comma', 'semicolon' or 'numbered'",
     [](auto& o, auto v) {
       return SetWord<LineForm>(o.form, v,
                                {{"visco", LineForm::kVisco},
                                 {"bare", LineForm::kBare},
                                 {"comma", LineForm::kComma},
                                 {"semicolon", LineForm::kSemicolon},
                                 {"numbered", LineForm::kNumbered}});
     }},
    {"--after-stop", "'answer' or 'silent'",
     [](auto& o, auto v) {
       return SetWord<bool>(o.polls_after_stop, v, {{"answer", true}, {"silent", false}});
     }},
};

const Setting* Find(std::span<const Setting> settings, std::string_view name) {
  const auto found =
      std::find_if(settings.begin(), settings.end(), [name](const auto& s) { return s.name == name; });
  return found == settings.end() ? nullptr : &*found;
}

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

// Says what is wrong, or nothing.
std::string Apply(const Setting& setting, std::string_view title, std::string_view value,
                  ViscometerOptions& options) {
  if (setting.set(options, value)) return {};
  return std::string(title) + ": " + Quoted(value) + " is not " + std::string(setting.expected);
}

std::string ApplyFault(std::string_view text, ViscometerOptions& options) {
  const auto colon = text.find(':');
  const auto name = text.substr(0, colon);
  const auto* const fault = Find(kFaults, name);
  if (!fault) return "--fault: there is no fault " + Quoted(name);
  const std::string title = "--fault " + std::string(name);
  if (colon == std::string_view::npos)
    return title + ": a value is missing, as in '" + std::string(name) + ":VALUE'";
  return Apply(*fault, title, text.substr(colon + 1), options);
}

}  // namespace

ParsedOptions ParseOptions(const std::vector<std::string>& arguments) {
  ViscometerOptions options;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const std::string_view text = *argument;
    const auto equals = text.find('=');
    const auto name = text.substr(0, equals);
    const auto* const setting = Find(kOptions, name);
    if (!setting && name != "--fault") return OptionsError{"unknown option " + Quoted(name)};

    std::string_view value = text.substr(name.size());
    if (!value.empty()) {
      value.remove_prefix(1);
    } else if (++argument != arguments.end()) {
      value = *argument;
    } else {
      return OptionsError{std::string(name) + " needs a value"};
    }

    auto error = setting ? Apply(*setting, name, value, options) : ApplyFault(value, options);
    if (!error.empty()) return OptionsError{std::move(error)};
  }
  return options;
}

ParsedOptions ParseOptionsText(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  std::vector<std::string> words;
  for (auto begin = text.find_first_not_of(kBlanks); begin != std::string_view::npos;) {
    const auto end = std::min(text.find_first_of(kBlanks, begin), text.size());
    words.emplace_back(text.substr(begin, end - begin));
    begin = text.find_first_not_of(kBlanks, end);
  }
  return ParseOptions(words);
}

std::string_view OptionsHelp() {
  return R"(Readings:
  --interval SECONDS        between two readings while streaming (default 1); 0 sends as
                            fast as the line takes them, and each reading then stands
                            for one second of the curves
  --count N                 stop streaming after N readings (default 0: never)
  --viscosity CURVE         in mPa.s (default exp:1200:300:60)
  --temperature CURVE       in degrees Celsius (default exp:20:25:120)
                            A curve is const:VALUE, ramp:START:PER_SECOND or
                            exp:START:END:TIME_CONSTANT, times in seconds.
  --viscosity-noise X       standard deviation of the noise on each (default 0)
  --temperature-noise X
  --seed N                  of the noise; the same seed gives the same lines (default 1)
  --form FORM               visco      1234.5 mPa.s,25.1 C   (default)
                            bare       1234.5,25.1
                            comma      1234,5;25,1
                            semicolon  1234.5;25.1
                            numbered   7,1234.5,25.1   (running number first)
  --after-stop WHAT         between STOP and the next start word the instrument stays
                            'silent' (default), or a poll is met with an 'answer'

Faults (--fault may be given several times; N counts the readings of a run):
  --fault late:SECONDS      every reading leaves that much later
  --fault missing:N         every N-th reading is not sent
  --fault garbage:N         every N-th line is random bytes
  --fault half:N            every N-th line breaks off in the middle, without its end
  --fault endless:N         from the N-th reading on no line ends
  --fault ack:before        an ACK byte begins each line
  --fault ack:line          an ACK byte on a line of its own comes before each reading
  --fault burst:N           N readings at once each interval
  --fault silence:N         after N readings nothing more in this run
  --fault hangup:N          after N readings the line is dropped
  --fault babble:unknown    unknown commands are answered with random bytes
)";
}

}  // namespace quenlor::instrument
