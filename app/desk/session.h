// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/desk/settings_file.h"
#include "data/document.h"
#include "graph/captions.h"
#include "graph/color_settings.h"
#include "graph/live_graph.h"
#include "graph/plot_settings.h"
#include "platform/file_system.h"

namespace quenlor::app {

// What is open: the settings, the colours, the document and its graph, as the window, the batch commands and
// every other front end have them. They are read from the program folder once, when the session begins.
class Session {
 public:
  // Where the program keeps its files, and what its settings file is called after.
  struct Place {
    std::string folder;
    std::string program_name = "quenlor";
  };

  // `view` is told what to show, if anybody looks.
  Session(platform::FileSystem& files, Place place, bool system_writes_comma,
          graph::GraphView* view = nullptr);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  platform::FileSystem& Files() const { return files_; }
  std::string File(const std::string& name) const {
    return place_.folder + "/" + name;
  }  // in the program folder
  std::string SettingsName() const { return place_.program_name + ".ini"; }

  SettingsFile& Settings() { return settings_; }
  data::SettingsList& List() { return settings_.List(); }
  const data::SettingsList& List() const { return settings_.List(); }
  data::Document& Document() { return document_; }
  const data::Document& Document() const { return document_; }
  graph::LiveGraph& Graph() { return graph_; }
  const graph::LiveGraph& Graph() const { return graph_; }
  const graph::ColorSettings& Colors() const { return colors_; }

  // Files that cannot be read or kept, each with its reason. What was told before somebody listens comes
  // then.
  void OnTrouble(platform::KeptFile::Tell tell);
  void Tell(const std::string& trouble);

  // Keeps the colours in their file, too.
  void SetColors(const graph::ColorSettings& colors);

  // An empty document with the titles of the template "New.txt", which is made when it is missing; all three
  // axes scale again.
  void New();

  // The contents of the data file of that path become the document, and the settings take over what they tell
  // of the axes. A file without a date of its own gets `file_date`. `copying` cannot leave it.
  void Load(const std::string& path, data::DataFileContents contents, const std::string& file_date,
            const data::Progress& copying = {});

  // The document as a data file of that path; `progress` cannot leave it.
  platform::Done Save(const std::string& path, const data::Progress& progress = {}) {
    return SaveOn(files_, path, progress);
  }
  // The same on another disk, for a session that only reads its own.
  platform::Done SaveOn(platform::FileSystem& files, const std::string& path,
                        const data::Progress& progress = {});

  // How the graph looks in a plot of so many pixels across, and the texts around it.
  graph::PlotSettings Look(int plot_width) const;
  graph::Captions Captions() const { return graph::CaptionsOf(document_, graph_); }

 private:
  void WriteNewTemplate(const std::string& path);
  std::string TemplateText() const;

  platform::FileSystem& files_;
  Place place_;
  platform::KeptFile::Tell tell_;
  std::string untold_;
  SettingsFile settings_;
  platform::KeptFile color_file_;
  data::Document document_;
  graph::GraphView nobody_;
  graph::LiveGraph graph_;
  graph::ColorSettings colors_;
};

// When the disk says that the file was written; empty when it says nothing.
std::string FileDate(const platform::FileSystem& files, const std::string& path);

// The last part of a path, and what stands before it: "." for a bare name.
std::string NameWithoutFolder(const std::string& path);
std::string FolderOf(const std::string& path);

}  // namespace quenlor::app
