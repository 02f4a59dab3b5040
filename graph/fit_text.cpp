// SPDX-License-Identifier: MIT
#include "graph/fit_text.h"

#include <algorithm>

#include "data/text_number.h"
#include "data/utf8.h"

namespace quenlor::graph {
namespace {

constexpr std::size_t kMostBytes = 4096;

}  // namespace

std::string_view LongestPrefix(std::string_view text, const std::function<bool(std::string_view)>& fits) {
  std::size_t fitting = 0;
  std::size_t too_long = std::min(text.size(), kMostBytes) + 1;
  while (too_long - fitting > 1) {
    const std::size_t middle = fitting + (too_long - fitting) / 2;
    (fits(data::Utf8Prefix(text, middle)) ? fitting : too_long) = middle;
  }
  return data::Utf8Prefix(text, fitting);
}

double HeightToFit(std::string_view text, double width, double height, double smallest,
                   const TextMeasure& text_width) {
  const double wide = text_width(text, height);
  if (wide <= width || height <= smallest) return height;
  double fits = std::clamp(height * std::max(width, 0.0) / wide, smallest, height);
  while (fits > smallest && text_width(text, fits) > width) fits = std::max(0.97 * fits, smallest);
  return fits;
}

std::string FitText(std::string_view text, double width,
                    const std::function<double(std::string_view)>& text_width) {
  if (text.size() <= kMostBytes && text_width(text) <= width) return std::string(text);
  const auto cut = [](std::string_view beginning) {
    return std::string(beginning.substr(0, beginning.find_last_not_of(' ') + 1)).append(kEllipsis);
  };
  const auto fits = [&](std::string_view beginning) { return text_width(cut(beginning)) <= width; };
  return fits({}) ? cut(LongestPrefix(text, fits)) : std::string();
}

std::string FitNumber(std::string_view text, double width,
                      const std::function<double(std::string_view)>& text_width) {
  if (!data::LeadingNumber(text)) return FitText(text, width, text_width);
  if (text.size() <= kMostBytes && text_width(text) <= width) return std::string(text);
  return FitText(kEllipsis, width, text_width);
}

}  // namespace quenlor::graph
