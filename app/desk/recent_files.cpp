// SPDX-License-Identifier: MIT
#include "app/desk/recent_files.h"

#include <algorithm>
#include <utility>

#include "app/desk/session.h"
#include "data/text_lines.h"

namespace quenlor::app {

RecentFiles::RecentFiles(platform::FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {
  const auto text = files_.Read(path_);
  if (!text.ok()) return;
  data::TextLines lines(text.value());
  while (const auto line = lines.Next()) {
    if (!line->empty() && paths_.size() < kMost) paths_.emplace_back(*line);
  }
}

// A name with a line end in it would be two.
void RecentFiles::Note(const std::string& path) {
  if (path.find_first_of("\r\n") != std::string::npos) return;
  if (!paths_.empty() && paths_.front() == path) return;
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMost) paths_.resize(kMost);
  std::string text;
  for (const std::string& noted : paths_) text += noted + "\r\n";
  files_.Replace(path_, text);  // a list that cannot be kept is worth no word
}

std::vector<std::string> RecentFiles::Paths() const {
  std::vector<std::string> there;
  std::ranges::copy_if(paths_, std::back_inserter(there),
                       [&](const auto& path) { return files_.Exists(path); });
  return there;
}

std::string RecentFiles::Folder() const { return paths_.empty() ? std::string() : FolderOf(paths_.front()); }

}  // namespace quenlor::app
