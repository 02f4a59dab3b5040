// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "bench/open_document.h"
#include "bench/pair.h"
#include "bench/plain_parser.h"
#include "bench/readings.h"
#include "platform/qt/qt_file_system.h"

namespace quenlor::bench {
namespace {

constexpr const char* kFile = "quenlor-bench-open.csv";

// The same as OpenDocument::Open does with a file's bytes, but for numbers alone.
Pair FromMemory(std::int64_t readings) {
  const auto bytes = std::make_shared<const std::string>(DataFileText(readings));
  return {.ours =
              [bytes] {
                OpenDocument opened;
                std::string copy = *bytes;
                return Seconds([&] { opened.Open(std::move(copy)); });
              },
          .baseline =
              [bytes, readings] {
                PlainColumns columns;
                return Seconds([&] { columns = ParsePlainly(*bytes, static_cast<std::size_t>(readings)); });
              }};
}

std::string ReadPlainly(const char* path) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  std::string bytes(static_cast<std::size_t>(::lseek(file, 0, SEEK_END)), '\0');
  std::size_t size = 0;
  for (ssize_t count = 1; count > 0; size += static_cast<std::size_t>(count)) {
    count = ::pread(file, bytes.data() + size, bytes.size() - size, static_cast<off_t>(size));
    if (count < 0) std::abort();
  }
  ::close(file);
  return bytes;
}

// The whole road; the file is in the system's cache.
Pair FromFile(std::int64_t readings) {
  std::ofstream(kFile, std::ios::binary) << DataFileText(readings);
  const auto remove = std::shared_ptr<void>(nullptr, [](void*) { ::unlink(kFile); });
  return {.ours =
              [remove] {
                OpenDocument opened;
                return Seconds([&] {
                  auto bytes = platform::qt::QtFileSystem().Read(kFile);
                  opened.Open(std::move(bytes.value()));
                });
              },
          .baseline =
              [remove, readings] {
                PlainColumns columns;
                return Seconds(
                    [&] { columns = ParsePlainly(ReadPlainly(kFile), static_cast<std::size_t>(readings)); });
              }};
}

// Files side by side in one document, to each in a document of its own; those stay open, too, since a
// document that is dropped leaves its memory to the next one.
Pair Appended(std::int64_t readings, int files) {
  const auto bytes = std::make_shared<const std::string>(DataFileText(readings));
  return {.ours =
              [bytes, files] {
                OpenDocument all;
                double seconds = 0;
                for (int file = 0; file < files; ++file) {
                  std::string copy = *bytes;
                  seconds +=
                      Seconds([&] { file == 0 ? all.Open(std::move(copy)) : all.Append(std::move(copy)); });
                }
                return seconds;
              },
          .baseline =
              [bytes, files] {
                double seconds = 0;
                std::vector<std::unique_ptr<OpenDocument>> opened;
                for (int file = 0; file < files; ++file) {
                  std::string copy = *bytes;
                  opened.push_back(std::make_unique<OpenDocument>());
                  seconds += Seconds([&] { opened.back()->Open(std::move(copy)); });
                }
                return seconds;
              }};
}

}  // namespace

void AddOpenRows() {
  AddRow({.work = "open: 1 M readings from memory, to bare parser", .goal = "at most 1.5", .repetitions = 21},
         [] { return FromMemory(1'000'000); });
  AddRow({.work = "open: 10 M readings from memory, to bare parser", .goal = "at most 1.5"},
         [] { return FromMemory(10'000'000); });
  AddRow({.work = "open: 10 M readings from a file, to bare parser", .goal = "-"},
         [] { return FromFile(10'000'000); });
  AddRow(
      {.work = "append: ten files of 1 M readings to one document, to ten documents", .goal = "at most 1.5"},
      [] { return Appended(1'000'000, 10); });
}

}  // namespace quenlor::bench
