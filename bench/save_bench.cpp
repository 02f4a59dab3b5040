// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "bench/open_document.h"
#include "bench/pair.h"
#include "bench/readings.h"
#include "data/data_file_writer.h"
#include "platform/qt/qt_file_system.h"

namespace quenlor::bench {
namespace {

constexpr const char* kSaved = "quenlor-bench-save.csv";
constexpr const char* kPlain = "quenlor-bench-plain.csv";

void Require(bool worked) {
  if (!worked) std::abort();
}

// One buffer into a file beside the old one, synced, and put into its place.
void WritePlainly(const std::string& bytes) {
  const std::string beside = std::string(kPlain) + ".new";
  const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Require(file >= 0);
  for (std::size_t written = 0; written < bytes.size();) {
    const ssize_t count = ::write(file, bytes.data() + written, bytes.size() - written);
    Require(count > 0);
    written += static_cast<std::size_t>(count);
  }
  Require(::fsync(file) == 0 && ::close(file) == 0);
  Require(::rename(beside.c_str(), kPlain) == 0);
}

Pair Save(std::int64_t readings) {
  const auto opened = std::make_shared<OpenDocument>();
  opened->Open(DataFileText(readings));
  const auto bytes = std::make_shared<std::string>();
  data::WriteDataFile(opened->session.Document(), opened->session.List(),
                      [&](std::string_view piece) { bytes->append(piece); });
  const auto remove = std::shared_ptr<void>(nullptr, [](void*) {
    ::unlink(kSaved);
    ::unlink(kPlain);
  });
  return {.ours =
              [opened, remove] {
                return Seconds([&] {
                  Require(!platform::qt::QtFileSystem().Replace(kSaved, [&](platform::ByteSink& sink) {
                    data::WriteDataFile(opened->session.Document(), opened->session.List(),
                                        [&](std::string_view piece) { sink.Write(piece); });
                  }));
                });
              },
          .baseline = [bytes, remove] { return Seconds([&] { WritePlainly(*bytes); }); }};
}

}  // namespace

void AddSaveRows() {
  AddRow({.work = "save: 10 M readings, to writing and syncing one buffer", .goal = "at most 2"},
         [] { return Save(10'000'000); });
}

}  // namespace quenlor::bench
