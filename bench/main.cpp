// SPDX-License-Identifier: MIT
#include <QGuiApplication>

#include "bench/pair.h"

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  quenlor::bench::AddOpenRows();
  quenlor::bench::AddSaveRows();
  quenlor::bench::AddReceiveRows();
  quenlor::bench::AddRedrawRows();
  quenlor::bench::AddReadoutRows();
  quenlor::bench::AddNewestReadingRows();
  return quenlor::bench::MeasureRows(argc, argv);
}
