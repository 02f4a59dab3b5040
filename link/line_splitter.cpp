// SPDX-License-Identifier: MIT
#include "link/line_splitter.h"

#include "data/text_number.h"

namespace quenlor::link {
namespace {

using data::IsDigit;

// Fills fields from the left; reuses the strings of the line before, whose memory fits.
class FieldFiller {
 public:
  explicit FieldFiller(std::vector<std::string>& fields) : fields_(fields) { Open(); }

  void Append(char c) { fields_[used_ - 1].push_back(c); }
  void Advance() { Open(); }
  void Finish() { fields_.resize(used_ == 1 && fields_[0].empty() ? 0 : used_); }

 private:
  void Open() {
    if (used_ == fields_.size()) fields_.emplace_back();
    fields_[used_++].clear();
  }

  std::vector<std::string>& fields_;
  std::size_t used_ = 0;
};

void SplitAtSeparators(std::string_view line, FieldFiller& fields) {
  const char separator = line.find(';') != std::string_view::npos ? ';' : ',';
  bool in_field = false;
  for (const char c : line) {
    if (c == separator || (c == ' ' && in_field)) {
      fields.Advance();
      in_field = false;
    } else {
      fields.Append(c);
      in_field = IsDigit(c);
    }
  }
}

void PickNumbers(std::string_view line, bool decimal_comma, FieldFiller& fields) {
  constexpr std::string_view kNumberSigns = "+-/:";
  bool in_field = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    const bool comma_in_number = c == ',' && decimal_comma && i > 0 && i + 1 < line.size() &&
                                 IsDigit(line[i - 1]) && IsDigit(line[i + 1]);
    if (IsDigit(c) || kNumberSigns.find(c) != std::string_view::npos || comma_in_number) {
      fields.Append(c);
      in_field = true;
    } else if (c == '.') {
      fields.Append(decimal_comma ? ',' : '.');
      in_field = true;
    } else if (in_field) {
      fields.Advance();
      in_field = false;
    }
  }
}

}  // namespace

void SplitLine(std::string_view line, LineForm form, std::vector<std::string>& fields) {
  FieldFiller filler(fields);
  if (form.numeric) {
    PickNumbers(line, form.decimal_comma, filler);
  } else {
    SplitAtSeparators(line, filler);
  }
  filler.Finish();
}

}  // namespace quenlor::link
