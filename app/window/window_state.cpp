// SPDX-License-Identifier: MIT
#include "app/window/window_state.h"

#include "data/text_lines.h"
#include "data/text_number.h"

namespace quenlor::app {

std::string WindowState::Text() const {
  return geometry.toHex().toStdString() + "\r\n" + data::GeneralText(posi_left) + "\r\n";
}

std::optional<WindowState> WindowState::Parse(std::string_view text) {
  data::TextLines lines(text);
  const auto geometry = lines.Next();
  const auto left = lines.Next();
  if (!geometry || !left || geometry->empty()) return std::nullopt;
  if (geometry->find_first_not_of("0123456789abcdef") != std::string_view::npos) return std::nullopt;
  const auto posi_left = data::LeadingNumber(*left);
  if (!posi_left) return std::nullopt;
  return WindowState{
      QByteArray::fromHex(QByteArray(geometry->data(), static_cast<qsizetype>(geometry->size()))),
      *posi_left};
}

void RestoreWindow(const platform::FileSystem& files, const std::string& path, QMainWindow& window,
                   graph::TableAndGraph& halves) {
  const auto text = files.Read(path);
  const auto state = text.ok() ? WindowState::Parse(text.value()) : std::nullopt;
  if (!state) return;
  window.restoreGeometry(state->geometry);
  halves.RestorePosiLeft(state->posi_left);
}

platform::Done KeepWindow(platform::FileSystem& files, const std::string& path, const QMainWindow& window,
                          const graph::TableAndGraph& halves) {
  return files.Replace(path, WindowState{window.saveGeometry(), halves.PosiLeft()}.Text());
}

}  // namespace quenlor::app
