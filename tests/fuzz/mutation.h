// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quenlor::fuzz {

// Makes damaged inputs of whole ones, the same ones in every run and on every platform.
class Mutation {
 public:
  // `corpus` is not empty, and lives longer.
  explicit Mutation(const std::vector<std::string>& corpus) : corpus_(corpus) {}

  // An input of the corpus with one to four changes.
  std::string Next();

 private:
  void Change(std::string& input);
  std::size_t Below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }
  std::string_view PieceOf(std::string_view text);

  const std::vector<std::string>& corpus_;
  std::mt19937_64 engine_{1};  // its sequence is fixed by the language; the library's distributions are not
};

}  // namespace quenlor::fuzz
