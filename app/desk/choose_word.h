// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quenlor::app {

// Finds a word of the command line among those that its option takes; what is wrong, with all of them named,
// when it is none of them.
inline std::string ChooseWord(const std::string& option, const std::string& word,
                              std::span<const std::string_view> words, std::size_t& index) {
  std::string all;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == word) {
      index = i;
      return {};
    }
    all.append(all.empty() ? "" : ", ").append(words[i]);
  }
  return option + " needs one of " + all + ", not " + word;
}

}  // namespace quenlor::app
