// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <string>

#include <gtest/gtest.h>

namespace quenlor {

// What a reader finds as text on the pages of a PDF, one page after the other, each ended by a form feed.
inline std::string PdfText(const std::string& pdf) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("page.pdf")));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(pdf));
  file.close();
  QProcess reader;
  reader.start(QStringLiteral("pdftotext"),
               {QStringLiteral("-layout"), file.fileName(), QStringLiteral("-")});
  EXPECT_TRUE(reader.waitForFinished());
  return reader.readAllStandardOutput().toStdString();
}

}  // namespace quenlor
