// SPDX-License-Identifier: MIT
#include "app/batch.h"

#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "app/desk/document_commands.h"
#include "app/desk/read_only_files.h"
#include "app/desk/session.h"
#include "app/standard_streams.h"
#include "data/merge.h"
#include "graph/graph_picture.h"
#include "graph/plot.h"
#include "platform/qt/page_painter.h"
#include "platform/qt/picture_file.h"
#include "reports/page_record.h"
#include "reports/report_page.h"
#include "reports/statistics_text.h"

namespace quenlor::app {
namespace {

using platform::DrawingSurface;

// A document opened as the window opens one, without a window.
class OpenedFile {
 public:
  OpenedFile(const ReadOnlyFiles& files, const BatchPorts& ports, graph::GraphKind kind)
      : files_(files), session_(files_, ports.place, ports.system_writes_comma) {
    session_.Graph().SetKind(kind);
  }

  void Load(const std::string& path, std::string bytes, const std::string& date) {
    session_.Load(path, data::ParseDataFile(std::move(bytes)), date);
  }

  const Session* operator->() const { return &session_; }

 private:
  ReadOnlyFiles files_;
  Session session_;
};

class Batch {
 public:
  Batch(const CommandLine& line, const BatchPorts& ports)
      : line_(line), options_(line.batch), ports_(ports), files_(ports.files) {}

  ExitStatus Run() {
    for (const std::string& path : line_.files) {
      if (!options_.output.empty() && IsOutput(path)) {
        ports_.complain(options_.output + " is also the file to be read");
        return ExitStatus::kWrongUsage;
      }
    }
    switch (options_.task) {
      case Task::kReport:
        return Report();
      case Task::kGraph:
        return Graph();
      case Task::kStatistics:
        return Statistics();
      case Task::kMerge:
        return Merge();
      case Task::kMeasure:
      case Task::kWindow:
        break;
    }
    return ExitStatus::kWrongUsage;
  }

 private:
  bool IsOutput(const std::string& path) const {
    return ports_.files.Same(path == kStandardInput ? "/dev/stdin" : path, options_.output);
  }

  // Opens one file after the other and hands it to `use`; false when one could not be read.
  template <class Use>
  bool ForEachFile(const Use& use) {
    return ReadEachFile([&](const std::string& path, std::string bytes) {
      OpenedFile file(files_, ports_, options_.kind);
      file.Load(path, std::move(bytes), DateOf(path));
      TellIfEmpty(path, file->Document().Grid1());
      use(file);
      return platform::Done();
    });
  }

  // Reads one file after the other; false when one could not be read or taken. All of them are looked at, so
  // that every one that fails is told.
  template <class Take>
  bool ReadEachFile(const Take& take) {
    bool all = true;
    for (const std::string& path : line_.files) {
      const platform::Done failed = ReadFile(path, take);
      if (!failed) continue;
      ports_.complain(failed->text);
      all = false;
    }
    return all;
  }

  template <class Take>
  platform::Done ReadFile(const std::string& path, const Take& take) try {
    auto bytes = ports_.is_stream(path) ? ports_.read_stream(path) : ports_.files.Read(path);
    if (!bytes.ok()) return bytes.failure();
    return take(path, std::move(bytes.value()));
  } catch (const std::bad_alloc&) {
    return TooLarge(path);
  } catch (const std::length_error&) {
    return TooLarge(path);
  }

  std::string DateOf(const std::string& path) const {
    return ports_.is_stream(path) ? std::string() : FileDate(files_, path);
  }

  void TellIfEmpty(const std::string& path, const data::MeasurementTable& table) const {
    if (!table.HasReadings()) ports_.complain(SpokenName(path) + " holds no reading");
  }

  static platform::Failure TooLarge(const std::string& path) {
    return {"cannot read " + SpokenName(path) + ": it does not fit into memory"};
  }

  ExitStatus Report() {
    const platform::qt::PageSetup setup{
        options_.letter ? platform::qt::Paper::kLetter : platform::qt::Paper::kA4, options_.landscape};
    const platform::PageSize size = platform::qt::PageSizeOf(setup);
    std::vector<reports::PageRecord> pages;
    const bool all = ForEachFile([&](const OpenedFile& file) {
      reports::PageRecord& page = pages.emplace_back(size.width, size.height, platform::qt::MeasureText);
      const graph::Captions captions = file->Captions();
      reports::Draw(page, {captions, file->Graph().Values(), file->Look(page.Whole().width),
                           file->Document().Ranges()});
    });
    if (!all) return ExitStatus::kCannotRead;
    return WriteFile(platform::qt::PdfOf(
        setup, NameWithoutFolder(line_.files.front()), static_cast<int>(pages.size()),
        [&](DrawingSurface& paper, int number) { pages[static_cast<std::size_t>(number)].Replay(paper); }));
  }

