// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quenlor::graph {

inline constexpr std::string_view kEllipsis = "…";  // where a text was cut

// The longest beginning of the text, in whole characters, for which `fits` is true; it is true of shorter
// ones, then. No beginning is longer than four thousand bytes: nothing has room for more, and measuring takes
// time.
std::string_view LongestPrefix(std::string_view text, const std::function<bool(std::string_view)>& fits);

// How wide a text is in letters of that height.
using TextMeasure = std::function<double(std::string_view text, double text_height)>;

// The largest letters, of at most `height` and at least `smallest`, in which the text is no wider than that;
// the smallest ones where it is wider even so. Letters come in whole dots, so nothing but measuring at the
// very height tells how wide a text will be.
double HeightToFit(std::string_view text, double width, double height, double smallest,
                   const TextMeasure& text_width);

// The text itself where it is no wider than that, else as much of its beginning as fits before a "…", without
// blanks between the two. Empty when not even that fits. `text_width` measures a text in the unit of `width`.
std::string FitText(std::string_view text, double width,
                    const std::function<double(std::string_view)>& text_width);

// The same of a measured value, of which no part must be taken for the whole: where it does not fit, "…" is
// all that is shown of it. A text that does not begin with a number is cut as others are.
std::string FitNumber(std::string_view text, double width,
                      const std::function<double(std::string_view)>& text_width);

// The names of things side by side, each no wider than its own width, of which there are as many. One that
// has no room keeps both of its ends, for names often differ at the last; where two would look alike so, they
// begin at the place where they differ.
std::vector<std::string> FitNames(std::span<const std::string> names, std::span<const double> widths,
                                  const std::function<double(std::string_view)>& text_width);

}  // namespace quenlor::graph
