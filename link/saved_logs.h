// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace quenlor::link {

// What tells two contents of a file apart, gathered piece by piece: their length, and the FNV-1a hash of 64
// bits.
struct Fingerprint {
  std::uint64_t size = 0;
  std::uint64_t hash = 0xCBF29CE484222325u;

  void Add(std::string_view bytes) {
    size += bytes.size();
    for (const unsigned char byte : bytes) hash = (hash ^ byte) * 0x100000001B3u;
  }
  bool operator==(const Fingerprint&) const = default;
};

// Which raw logs hold nothing that was not saved in a data file, kept in "Saved.txt" in the program folder: a
// line each, with name, length and fingerprint as they were when the document was saved. A log that has grown
// since, or was changed, is another one.
class SavedLogs {
 public:
  SavedLogs(platform::FileSystem& files, const std::string& folder)
      : files_(files), path_(folder + "/Saved.txt") {}

  void Note(const std::map<std::string, Fingerprint>& logs);
  bool Holds(const std::string& name, std::string_view content) const;
  // The same by its size alone, for whoever does not want to read all of it.
  bool KnowsOfSize(const std::string& name, std::uint64_t size) const;

 private:
  std::map<std::string, Fingerprint> Read() const;

  platform::FileSystem& files_;
  std::string path_;
};

}  // namespace quenlor::link
