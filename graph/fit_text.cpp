// SPDX-License-Identifier: MIT
#include "graph/fit_text.h"

#include <algorithm>
#include <set>

#include "data/text_number.h"
#include "data/utf8.h"

namespace quenlor::graph {
namespace {

using WidthOf = std::function<double(std::string_view)>;

constexpr std::size_t kMostBytes = 4096;

std::string_view WithoutBlanksAfter(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// The longest suffix of at most so many bytes that does not cut a character, without blanks before it.
std::string_view EndOf(std::string_view text, std::size_t bytes) {
  std::size_t begin = text.size() - bytes;
  const auto continues = [&](std::size_t at) { return at < text.size() && (text[at] & 0xC0) == 0x80; };
  while (continues(begin)) ++begin;
  return text.substr(std::min(text.find_first_not_of(' ', begin), text.size()));
}

// As much of both ends as fits with a "…" between them.
std::string FitEnds(std::string_view text, double width, const WidthOf& text_width) {
  if (text.size() <= kMostBytes && text_width(text) <= width) return std::string(text);
  const auto cut = [&](std::size_t kept) {
    std::string ends(WithoutBlanksAfter(data::Utf8Prefix(text, kept - kept / 2)));
    return ends.append(kEllipsis).append(EndOf(text, kept / 2));
  };
  std::size_t fitting = 0;
  std::size_t too_long = std::min(text.size(), kMostBytes);
  while (too_long - fitting > 1) {
    const std::size_t middle = fitting + (too_long - fitting) / 2;
    (text_width(cut(middle)) <= width ? fitting : too_long) = middle;
  }
  const std::string fits = cut(fitting);
  return text_width(fits) <= width ? fits : std::string();
}

// The pieces of the text that begin at those bytes, as long as there is room for, with a "…" for the rest.
std::string FitPieces(std::string_view text, const std::set<std::size_t>& begins, double width,
                      const WidthOf& text_width) {
  const auto pieces = [&](std::size_t length) {
    std::string shown;
    std::size_t end = 0;  // of what is shown
    for (const std::size_t begin : begins) {
      if (begin > end) shown += kEllipsis;
      const std::size_t from = std::max(begin, end);
      const std::size_t to = begin + data::Utf8Prefix(text.substr(begin), length).size();
      if (to > from) shown += text.substr(from, to - from);
      end = std::max(end, to);
    }
    return end < text.size() ? shown.append(kEllipsis) : shown;
  };
  std::size_t fitting = 4;  // bytes, of which any character has room
  for (std::size_t step = 64; step > 0; step /= 2) {
    if (text_width(pieces(fitting + step)) <= width) fitting += step;
  }
  while (fitting > 1 && text_width(pieces(fitting)) > width) --fitting;
  const std::string fits = pieces(fitting);
  return text_width(fits) <= width ? fits : FitEnds(text, width, text_width);
}

// Where the name begins to differ from another one: at its last character, if that one only goes on.
std::size_t FirstDifference(std::string_view name, std::string_view other) {
  const auto [end, _] = std::ranges::mismatch(name, other);
  const auto same = static_cast<std::size_t>(end - name.begin());
  return data::Utf8Prefix(name, std::min(same, name.size() - 1)).size();
}

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
    return std::string(WithoutBlanksAfter(beginning)).append(kEllipsis);
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

std::vector<std::string> FitNames(std::span<const std::string> names, std::span<const double> widths,
                                  const WidthOf& text_width) {
  std::vector<std::string> shown;
  for (std::size_t i = 0; i < names.size(); ++i) shown.push_back(FitEnds(names[i], widths[i], text_width));

  const std::vector<std::string> ends = shown;
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::set<std::size_t> differences;
    for (std::size_t j = 0; j < names.size(); ++j) {
      if (ends[j] == ends[i] && names[j] != names[i] && !names[i].empty())
        differences.insert(FirstDifference(names[i], names[j]));
    }
    if (!differences.empty()) shown[i] = FitPieces(names[i], differences, widths[i], text_width);
  }
  return shown;
}

}  // namespace quenlor::graph
