// SPDX-License-Identifier: MIT
#include "graph/fit_text.h"

#include "data/utf8.h"

namespace quenlor::graph {
namespace {

constexpr std::string_view kEllipsis = "…";
// More than any caption has room for; longer texts are not measured as a whole.
constexpr std::size_t kMostBytes = 4096;

}  // namespace

std::string FitText(std::string_view text, double width,
                    const std::function<double(std::string_view)>& text_width) {
  const std::string_view whole = text;
  text = data::Utf8Prefix(text, kMostBytes);
  if (text.size() == whole.size() && text_width(text) <= width) return std::string(text);
  const auto cut = [&](std::size_t bytes) {
    const std::string_view beginning = data::Utf8Prefix(text, bytes);
    return std::string(beginning.substr(0, beginning.find_last_not_of(' ') + 1)).append(kEllipsis);
  };
  const auto fits = [&](std::size_t bytes) { return text_width(cut(bytes)) <= width; };
  if (!fits(0)) return {};
  std::size_t fitting = 0;
  std::size_t too_long = text.size() + 1;
  while (too_long - fitting > 1) {
    const std::size_t middle = fitting + (too_long - fitting) / 2;
    (fits(middle) ? fitting : too_long) = middle;
  }
  return cut(fitting);
}

}  // namespace quenlor::graph
