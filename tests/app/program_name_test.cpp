// SPDX-License-Identifier: MIT
#include "app/program_name.h"

#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

TEST(ProgramName, IsThatOfTheProgramFile) {
  EXPECT_EQ(ProgramName("/usr/bin/quenlor"), "quenlor");
  EXPECT_EQ(ProgramName("/home/lab/lab2"), "lab2");
  EXPECT_EQ(ProgramName("C:/lab/Quenlor.EXE"), "Quenlor");
  EXPECT_EQ(ProgramName("/opt/quenlor-1.2"), "quenlor-1.2");
}

}  // namespace
}  // namespace quenlor::app
