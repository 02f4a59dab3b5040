// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

// The entry that libFuzzer calls. Built once for each target, whose function is QUENLOR_FUZZ_TARGET.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quenlor::fuzz::QUENLOR_FUZZ_TARGET({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
