// SPDX-License-Identifier: MIT
#include "platform/qt/exact_path.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

TEST(ExactPath, IsWhatTheAddressStandsForByteForByte) {
  EXPECT_EQ(PathOf(QUrl::fromEncoded("file:///lab/a.csv")), "/lab/a.csv");
  EXPECT_EQ(PathOf(QUrl::fromEncoded("file:///lab/100%25%20%C3%B6l%23.csv")), "/lab/100% öl#.csv");
#ifndef _WIN32
  EXPECT_EQ(PathOf(QUrl::fromEncoded("file:///lab/%F6l%FF.csv")), "/lab/\xF6l\xFF.csv");
#endif
  EXPECT_EQ(PathOf(QUrl::fromLocalFile(QStringLiteral("/lab/50%25 öl?.csv"))), "/lab/50%25 öl?.csv");
}

}  // namespace
}  // namespace quenlor::platform::qt
