// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

namespace quenlor::app {

// The window's grid, in pixels: between neighbours, and to its edge.
inline constexpr int kSpacing = 8;
inline constexpr int kEdge = 10;

// A frame of the bar above table and graph, its caption in the line of its border. What is put into one gets
// the same room around it in all of them.
QGroupBox* NewFrame(const char* name, const QString& caption, QWidget* parent);
void SetFrameLayout(QGroupBox* frame, QLayout* layout);

}  // namespace quenlor::app
