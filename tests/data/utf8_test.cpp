// SPDX-License-Identifier: MIT
#include "data/utf8.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

using namespace std::string_literals;

// The character of that number by the definition of UTF-8, surrogates included.
std::string Encoded(std::uint32_t number) {
  const auto byte = [](std::uint32_t value) { return static_cast<char>(static_cast<std::uint8_t>(value)); };
  const auto tail = [&](int shift) { return byte(0x80 | (number >> shift & 0x3F)); };
  if (number < 0x80) return {byte(number)};
  if (number < 0x800) return {byte(0xC0 | number >> 6), tail(0)};
  if (number < 0x10000) return {byte(0xE0 | number >> 12), tail(6), tail(0)};
  return {byte(0xF0 | number >> 18), tail(12), tail(6), tail(0)};
}

std::string Latin1AsUtf8(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) text += Encoded(static_cast<std::uint8_t>(c));
  return text;
}

std::string RandomBytes(std::mt19937_64& random, std::size_t length) {
  std::string bytes(length, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

const std::string_view kNotWellFormed[] = {
    "\x80",              // a continuation byte alone
    "\xBF\x80",          //
    "\xC0\x80",          // overlong forms
    "\xC1\xBF",          //
    "\xE0\x80\x80",      //
    "\xE0\x9F\xBF",      //
    "\xF0\x80\x80\x80",  //
    "\xF0\x8F\xBF\xBF",  //
    "\xED\xA0\x80",      // surrogates
    "\xED\xBF\xBF",      //
    "\xF4\x90\x80\x80",  // above U+10FFFF
    "\xF5\x80\x80\x80",  //
    "\xF8\x88\x80\x80",  //
    "\xFE\xFF",          //
    "\xC3",              // sequences cut at the end of the text
    "\xE2\x82",          //
    "\xF0\x9D\x84",      //
};

TEST(Utf8, WellFormedTextIsRecognised) {
  for (const std::string_view text : {"", "plain", "25.1 \xC2\xB0 C", "\xE2\x82\xAC", "\xF0\x9D\x84\x9E"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
}

TEST(Utf8, EveryCharacterButTheSurrogatesIsWellFormed) {
  for (std::uint32_t number = 0; number <= 0x10FFFF; ++number) {
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    ASSERT_EQ(IsUtf8(Encoded(number)), !surrogate) << std::hex << number;
  }
}

TEST(Utf8, OverlongSurrogateTooHighAndCutSequencesAreNotWellFormed) {
  for (const std::string_view bytes : kNotWellFormed) {
    EXPECT_FALSE(IsUtf8(bytes)) << testing::PrintToString(bytes);
    EXPECT_FALSE(IsUtf8("text before " + std::string(bytes) + " and behind"))
        << testing::PrintToString(bytes);
  }
}

// A sequence of two or three bytes above 127 is a character exactly when encoding its number gives it again.
TEST(Utf8, NoOtherSequenceOfTwoOrThreeBytesIsACharacter) {
  std::string bytes(2, '\0');
  for (std::uint32_t lead = 0xC0; lead <= 0xDF; ++lead) {
    for (std::uint32_t next = 0; next <= 0xFF; ++next) {
      bytes = {static_cast<char>(lead), static_cast<char>(next)};
      ASSERT_EQ(IsUtf8(bytes), Encoded((lead & 0x1F) << 6 | (next & 0x3F)) == bytes) << lead << ' ' << next;
    }
  }
  for (std::uint32_t lead = 0xE0; lead <= 0xEF; ++lead) {
    for (std::uint32_t rest = 0; rest <= 0xFFFF; ++rest) {
      const std::uint32_t number = (lead & 0x0F) << 12 | (rest >> 8 & 0x3F) << 6 | (rest & 0x3F);
      const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
      bytes = {static_cast<char>(lead), static_cast<char>(rest >> 8), static_cast<char>(rest)};
      ASSERT_EQ(IsUtf8(bytes), !surrogate && Encoded(number) == bytes) << lead << ' ' << rest;
    }
  }
}

TEST(Utf8, ABadByteIsFoundWhereverItStands) {
  for (std::size_t length = 1; length <= 40; ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      std::string bytes(length, 'x');
      bytes[at] = '\xB0';
      ASSERT_FALSE(IsUtf8(bytes)) << at << " of " << length;
      ASSERT_EQ(ToUtf8(bytes), bytes.substr(0, at) + "\xC2\xB0" + bytes.substr(at + 1))
          << at << " of " << length;
    }
  }
}

TEST(Utf8, WellFormedTextIsKept) {
  for (const std::string& text :
       {""s, "plain"s, "No.,25.1 \xC2\xB0 C\r\n"s, "\xF0\x9D\x84\x9E\xE2\x82\xAC"s, "\0\0x"s}) {
    EXPECT_EQ(ToUtf8(text), text);
  }
}

TEST(Utf8, EveryByteAbove127AloneIsItsLatin1Character) {
  for (std::uint32_t byte = 0x80; byte <= 0xFF; ++byte) {
    EXPECT_EQ(ToUtf8({static_cast<char>(byte)}), Encoded(byte)) << byte;
  }
}

TEST(Utf8, Latin1BytesAmongWellFormedTextAloneAreTurned) {
  EXPECT_EQ(ToUtf8("\xB5 \xC2\xB5 \xB0 C \xE2\x82\xAC"), "\xC2\xB5 \xC2\xB5 \xC2\xB0 C \xE2\x82\xAC");
}

TEST(Utf8, SequencesThatAreNotWellFormedAreLatin1ByteByByte) {
  for (const std::string_view bytes : kNotWellFormed) {
    EXPECT_EQ(ToUtf8(std::string(bytes)), Latin1AsUtf8(bytes)) << testing::PrintToString(bytes);
  }
}

TEST(Utf8, ACharacterRightBehindACutSequenceIsKept) {
  EXPECT_EQ(ToUtf8("\xE2\x82\xC3\xA4"), Latin1AsUtf8("\xE2\x82") + "\xC3\xA4");
}

TEST(Utf8, WhateverTheBytesTheResultIsWellFormedWithoutFEAndFF) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 5000; ++i) {
    const std::string text = ToUtf8(RandomBytes(random, random() % 200));
    ASSERT_TRUE(IsUtf8(text)) << "round " << i;
    ASSERT_EQ(text.find('\xFE'), std::string::npos) << "round " << i;
    ASSERT_EQ(text.find('\xFF'), std::string::npos) << "round " << i;
    ASSERT_EQ(ToUtf8(text), text) << "round " << i;
  }
}

TEST(Utf8, APrefixNeverCutsACharacter) {
  const std::string_view text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E";  // characters of 1, 2, 3 and 4 bytes
  const std::size_t kept[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10, 10};
  for (std::size_t limit = 0; limit < std::size(kept); ++limit) {
    EXPECT_EQ(Utf8Prefix(text, limit), text.substr(0, kept[limit])) << "limit " << limit;
  }
}

TEST(Utf8, APrefixOfPlainTextIsAsLongAsTheLimit) {
  EXPECT_EQ(Utf8Prefix("12345", 3), "123");
  EXPECT_EQ(Utf8Prefix("12345", 5), "12345");
  EXPECT_EQ(Utf8Prefix("12345", 1000), "12345");
  EXPECT_EQ(Utf8Prefix("", 0), "");
}

}  // namespace
}  // namespace quenlor::data
