// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "instrument/viscometer.h"

namespace quenlor::instrument {

// An instrument on a desk where it is always 25 degrees: it writes "1,100.0,25.0", "2,100.0,25.0", … once a
// second, unless the options say otherwise.
inline Viscometer With(std::string_view options) {
  auto parsed = ParseOptionsText("--viscosity const:100 --temperature const:25 --form numbered " +
                                 std::string(options));
  if (const auto* error = std::get_if<OptionsError>(&parsed)) {
    ADD_FAILURE() << error->text;
    return Viscometer(ViscometerOptions{});
  }
  return Viscometer(std::get<ViscometerOptions>(parsed));
}

// Everything that has left by then, for as long as more is due.
inline std::string EmitAll(Viscometer& viscometer, double now) {
  std::string bytes = viscometer.Emit(now);
  while (viscometer.NextDue() && *viscometer.NextDue() <= now) bytes += viscometer.Emit(now);
  return bytes;
}

// The lines of a text of which each ends with carriage return and line feed; what has no end comes last.
inline std::vector<std::string> Lines(std::string_view bytes) {
  std::vector<std::string> lines;
  while (!bytes.empty()) {
    const auto end = bytes.find("\r\n");
    lines.emplace_back(bytes.substr(0, end));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 2);
  }
  return lines;
}

}  // namespace quenlor::instrument
