// SPDX-License-Identifier: MIT
#include "app/standard_streams.h"

#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

TEST(StandardStreams, ATerminalObeysNothingThatStandsInTheData) {
  EXPECT_EQ(ForTerminal("a\x1B]0;title\x07 b\x9C\x7F\r\n\tc\rd\xC2\x9B"
                        "31m"),
            "a\\x1B]0;title\\x07 b\x9C\\x7F\r\n\tc\\x0Dd\\x9B"
            "31m");
  EXPECT_EQ(ForTerminal(std::string_view("\0", 1)), "\\x00");
  EXPECT_EQ(ForTerminal("25 \xC2\xB0"
                        "C \xC2\xB5Pa"),
            "25 \xC2\xB0"
            "C \xC2\xB5Pa")
      << "letters stay";
}

}  // namespace
}  // namespace quenlor::app
