// SPDX-License-Identifier: MIT
#include <cmath>

#include "data/settings_list.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/port_settings.h"
#include "platform/line_settings.h"

namespace quenlor::fuzz {
namespace {

void CheckElements(const data::SettingsList& settings) {
  for (int element = 0; element < data::setting::kElements; ++element) {
    Check(settings[element].find_first_of("\r\n") == std::string::npos, "an element is one line");
    Check(settings.Index(element) >= -1 && settings.Index(element) <= 99'999,
          "an index has at most five digits");
    Check(std::isfinite(settings.Number(element)), "an element reads as a finite number");
    if (settings.Index(element) > 0) Check(settings.IsOn(element), "a number above 0 is on");
  }
  const int ports = link::PortCount(settings);
  Check(ports >= 4 && ports <= 256, "the Com Port menu has 4 to 256 items");
  const auto port = link::ApplyPortSettings(settings);
  if (!port) return;
  Check(port->CommPort >= 1 && port->CommPort <= ports, "the chosen port is one of the menu");
  Check(platform::ParseLineSettings(port->Settings).has_value(), "a line understands what the menu says");
}

}  // namespace

void SettingsList(std::string_view input) {
  for (const bool decimal_comma : {false, true}) {
    data::SettingsList settings;
    settings.Parse(input, decimal_comma);
    CheckElements(settings);

    // A second byte-order mark belongs to the first element, where it would now be taken for the file's.
    if (settings[0].starts_with("\xEF\xBB\xBF")) continue;
    data::SettingsList again;
    again.Parse(settings.Text(), !decimal_comma);
    for (int element = 0; element < data::setting::kElements; ++element) {
      Check(again[element] == settings[element], "what is written reads as it was");
    }
  }
}

}  // namespace quenlor::fuzz
