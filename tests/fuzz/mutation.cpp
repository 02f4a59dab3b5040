// SPDX-License-Identifier: MIT
#include "tests/fuzz/mutation.h"

#include <iterator>

namespace quenlor::fuzz {
namespace {

using namespace std::string_view_literals;

// Long enough to pass the limit of a received line.
constexpr std::size_t kLongest = 20'000;

// What the parsers look for; blind changes rarely make it.
constexpr std::string_view kCharacters = ",; .:=\r\n-09E\x06\0\x80\xC3\xE9\xFF"sv;
constexpr std::string_view kWords[] = {
    "\r\n",         "E400",          "1,5",    "\xC3\xA9", "\xEF\xBB\xBF", "No.,",   "\nNo.;",
    "\nInfo,No.2,", "\nInfo;No.30;", "\nAxis", "\nDate",   "\nMemo",       "\nTemp", "\n--\n",
    "Q\r\n",        "STOP\r\n",      "&h",     "White",    "\n--",
};

}  // namespace

std::string Mutation::Next() {
  std::string input = corpus_[Below(corpus_.size())];
  for (std::size_t changes = 1 + Below(4); changes > 0; --changes) Change(input);
  return input;
}

std::string_view Mutation::PieceOf(std::string_view text) {
  const std::size_t begin = Below(text.size() + 1);
  return text.substr(begin, Below(text.size() - begin + 1));
}

void Mutation::Change(std::string& input) {
  const std::size_t at = Below(input.size() + 1);
  switch (Below(8)) {
    case 0:  // one byte is another
      if (at < input.size()) input[at] = static_cast<char>(Below(256));
      break;
    case 1:  // one bit is another
      if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << Below(8)));
      break;
    case 2:  // a few bytes are lost
      input.erase(at, 1 + Below(8));
      break;
    case 3:  // the end is lost
      input.resize(at);
      break;
    case 4: {  // a piece comes again and again
      const std::string piece(PieceOf(input));
      for (std::size_t times = 1 + Below(8); times > 0; --times) input.insert(at, piece);
      break;
    }
    case 5:  // a piece of another input
      input.insert(at, PieceOf(corpus_[Below(corpus_.size())]));
      break;
    case 6:
      input.insert(at, 1, kCharacters[Below(kCharacters.size())]);
      break;
    default:
      input.insert(at, kWords[Below(std::size(kWords))]);
  }
  if (input.size() > kLongest) input.resize(kLongest);
}

}  // namespace quenlor::fuzz
