// SPDX-License-Identifier: MIT
#include "link/reception.h"

#include <algorithm>

#include "data/utf8.h"
#include "link/line_splitter.h"

namespace quenlor::link {
namespace {

constexpr std::string_view kOverflowLine = "Input Buffer Overflowed";

bool IsMeaningful(char c) { return c == '\r' || c == '\n' || c == '\x06'; }

}  // namespace

void Reception::MSComm1_OnComm(int CommEvent) {
  if (CommEvent == platform::comm_event::kReceiveOverflow) {
    MSComm1_.ClearInBuffer();
    answers_.error(std::string(kOverflowLine));
  } else if (CommEvent == platform::comm_event::kReceive) {
    TakeWaiting();
  } else if (CommEvent >= 11) {
    answers_.error("Communication Error " + std::to_string(CommEvent));
  }
}

void Reception::Begin() {
  ClearLine();
  bytes_ = 0;
  lines_ = 0;
  last_byte_at_ = 0;
}

void Reception::ClearLine() {
  LineBuffer.clear();
  line_cut_ = false;
}

void Reception::TakeWaiting() {
  if (taking_) return;
  taking_ = true;
  const std::string Input = MSComm1_.Input();
  if (!Input.empty()) {
    bytes_ += Input.size();
    last_byte_at_ = clock_.Now().seconds;
  }
  TakeCharacters(Input);
  taking_ = false;
}

void Reception::TakeCharacters(std::string_view Input) {
  while (!Input.empty()) {
    const auto plain = static_cast<std::size_t>(std::ranges::find_if(Input, IsMeaningful) - Input.begin());
    Keep(Input.substr(0, plain));
    if (plain == Input.size()) return;
    const char ReceivedChar = Input[plain];
    if (ReceivedChar == '\x06') Keep("<AK>");
    Input.remove_prefix(plain + 1);
    if (ReceivedChar == '\r' && !ProcessLine()) return;
  }
}

void Reception::Keep(std::string_view characters) {
  const std::size_t room = kLongestLine - LineBuffer.size();
  LineBuffer += characters.substr(0, room);
  if (characters.size() <= room || line_cut_) return;
  line_cut_ = true;
  answers_.error(std::string(kOverflowLine));
}

// False when the measurement has ended over this line.
bool Reception::ProcessLine() {
  answers_.line_begins();
  ++lines_;
  const std::string line = data::ToUtf8(std::move(LineBuffer));
  ClearLine();
  answers_.line_received(line);

  SplitLine(line, {settings_.IsOn(data::setting::kNum), settings_.DecimalComma()}, fields_);
  const std::vector<std::string_view> fields(fields_.begin(), fields_.end());
  if (document_.AppendReading(fields, clock_.Now(), [this](auto row) { raw_log_.AppendRawLog(row); }))
    return true;
  answers_.runs_used_up();
  return false;
}

}  // namespace quenlor::link