  ExitStatus Graph() {
    std::string picture;
    const bool all = ForEachFile([&](const OpenedFile& file) {
      graph::Plot plot(file->Graph().Values());
      plot.Set(file->Look(options_.width), file->Document().Ranges());
      const auto draw = [&](DrawingSurface& surface) {
        graph::DrawGraphPicture(surface, plot, file->Captions());
      };
      const QSize pixels(options_.width, options_.height);
      if (options_.picture == PictureFormat::kPng) picture = platform::qt::PngOf(pixels, draw);
      if (options_.picture == PictureFormat::kSvg) picture = platform::qt::SvgOf(pixels, draw);
      if (options_.picture == PictureFormat::kPdf) picture = platform::qt::PdfOf(pixels, draw);
    });
    if (!all) return ExitStatus::kCannotRead;
    return WriteFile(picture);
  }

  ExitStatus Statistics() {
    struct Kept {
      std::string name;
      std::string date;
      reports::StatisticsTable table;
    };
    const bool for_people = options_.format == OutputFormat::kText;
    const char decimal_point = for_people && ports_.system_writes_comma ? ',' : '.';
    std::vector<Kept> kept;
    // Without a session: its graph would hold a copy of all readings.
    const data::SettingsList settings;
    const bool all = ReadEachFile([&](const std::string& path, std::string bytes) {
      data::Document document(settings);
      document.Load(data::ParseDataFile(std::move(bytes)), NameWithoutFolder(path), DateOf(path));
      TellIfEmpty(path, document.Grid1());
      kept.push_back({document.FileName(),
                      document.Date(),
                      {document.Grid1(), document.ViscoColumn(), document.TempColumn(), decimal_point}});
      return platform::Done();
    });
    if (!all) return ExitStatus::kCannotRead;

    std::vector<reports::StatisticsSheet> sheets;
    sheets.reserve(kept.size());
    for (const Kept& each : kept) sheets.push_back({each.name, each.date, each.table});
    return Written(ports_.write_standard_output(TextOf(sheets)));
  }

  std::string TextOf(const std::vector<reports::StatisticsSheet>& sheets) const {
    if (options_.format == OutputFormat::kJson) return reports::JsonText(sheets);
    std::string text;
    for (const reports::StatisticsSheet& sheet : sheets) {
      if (options_.format == OutputFormat::kCsv)
        reports::AppendCsv(sheet, text);
      else
        text += reports::ClipboardText(sheet);
    }
    return text;
  }

  // The graph's ranges are chosen once, for all of them.
  ExitStatus Merge() {
    if (const auto failed = ports_.why_no_new_file(options_.output)) return Written(failed);
    std::optional<data::DataFileContents> all;
    const bool read = ReadEachFile([&](const std::string& path, std::string bytes) -> platform::Done {
      data::DataFileContents file = data::ParseDataFile(std::move(bytes));
      TellIfEmpty(path, file.table);
      const std::string name = NameWithoutFolder(SpokenName(path));
      if (!all) {
        data::NameRunsAfterFile(file, name);
        all = std::move(file);
      } else if (!data::AppendFile(std::move(file), name, *all)) {
        return platform::Failure{NoNumbersLeftText(SpokenName(path))};
      }
      return {};
    });
    if (!read) return ExitStatus::kCannotRead;
    const std::string& first = line_.files.front();
    Session session(files_, ports_.place, ports_.system_writes_comma);
    session.Load(first, std::move(*all), DateOf(first));
    return Written(session.SaveOn(ports_.files, options_.output));
  }

  ExitStatus WriteFile(const std::string& bytes) {
    const auto failed = bytes.empty()
                            ? platform::Failure{"cannot make " + line_.batch.output + " of that size"}
                            : ports_.files.Replace(options_.output, bytes);
    return Written(failed);
  }

  ExitStatus Written(const platform::Done& failed) {
    if (!failed) return ExitStatus::kDone;
    ports_.complain(failed->text);
    return ExitStatus::kCannotWrite;
  }

  const CommandLine& line_;
  const BatchOptions& options_;
  const BatchPorts& ports_;
  ReadOnlyFiles files_;
};

}  // namespace

ExitStatus RunBatch(const CommandLine& line, const BatchPorts& ports) { return Batch(line, ports).Run(); }

}  // namespace quenlor::app
