// SPDX-License-Identifier: MIT
#include "data/date_time.h"

#include <algorithm>
#include <chrono>

namespace quenlor::data {
namespace {

using std::chrono::days;
using std::chrono::hh_mm_ss;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year_month_day;

// The texts have four places for the year; a time outside shows as the nearest one that fits.
constexpr sys_seconds kFirst = sys_days{std::chrono::year{0} / 1 / 1};
constexpr sys_seconds kLast = sys_days{std::chrono::year{10000} / 1 / 1} - seconds{1};

sys_seconds Showable(std::int64_t local_second) {
  return std::clamp(sys_seconds{seconds{local_second}}, kFirst, kLast);
}

// The digits of a number that has no more than so many.
void AppendPadded(std::string& text, std::int64_t number, std::size_t places) {
  text.append(places, '0');
  for (auto place = text.rbegin(); number > 0; number /= 10) *place++ = static_cast<char>('0' + number % 10);
}

}  // namespace

std::string DateText(std::int64_t local_second) {
  const year_month_day date{std::chrono::floor<days>(Showable(local_second))};
  std::string text;
  AppendPadded(text, int{date.year()}, 4);
  text += '/';
  AppendPadded(text, unsigned{date.month()}, 2);
  text += '/';
  AppendPadded(text, unsigned{date.day()}, 2);
  return text;
}

std::string TimeText(std::int64_t local_second) {
  const sys_seconds time = Showable(local_second);
  const hh_mm_ss<seconds> of_day{time - std::chrono::floor<days>(time)};
  std::string text;
  AppendPadded(text, of_day.hours().count(), 2);
  text += ':';
  AppendPadded(text, of_day.minutes().count(), 2);
  text += ':';
  AppendPadded(text, of_day.seconds().count(), 2);
  return text;
}

std::string DateTimeText(std::int64_t local_second) {
  return DateText(local_second) + ' ' + TimeText(local_second);
}

}  // namespace quenlor::data
