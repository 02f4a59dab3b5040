// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <cstdio>

#include "bench/open_document.h"
#include "platform/qt/qt_file_system.h"

// What a picture of a data file costs at the least: opening the file, and writing a picture of that size.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 3) {
    std::fputs("usage: quenlor-bench-open-and-png FILE OUT.png\n", stderr);
    return 2;
  }
  quenlor::bench::OpenDocument opened;
  auto bytes = quenlor::platform::qt::QtFileSystem().Read(argv[1]);
  if (!bytes.ok()) return 1;
  opened.Open(std::move(bytes.value()));
  QImage image(1600, 1200, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  for (int x = 0; x < image.width(); ++x) painter.drawLine(x, 500 - x % 90, x, 500 + x % 70);
  painter.end();
  return image.save(QString::fromLocal8Bit(argv[2]), "PNG") ? 0 : 1;
}
