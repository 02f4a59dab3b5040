// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quenlor::graph {

// The text itself where it is no wider than that, else as much of its beginning as fits before a "…", without
// blanks between the two. Empty when not even that fits. `text_width` measures a text in the unit of `width`.
std::string FitText(std::string_view text, double width,
                    const std::function<double(std::string_view)>& text_width);

}  // namespace quenlor::graph
