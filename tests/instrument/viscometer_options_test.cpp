// SPDX-License-Identifier: MIT
#include "instrument/viscometer_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::instrument {
namespace {

ViscometerOptions Options(std::string_view text) {
  const auto parsed = ParseOptionsText(text);
  if (const auto* error = std::get_if<OptionsError>(&parsed)) {
    ADD_FAILURE() << error->text;
    return {};
  }
  return std::get<ViscometerOptions>(parsed);
}

TEST(ViscometerOptions, NoOptionsAreASoundInstrument) {
  const auto options = Options("");

  EXPECT_EQ(options.interval, 1);
  EXPECT_EQ(options.count, 0);
  EXPECT_EQ(options.form, LineForm::kVisco);
  EXPECT_EQ(options.viscosity_noise, 0);
  EXPECT_FALSE(options.polls_after_stop);
  EXPECT_EQ(options.faults.missing_every, 0);
  EXPECT_EQ(options.faults.burst, 1);
  EXPECT_EQ(options.faults.silence_after, std::nullopt);
  EXPECT_EQ(options.faults.hang_up_after, 0);
}

TEST(ViscometerOptions, EachOptionSetsItsValue) {
  const auto options = Options(
      "--interval 0.25 --count 100000 --viscosity ramp:800:-2.5 --temperature const:25 --viscosity-noise 1.5 "
      "--temperature-noise 0.2 --seed 77 --form comma --after-stop answer");

  EXPECT_EQ(options.interval, 0.25);
  EXPECT_EQ(options.count, 100000);
  EXPECT_EQ(ValueAt(options.viscosity, 4), 790);
  EXPECT_EQ(ValueAt(options.temperature, 4), 25);
  EXPECT_EQ(options.viscosity_noise, 1.5);
  EXPECT_EQ(options.temperature_noise, 0.2);
  EXPECT_EQ(options.seed, 77u);
  EXPECT_EQ(options.form, LineForm::kComma);
  EXPECT_TRUE(options.polls_after_stop);
}

TEST(ViscometerOptions, FaultsAddUp) {
  const auto faults =
      Options(
          "--fault late:2.5 --fault missing:7 --fault garbage:8 --fault half:9 --fault endless:10 "
          "--fault ack:line --fault burst:3 --fault silence:0 --fault hangup:12 "
          "--fault babble:unknown")
          .faults;

  EXPECT_EQ(faults.late_seconds, 2.5);
  EXPECT_EQ(faults.missing_every, 7);
  EXPECT_EQ(faults.garbage_every, 8);
  EXPECT_EQ(faults.half_every, 9);
  EXPECT_EQ(faults.endless_from, 10);
  EXPECT_EQ(faults.ack, Ack::kOwnLine);
  EXPECT_EQ(faults.burst, 3);
  EXPECT_EQ(faults.silence_after, 0);
  EXPECT_EQ(faults.hang_up_after, 12);
  EXPECT_TRUE(faults.babble);
  EXPECT_EQ(Options("--fault ack:before").faults.ack, Ack::kBefore);
}

TEST(ViscometerOptions, EveryFormHasItsWord) {
  EXPECT_EQ(Options("--form visco").form, LineForm::kVisco);
  EXPECT_EQ(Options("--form bare").form, LineForm::kBare);
  EXPECT_EQ(Options("--form semicolon").form, LineForm::kSemicolon);
  EXPECT_EQ(Options("--form numbered").form, LineForm::kNumbered);
}

TEST(ViscometerOptions, ValueMayFollowAnEqualsSign) {
  EXPECT_EQ(Options("--interval=0.5").interval, 0.5);
  EXPECT_EQ(Options("--fault=missing:7").faults.missing_every, 7);
}

TEST(ViscometerOptions, LaterOptionWins) { EXPECT_EQ(Options("--count 5 --count 6").count, 6); }

TEST(ViscometerOptions, WordsOfATextAreSeparatedByAnyBlanks) {
  const auto options = Options("  --count \t 5\n--seed 6  ");

  EXPECT_EQ(options.count, 5);
  EXPECT_EQ(options.seed, 6u);
}

TEST(ViscometerOptions, ErrorSaysWhatIsWrong) {
  const std::pair<const char*, const char*> cases[] = {
      {"--speed 5", "unknown option '--speed'"},
      {"hello", "unknown option 'hello'"},
      {"--count 5 --interval", "--interval needs a value"},
      {"--fault", "--fault needs a value"},
      {"--interval abc", "--interval: 'abc' is not a number of seconds, 0 or more"},
      {"--interval -1", "--interval: '-1' is not a number of seconds, 0 or more"},
      {"--interval 1,5", "--interval: '1,5' is not a number of seconds, 0 or more"},
      {"--interval=", "--interval: '' is not a number of seconds, 0 or more"},
      {"--interval nan", "--interval: 'nan' is not a number of seconds, 0 or more"},
      {"--interval inf", "--interval: 'inf' is not a number of seconds, 0 or more"},
      {"--count 1.5", "--count: '1.5' is not a whole number of 0 or more"},
      {"--count -1", "--count: '-1' is not a whole number of 0 or more"},
      {"--seed x", "--seed: 'x' is not a whole number of 0 or more"},
      {"--form fancy", "--form: 'fancy' is not 'visco', 'bare', 'comma', 'semicolon' or 'numbered'"},
      {"--after-stop dance", "--after-stop: 'dance' is not 'answer' or 'silent'"},
      {"--viscosity-noise -1", "--viscosity-noise: '-1' is not a standard deviation, 0 or more"},
      {"--fault smoke:1", "--fault: there is no fault 'smoke'"},
      {"--fault missing", "--fault missing: a value is missing, as in 'missing:VALUE'"},
      {"--fault missing:0", "--fault missing: '0' is not a whole number of 1 or more"},
      {"--fault burst:0", "--fault burst: '0' is not a whole number of 1 or more"},
      {"--fault hangup:x", "--fault hangup: 'x' is not a whole number of 1 or more"},
      {"--fault silence:-1", "--fault silence: '-1' is not a whole number of 0 or more"},
      {"--fault late:soon", "--fault late: 'soon' is not a number of seconds, 0 or more"},
      {"--fault ack:maybe", "--fault ack: 'maybe' is not 'before' or 'line'"},
  };
  for (const auto& [text, message] : cases) {
    const auto parsed = ParseOptionsText(text);
    const auto* const error = std::get_if<OptionsError>(&parsed);
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->text, message);
  }
}

TEST(ViscometerOptions, WrongCurveIsRefusedWithTheFamiliesToChooseFrom) {
  const auto parsed = ParseOptionsText("--viscosity sine:1:2");

  const auto* const error = std::get_if<OptionsError>(&parsed);
  ASSERT_TRUE(error);
  EXPECT_THAT(error->text, testing::StartsWith("--viscosity: 'sine:1:2' is not a curve (const:VALUE, "));
}

TEST(ViscometerOptions, HelpNamesEveryOptionAndFault) {
  for (const char* name : {"--interval",
                           "--count",
                           "--viscosity ",
                           "--temperature ",
                           "--viscosity-noise",
                           "--temperature-noise",
                           "--seed",
                           "--form",
                           "--after-stop",
                           "late:",
                           "missing:",
                           "garbage:",
                           "half:",
                           "endless:",
                           "ack:before",
                           "ack:line",
                           "burst:",
                           "silence:",
                           "hangup:",
                           "babble:"}) {
    EXPECT_THAT(std::string(OptionsHelp()), testing::HasSubstr(name));
  }
}

}  // namespace
}  // namespace quenlor::instrument
