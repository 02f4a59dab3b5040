// SPDX-License-Identifier: MIT
#include "graph/fit_text.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

// Every character is ten wide.
double Width(std::string_view text) {
  return 10.0 * static_cast<double>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

TEST(FitText, WhatFitsStaysAsItIs) {
  EXPECT_EQ(FitText("sample", 60, Width), "sample");
  EXPECT_EQ(FitText("", 0, Width), "");
}

TEST(FitText, ALongerTextEndsInAnEllipsisWithinTheWidth) {
  EXPECT_EQ(FitText("sample", 59, Width), "samp…");
  EXPECT_EQ(FitText("sample", 20, Width), "s…");
  EXPECT_EQ(FitText("sample", 10, Width), "…");
}

TEST(FitText, NothingIsShownWhereNotEvenTheEllipsisFits) { EXPECT_EQ(FitText("sample", 9, Width), ""); }

TEST(FitText, CharactersAreNeverCut) { EXPECT_EQ(FitText("測定試料名", 30, Width), "測定…"); }

TEST(FitText, AnEndlessTextIsCutEvenWhereThereIsRoom) {
  const std::string text = FitText(std::string(100'000, 'x'), 1e12, Width);
  EXPECT_LT(text.size(), 5000U);
  EXPECT_TRUE(text.ends_with("…"));
}

}  // namespace
}  // namespace quenlor::graph
