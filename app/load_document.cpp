// SPDX-License-Identifier: MIT
#include "app/load_document.h"

#include "data/data_file.h"
#include "data/date_time.h"

namespace quenlor::app {

void LoadDocument(const std::string& path, std::string bytes, const std::string& file_date,
                  data::SettingsList& settings, data::Document& document) {
  data::DataFileContents contents = data::ParseDataFile(std::move(bytes));
  data::ApplyAxisSettings(contents.axis, settings);
  document.Load(std::move(contents), NameWithoutFolder(path), file_date);
}

std::string FileDate(const platform::FileSystem& files, const std::string& path) {
  const auto modified = files.ModifiedAt(path);
  return modified.ok() ? data::DateTimeText(modified.value()) : std::string();
}

std::string NameWithoutFolder(const std::string& path) {
#ifdef _WIN32
  const std::size_t slash = path.find_last_of("/\\");
#else
  const std::size_t slash = path.find_last_of('/');
#endif
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace quenlor::app
