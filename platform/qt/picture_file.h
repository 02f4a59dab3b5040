// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <functional>
#include <string>

#include "platform/drawing_surface.h"
#include "platform/printer.h"

// Drawings as the bytes of files. Equal drawings give equal bytes: nothing in them tells when or by which run
// of the program they were made.
namespace quenlor::platform::qt {

using DrawPicture = std::function<void(DrawingSurface&)>;

// A picture of that many pixels. SVG and PDF are lines and letters, drawn finer than pixels; a PNG may be so
// many times finer, the same picture with more pixels.
std::string PngOf(QSize pixels, const DrawPicture& draw, double times = 1);
std::string SvgOf(QSize pixels, const DrawPicture& draw);
std::string PdfOf(QSize pixels, const DrawPicture& draw);

enum class Paper { kA4, kLetter };
struct PageSetup {
  Paper paper = Paper::kA4;
  bool landscape = false;
};

PageSize PageSizeOf(const PageSetup& setup);  // what is inside the margins

// A document of pages, each on such paper with the usual margins; `draw` is called for each, from 0.
std::string PdfOf(const PageSetup& setup, const std::string& title, int pages,
                  const std::function<void(DrawingSurface& page, int number)>& draw);

}  // namespace quenlor::platform::qt
