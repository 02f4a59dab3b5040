// SPDX-License-Identifier: MIT
#include "app/window/picture_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "graph/graph_picture.h"
#include "graph/plot.h"

namespace quenlor::app {
namespace {

using platform::qt::DrawPicture;

// A finer PNG is the same picture with more pixels; its name tells how many times, as is usual for such
// files.
constexpr const char* kFilter =
    "PNG Picture(*.png)|*.png|PNG Picture, 2 x(*@2x.png)|*@2x.png|PNG Picture, 4 x(*@4x.png)|*@4x.png|"
    "SVG Picture(*.svg)|*.svg|PDF Document(*.pdf)|*.pdf";

bool EndsWith(const std::string& path, const char* ending) {
  return QString::fromStdString(path).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

// The document's name without its ending.
std::string Stem(const std::string& name) { return name.substr(0, name.rfind('.')); }

}  // namespace

DrawPicture PictureCommands::Graph(const graph::GraphPane& pane) const {
  return [this, width = pane.width(), text = pane.LargestText()](platform::DrawingSurface& surface) {
    graph::Plot plot(session_.Graph().Values());
    plot.Set(session_.Look(width), session_.Document().Ranges());
    graph::DrawGraphPicture(surface, plot, session_.Captions(), text);
  };
}

std::string PictureCommands::Drawn(const std::string& path, const graph::GraphPane& pane) const {
  if (EndsWith(path, ".svg")) return platform::qt::SvgOf(pane.size(), Graph(pane));
  if (EndsWith(path, ".pdf")) return platform::qt::PdfOf(pane.size(), Graph(pane));
  const double times = EndsWith(path, "@4x.png") ? 4 : EndsWith(path, "@2x.png") ? 2 : 1;
  return platform::qt::PngOf(pane.size(), Graph(pane), times);
}

void PictureCommands::CopyPicture(const graph::GraphPane& pane) {
  auto* mime = new QMimeData;
  const std::string png = platform::qt::PngOf(pane.size(), Graph(pane), pane.devicePixelRatioF());
  mime->setImageData(QImage::fromData(QByteArray::fromStdString(png), "PNG"));
  mime->setData(QStringLiteral("image/svg+xml"),
                QByteArray::fromStdString(platform::qt::SvgOf(pane.size(), Graph(pane))));
  QGuiApplication::clipboard()->setMimeData(mime);
  status_.Say("The graph is on the clipboard");
}

void PictureCommands::SavePicture(const graph::GraphPane& pane) {
  const auto path = dialogs_.SaveFile({}, Stem(session_.Document().FileName()), kFilter);
  if (!path) return;
  const auto failed = session_.Files().Replace(*path, Drawn(*path, pane));
  status_.Say(failed ? failed->text : "Saved " + *path);
}

}  // namespace quenlor::app
