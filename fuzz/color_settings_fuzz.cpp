// SPDX-License-Identifier: MIT
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "graph/color_settings.h"
#include "platform/memory/memory_file_system.h"

namespace quenlor::fuzz {

void ColorSettings(std::string_view input) {
  constexpr const char* kPath = "/lab/Color.txt";
  const auto settings = graph::ColorSettings::FromText(input);
  if (settings) {
    for (const graph::Color color : settings->Colors())
      Check(color.value <= 0xFFFFFF, "a colour has 24 bits");
    Check(graph::ColorSettings::FromText(settings->Text()) == settings, "what is written reads as it was");
  }

  platform::memory::MemoryFileSystem files;
  files.Put(kPath, std::string(input));
  platform::KeptFile file(files, kPath);
  const graph::ColorSettings loaded = graph::LoadColor(file);
  Check(loaded == settings.value_or(graph::ColorSettings()), "a damaged file gives the defaults");
  Check(files.Content(kPath) == (settings ? std::string(input) : loaded.Text()),
        "a damaged file is made anew, no other one is touched");
}

}  // namespace quenlor::fuzz
