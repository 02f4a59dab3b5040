// SPDX-License-Identifier: MIT
#include "platform/qt/plain_tip.h"

#include <QTextDocument>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

TEST(PlainTip, WhatLooksLikeMarkupIsShownAsItIs) {
  const QString received = QStringLiteral("<b>25</b> & more");
  const QString tip = PlainTip(received);
  ASSERT_TRUE(Qt::mightBeRichText(tip));
  QTextDocument shown;
  shown.setHtml(tip);
  EXPECT_EQ(shown.toPlainText(), received);
}

TEST(PlainTip, AnyOtherTextStaysAsItIs) {
  for (const char* text : {"", "12.5 mPa.s", "a < b"}) {
    EXPECT_EQ(PlainTip(QString::fromUtf8(text)), QString::fromUtf8(text));
  }
}

}  // namespace
}  // namespace quenlor::platform::qt
