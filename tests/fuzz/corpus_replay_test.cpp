// SPDX-License-Identifier: MIT
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "tests/fuzz/mutation.h"

namespace quenlor::fuzz {
namespace {

using Target = void (*)(std::string_view input);

constexpr int kMutations = 2'000;

std::map<std::string, std::string> Corpus(const std::string& unit) {
  std::map<std::string, std::string> inputs;
  for (const auto& file :
       std::filesystem::directory_iterator(std::string(QUENLOR_FUZZ_CORPUS) + "/" + unit)) {
    std::ifstream stream(file.path(), std::ios::binary);
    inputs[file.path().filename().string()].assign(std::istreambuf_iterator<char>(stream), {});
  }
  return inputs;
}

// As it can stand between the quotes of a string literal.
std::string Escaped(std::string_view input) {
  std::string text;
  for (const char c : input) {
    const auto byte = static_cast<unsigned>(static_cast<unsigned char>(c));
    char octal[8];
    std::snprintf(octal, sizeof octal, "\\%03o", byte);
    if (byte < 0x20 || byte > 0x7E || c == '"' || c == '\\')
      text += octal;
    else
      text += c;
  }
  return text;
}

testing::AssertionResult Keeps(Target target, std::string_view input) {
  try {
    target(input);
    return testing::AssertionSuccess();
  } catch (const BrokenPromise& broken) {
    return testing::AssertionFailure()
           << "broken: " << broken.what() << "\ninput: \"" << Escaped(input) << '"';
  }
}

struct Parser {
  std::string unit;
  Target target;
};

// What a parser is called in the names of tests.
void PrintTo(const Parser& parser, std::ostream* stream) { *stream << parser.unit; }

const Parser kParsers[] = {{"color_settings", ColorSettings}, {"command_line", CommandLine},
                           {"command_list", CommandList},     {"data_file", DataFile},
                           {"line_settings", LineSettings},   {"line_splitter", LineSplitter},
                           {"port_directory", PortDirectory}, {"raw_log", RawLog},
                           {"reception", Reception},          {"settings_list", SettingsList},
                           {"text_number", TextNumber},       {"utf8", Utf8},
                           {"viscometer", Viscometer},        {"viscometer_options", ViscometerOptions},
                           {"window_state", WindowState}};

class CorpusReplay : public testing::TestWithParam<Parser> {};

TEST_P(CorpusReplay, PromisesHoldForEveryInputAndItsMutations) {
  const auto& [unit, target] = GetParam();
  std::vector<std::string> inputs;
  for (const auto& [name, input] : Corpus(unit)) {
    EXPECT_TRUE(Keeps(target, input)) << name;
    inputs.push_back(input);
  }
  ASSERT_FALSE(inputs.empty());

  Mutation mutation(inputs);
  for (int k = 0; k < kMutations; ++k) ASSERT_TRUE(Keeps(target, mutation.Next())) << "mutation " << k;
}

TEST_P(CorpusReplay, PromisesHoldForNothingAtAll) { EXPECT_TRUE(Keeps(GetParam().target, "")); }

INSTANTIATE_TEST_SUITE_P(Parsers, CorpusReplay, testing::ValuesIn(kParsers),
                         [](const auto& parser) { return parser.param.unit; });

TEST(Corpus, EveryFolderIsReplayed) {
  std::set<std::string> folders;
  for (const auto& folder : std::filesystem::directory_iterator(QUENLOR_FUZZ_CORPUS)) {
    folders.insert(folder.path().filename().string());
  }
  std::set<std::string> units;
  for (const Parser& parser : kParsers) units.insert(parser.unit);
  EXPECT_EQ(folders, units);
}

}  // namespace
}  // namespace quenlor::fuzz
