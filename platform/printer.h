// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "platform/drawing_surface.h"
#include "platform/result.h"

namespace quenlor::platform {

// Pages are drawn in dots this fine, on whatever they come to stand: finer is no printer that an office has.
inline constexpr int kPageDotsPerInch = 1200;
inline constexpr double kPageDotsPerPen = kPageDotsPerInch / 96.0;

// What a printer can print on of its page, in twips.
struct PageSize {
  double width = 0;
  double height = 0;
  bool operator==(const PageSize&) const = default;
};

// That page in dots.
inline PixelRectangle DotsOf(const PageSize& page) {
  constexpr double kLargest = 1e6;
  const auto dots = [&](double twips) {
    return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerInch * kPageDotsPerInch, 0.0, kLargest)));
  };
  return {0, 0, dots(page.width), dots(page.height)};
}

// The printer that the operator has chosen last, and the box to choose it with (CommonDialog1).
//
// A page is a surface that is laid over all that can be printed on; its pen of width 1 is 1/96 inch wide.
class Printer {
 public:
  virtual ~Printer() = default;

  // Shows the printer dialog. False when it is cancelled or cannot be shown: then all stays as chosen before.
  // A file to print into is proposed under the title of what is to be printed.
  virtual bool Choose(const std::string& title) = 0;

  virtual int Copies() const = 0;     // as chosen; at least one
  virtual PageSize Page() const = 0;  // as chosen; A4 or Letter, as is usual here, where no printer is known

  // Prints one document of that many pages, once. `draw` is called for each page, from 0.
  virtual Done Print(const std::string& title, int pages,
                     const std::function<void(DrawingSurface& page, int number)>& draw) = 0;
};

}  // namespace quenlor::platform
