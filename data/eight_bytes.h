// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace quenlor::data {

// Eight neighbouring bytes of a text, looked at together: what walks through a large file goes by them.
//
// Each question is answered by a mask: the upper bit of every byte for which it is true, and no other bit. On
// a machine that stores numbers the other way round the first byte is not the lowest; ask kFirstIsLowest.
class EightBytes {
 public:
  static constexpr int kSize = 8;
  static constexpr bool kFirstIsLowest = std::endian::native == std::endian::little;
  static constexpr std::uint64_t kEach = 0x0101010101010101u;
  static constexpr std::uint64_t kUpperBits = 0x80 * kEach;

  explicit EightBytes(const char* at) { std::memcpy(&bytes_, at, sizeof bytes_); }

  std::uint64_t Above127() const { return bytes_ & kUpperBits; }
  std::uint64_t Equal(char c) const { return Zero(bytes_ ^ (kEach * static_cast<std::uint8_t>(c))); }

  // The same bytes with `c` where the mask says so, put to where they came from.
  void StoreWith(char c, std::uint64_t mask, char* at) const {
    const std::uint64_t places = (mask >> 7) * 0xFF;
    const std::uint64_t changed = (bytes_ & ~places) | (places & (kEach * static_cast<std::uint8_t>(c)));
    std::memcpy(at, &changed, sizeof changed);
  }

  static int Count(std::uint64_t mask) { return static_cast<int>(((mask >> 7) * kEach) >> 56); }
  static int First(std::uint64_t mask) { return std::countr_zero(mask) / 8; }
  static std::uint64_t BeforeFirst(std::uint64_t mask) { return ~mask & (mask - 1); }

 private:
  static std::uint64_t Zero(std::uint64_t bytes) {
    constexpr std::uint64_t kLowerBits = ~kUpperBits;
    return ~(((bytes & kLowerBits) + kLowerBits) | bytes) & kUpperBits;
  }

  std::uint64_t bytes_;
};

}  // namespace quenlor::data
