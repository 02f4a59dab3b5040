// SPDX-License-Identifier: MIT
#include "app/window/picture_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "graph/graph_picture.h"
#include "graph/plot.h"
#include "platform/qt/picture_file.h"

namespace quenlor::app {
namespace {

// Each finer PNG is the same picture with more pixels.
constexpr const char* kFilter = "PNG Picture(*.png)|*.png|SVG Picture(*.svg)|*.svg|PDF Document(*.pdf)|*.pdf";

bool EndsWith(const std::string& path, const char* ending) {
  return QString::fromStdString(path).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

// The document's name without its ending.
std::string Stem(const std::string& name) { return name.substr(0, name.rfind('.')); }

}  // namespace

std::string PictureCommands::Drawn(
    std::string (*picture)(QSize, const std::function<void(platform::DrawingSurface&)>&), QSize pixels,
    double largest_text) const {
  graph::Plot plot(session_.Graph().Values());
  plot.Set(session_.Look(pixels.width()), session_.Document().Ranges());
  return picture(pixels, [&](platform::DrawingSurface& surface) {
    graph::DrawGraphPicture(surface, plot, session_.Captions(), largest_text);
  });
}

void PictureCommands::CopyPicture(const graph::GraphPane& pane) {
  const QSize pixels = pane.size();
  const double ratio = pane.devicePixelRatioF();
  auto* mime = new QMimeData;
  mime->setImageData(QImage::fromData(
      QByteArray::fromStdString(Drawn(platform::qt::PngOf, pixels * ratio, pane.LargestText() * ratio)),
      "PNG"));
  mime->setData(QStringLiteral("image/svg+xml"),
                QByteArray::fromStdString(Drawn(platform::qt::SvgOf, pixels, pane.LargestText())));
  QGuiApplication::clipboard()->setMimeData(mime);
  status_.Say("The graph is on the clipboard");
}

void PictureCommands::SavePicture(const graph::GraphPane& pane) {
  const auto path = dialogs_.SaveFile({}, Stem(session_.Document().FileName()), kFilter);
  if (!path) return;
  const auto picture = EndsWith(*path, ".svg") ? platform::qt::SvgOf
                       : EndsWith(*path, ".pdf")
                           ? static_cast<decltype(&platform::qt::SvgOf)>(platform::qt::PdfOf)
                           : platform::qt::PngOf;
  const auto failed = session_.Files().Replace(*path, Drawn(picture, pane.size(), pane.LargestText()));
  status_.Say(failed ? failed->text : "Saved " + *path);
}

}  // namespace quenlor::app
