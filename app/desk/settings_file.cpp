// SPDX-License-Identifier: MIT
#include "app/desk/settings_file.h"

#include "data/utf8.h"

namespace quenlor::app {
namespace {

constexpr std::size_t kSensibleSize = 65536;  // 19 numbers; a file far beyond that is none of ours

}  // namespace

void SettingsFile::LoadSettings() {
  auto text = file_.Read();
  if (NotFound(text)) return WriteDefaultSettings();
  if (!text.ok()) return list_.SetDefaults(system_writes_comma_);
  text.value().resize(std::min(text.value().size(), kSensibleSize));
  list_.Parse(data::ToUtf8(std::move(text.value())), system_writes_comma_);
}

void SettingsFile::WriteDefaultSettings() {
  list_.SetDefaults(system_writes_comma_);
  SaveSettings();
}

platform::Done SettingsFile::SaveSettings() { return file_.Replace(list_.Text()); }

}  // namespace quenlor::app
