// SPDX-License-Identifier: MIT
#include "link/port_settings.h"

#include <algorithm>

namespace quenlor::link {
namespace {

namespace setting = data::setting;

constexpr int kFewestPorts = 4;

template <std::size_t N>
std::optional<std::string_view> Caption(const std::array<std::string_view, N>& captions, int index) {
  if (index < 0 || index >= static_cast<int>(N)) return std::nullopt;
  return captions[static_cast<std::size_t>(index)];
}

}  // namespace

int PortCount(const data::SettingsList& settings) {
  return static_cast<int>(
      std::clamp(settings.Number(setting::kPortCount), double{kFewestPorts}, double{kMostPorts}));
}

std::optional<PortSettings> ApplyPortSettings(const data::SettingsList& settings) {
  const int port = settings.Index(setting::kPort);
  const auto bps = Caption(BPS, settings.Index(setting::kBPS));
  const auto parity = Caption(Parity, settings.Index(setting::kParity));
  const auto length = Caption(Length, settings.Index(setting::kLength));
  const auto bit = Caption(Bit, settings.Index(setting::kBit));
  const auto term = Caption(Term, settings.Index(setting::kTerm));
  if (port < 1 || port > PortCount(settings) || !bps || !parity || !length || !bit || !term)
    return std::nullopt;
  return PortSettings{port, std::string(*bps).append(*parity).append(*length).append(*bit)};
}

std::string_view Terminator(const data::SettingsList& settings) {
  return settings.Index(setting::kTerm) == 0 ? "\r\n" : "\r";
}

}  // namespace quenlor::link
