// SPDX-License-Identifier: MIT
#include "app/desk/ports_file.h"

namespace quenlor::app {
namespace {

constexpr std::size_t kSensibleSize = std::size_t{1} << 20;

}  // namespace

platform::Result<std::string> PortsFile::Read() {
  read_ = true;
  auto text = files_.Read(path_);
  if (NotFound(text)) text = std::string();
  if (text.ok() && text.value().size() > kSensibleSize)
    text = platform::Cannot("read " + path_, {"it is too long for a list of ports"});
  if (text.ok()) directory_.Parse(text.value());
  return text;
}

platform::Done PortsFile::LookForDevices() {
  looked_ = true;
  // Two programs that see a new device at once must not give its number twice; the later one finds it
  // in the file.
  const auto lock = files_.Lock(path_ + ".lock");
  const auto text = Read();
  const bool is_new = directory_.Assign(devices_.Present());
  if (!text.ok()) return text.failure();
  if (is_new && lock) return files_.Replace(path_, directory_.Text());
  return {};
}

}  // namespace quenlor::app
