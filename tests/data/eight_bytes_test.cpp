// SPDX-License-Identifier: MIT
#include "data/eight_bytes.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

// The places of the bytes that a mask tells of, from the first.
std::vector<int> Places(std::uint64_t mask) {
  std::vector<int> places;
  for (; mask != 0; mask &= mask - 1) places.push_back(EightBytes::First(mask));
  return places;
}

template <class Is>
std::vector<int> PlacesWhere(const std::string& text, const Is& is) {
  std::vector<int> places;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (is(static_cast<unsigned char>(text[at]))) places.push_back(static_cast<int>(at));
  }
  return places;
}

// Bytes that are often next to those asked for, in value and in place.
std::vector<std::string> Texts() {
  constexpr unsigned char kBytes[] = {0, 1, ',', ',' + 1, ',' ^ 0x80, 0x7F, 0x80, 0x81, 0xFD, 0xFE, 0xFF};
  std::mt19937_64 random(7);
  std::vector<std::string> texts(20'000, std::string(EightBytes::kSize, '\0'));
  for (std::string& text : texts) {
    for (char& c : text) c = static_cast<char>(kBytes[random() % std::size(kBytes)]);
  }
  return texts;
}

class EightBytesTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!EightBytes::kFirstIsLowest) GTEST_SKIP() << "on this machine texts are walked byte by byte";
  }
};

TEST_F(EightBytesTest, TellEveryPlaceOfAByteAndNoOther) {
  for (const std::string& text : Texts()) {
    const EightBytes bytes(text.data());
    EXPECT_EQ(Places(bytes.Equal(',')), PlacesWhere(text, [](unsigned char c) { return c == ','; }));
    EXPECT_EQ(Places(bytes.Equal('\0')), PlacesWhere(text, [](unsigned char c) { return c == 0; }));
    EXPECT_EQ(Places(bytes.Above127()), PlacesWhere(text, [](unsigned char c) { return c > 127; }));
  }
}

TEST_F(EightBytesTest, AMaskIsCountedAndCutAtItsFirstPlace) {
  for (const std::string& text : Texts()) {
    const std::uint64_t commas = EightBytes(text.data()).Equal(',');
    const std::uint64_t high = EightBytes(text.data()).Above127();
    EXPECT_EQ(EightBytes::Count(commas), static_cast<int>(Places(commas).size()));
    if (high == 0) continue;
    std::vector<int> before = Places(commas);
    std::erase_if(before, [&](int place) { return place >= EightBytes::First(high); });
    EXPECT_EQ(Places(commas & EightBytes::BeforeFirst(high)), before);
  }
}

TEST_F(EightBytesTest, OnlyThePlacesOfTheMaskAreStoredChanged) {
  for (std::string text : Texts()) {
    std::string expected = text;
    for (char& c : expected) c = c == ',' ? '\xA5' : c;
    const EightBytes bytes(text.data());
    bytes.StoreWith('\xA5', bytes.Equal(','), text.data());
    EXPECT_EQ(text, expected);
  }
}

}  // namespace
}  // namespace quenlor::data
