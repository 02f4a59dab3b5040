// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>

#include "data/utf8.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/reception.h"
#include "tests/link/receiver.h"

namespace quenlor::fuzz {
namespace {

constexpr char kLog[] = "/lab/Com_1.txt";

// A receiver with a raw log whose clock goes on by a second with every line.
struct Listening : link::Receiver {
  Listening(bool numeric, bool decimal_comma) {
    Number(numeric);
    DecimalComma(decimal_comma);
    on_line = [this] { clock.Advance(1.0); };
    raw_log.RewriteRawLog(1);
  }
};

// Lengths of chunks that differ from input to input, most of them short.
class Chunks {
 public:
  explicit Chunks(std::string_view input) {
    for (const char c : input) state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  }

  std::size_t Next() {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    const std::uint64_t random = state_ >> 33;
    return random % 8 == 0 ? random / 8 % 600 : random / 8 % 12;
  }

 private:
  std::uint64_t state_ = 0xCBF29CE484222325u;
};

// How many lines are longer than what is kept of a line, the last one counted although it has no end.
std::size_t LongLines(std::string_view input) {
  std::size_t lines = 0;
  std::size_t length = 0;
  for (const char c : input) {
    const std::size_t before = length;
    length += c == '\x06' ? 4 : c == '\n' || c == '\r' ? 0 : 1;  // an ACK is shown as "<AK>"
    if (before <= link::Reception::kLongestLine && length > link::Reception::kLongestLine) ++lines;
    if (c == '\r') length = 0;
  }
  return lines;
}

void CheckReadings(const Listening& whole, std::string_view input) {
  const auto ends = static_cast<std::size_t>(std::count(input.begin(), input.end(), '\r'));
  Check(whole.received.size() == ends, "a carriage return ends a line");
  Check(static_cast<std::size_t>(whole.Readings()) == ends, "every line is a reading");
  Check(whole.errors.size() == LongLines(input), "a line that is too long is told once");
  for (const std::string& line : whole.received) {
    Check(data::IsUtf8(line), "a line is UTF-8");
    Check(line.find('\x06') == line.npos && line.find('\n') == line.npos,
          "ACK and line feed are no characters");
    // A byte beyond ASCII may become two.
    Check(line.size() <= 2 * link::Reception::kLongestLine, "a line has an end");
  }
  const std::string log = whole.files.Content(kLog);
  Check(static_cast<std::size_t>(data::ParseDataFile(log).table.Rows()) == ends + 2,
        "all readings are on the disk");
}

void CheckSame(const Listening& a, const Listening& b) {
  Check(a.received == b.received, "chunks do not change the lines");
  Check(a.errors == b.errors && a.answers == b.answers, "chunks do not change what is told");
  Check(link::TableLines(a.Table()) == link::TableLines(b.Table()), "chunks do not change the table");
  Check(a.files.Content(kLog) == b.files.Content(kLog), "chunks do not change the raw log");
}

// The same characters after a line's end give the same lines again.
void CheckNothingIsLeft(std::string_view input) {
  Listening listening(false, false);
  listening.Feed(input);
  const auto lines = static_cast<std::ptrdiff_t>(listening.received.size());
  const std::size_t errors = listening.errors.size();
  listening.Feed("\r");
  listening.Feed(input);
  const auto& received = listening.received;
  Check(std::equal(received.begin(), received.begin() + lines, received.end() - lines, received.end()),
        "a line's end leaves nothing of the line");
  Check(listening.errors.size() == 2 * errors, "every line that is too long is told");
}

}  // namespace

void Reception(std::string_view input) {
  CheckNothingIsLeft(input);
  for (const bool decimal_comma : {false, true}) {
    for (const bool numeric : {false, true}) {
      Listening whole(numeric, decimal_comma);
      whole.Feed(input);
      CheckReadings(whole, input);

      Listening in_chunks(numeric, decimal_comma);
      Chunks chunks(input);
      for (auto rest = input; !rest.empty();) {
        const auto chunk = rest.substr(0, chunks.Next());
        in_chunks.Feed(chunk);
        rest.remove_prefix(chunk.size());
      }
      CheckSame(whole, in_chunks);
    }
  }
}

}  // namespace quenlor::fuzz
