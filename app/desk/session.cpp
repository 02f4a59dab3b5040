// SPDX-License-Identifier: MIT
#include "app/desk/session.h"

#include <algorithm>
#include <utility>

#include "data/data_file.h"
#include "data/data_file_writer.h"
#include "data/date_time.h"
#include "graph/plot_look.h"

namespace quenlor::app {
namespace {

constexpr const char* kNewName = "New.csv";

}  // namespace

Session::Session(platform::FileSystem& files, Place place, bool system_writes_comma, graph::GraphView* view)
    : files_(files),
      place_(std::move(place)),
      settings_(files, File(SettingsName()), system_writes_comma,
                [this](const std::string& trouble) { Tell(trouble); }),
      color_file_(files, File("Color.txt"), [this](const std::string& trouble) { Tell(trouble); }),
      document_(settings_.List()),
      graph_(document_, settings_.List(), view != nullptr ? *view : nobody_) {
  settings_.LoadSettings();
  colors_ = graph::LoadColor(color_file_);
}

void Session::OnTrouble(platform::KeptFile::Tell tell) {
  tell_ = std::move(tell);
  if (!untold_.empty()) tell_(std::exchange(untold_, {}));
}

void Session::Tell(const std::string& trouble) {
  if (tell_) return tell_(trouble);
  untold_ += (untold_.empty() ? "" : "; ") + trouble;
}

void Session::SetColors(const graph::ColorSettings& colors) {
  colors_ = colors;
  graph::SaveColor(color_file_, colors_);
  graph_.LookChanged();
}

void Session::New() {
  for (const auto axis : {graph::Axis::Time, graph::Axis::Visco, graph::Axis::Temp})
    graph_.SetAutoScaling(axis, true);
  const std::string path = File("New.txt");
  auto bytes = files_.Read(path);
  if (NotFound(bytes)) WriteNewTemplate(path);  // an existing one is the operator's own
  // A new document never fails: where no template can be kept, the usual titles serve.
  Load(path, data::ParseDataFile(bytes.ok() ? std::move(bytes.value()) : TemplateText()),
       FileDate(files_, path));
  document_.SetFileName(kNewName);
}

void Session::WriteNewTemplate(const std::string& path) { files_.Replace(path, TemplateText()); }

std::string Session::TemplateText() const {
  return data::NewTemplate(List().IsOn(data::setting::kVisco), List().Index(data::setting::kFieldCount));
}

void Session::Load(const std::string& path, data::DataFileContents contents, const std::string& file_date,
                   const data::Progress& copying) {
  data::ApplyAxisSettings(contents.axis, settings_.List());
  graph_.OnProgress(copying);
  document_.Load(std::move(contents), NameWithoutFolder(path), file_date);
  graph_.OnProgress({});
}

platform::Done Session::SaveOn(platform::FileSystem& files, const std::string& path,
                               const data::Progress& progress) {
  return files.Replace(path, [&](platform::ByteSink& sink) {
    data::WriteDataFile(
        document_, List(), [&](std::string_view piece) { sink.Write(piece); }, progress);
  });
}

graph::PlotSettings Session::Look(int plot_width) const {
  return graph::PlotLook(graph_, List(), colors_, plot_width);
}

std::string FileDate(const platform::FileSystem& files, const std::string& path) {
  const auto modified = files.ModifiedAt(path);
  return modified.ok() ? data::DateTimeText(modified.value()) : std::string();
}

namespace {

std::size_t LastSlash(const std::string& path) {
#ifdef _WIN32
  return path.find_last_of("/\\");
#else
  return path.find_last_of('/');
#endif
}

}  // namespace

std::string NameWithoutFolder(const std::string& path) {
  const std::size_t slash = LastSlash(path);
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = LastSlash(path);
  if (slash == std::string::npos) return ".";
  return path.substr(0, std::max<std::size_t>(slash, 1));
}

}  // namespace quenlor::app
