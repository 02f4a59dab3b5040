// SPDX-License-Identifier: MIT
#include "app/desk/ports_file.h"

namespace quenlor::app {
namespace {

constexpr std::size_t kSensibleSize = std::size_t{1} << 20;

}  // namespace

void PortsFile::LookForDevices() {
  looked_ = true;
  // Two programs that see a new device at once must not give its number twice; the later one finds it
  // in the file.
  const auto lock = files_.Lock(path_ + ".lock");
  auto text = files_.Read(path_);
  if (NotFound(text)) text = std::string();
  if (!text.ok() || text.value().size() > kSensibleSize) return;
  directory_.Parse(text.value());
  if (directory_.Assign(devices_.Present()) && lock) files_.Replace(path_, directory_.Text());
}

}  // namespace quenlor::app
