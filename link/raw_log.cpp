// SPDX-License-Identifier: MIT
#include "link/raw_log.h"

#include <algorithm>
#include <cmath>

#include "data/text_lines.h"
#include "platform/set_aside.h"

namespace quenlor::link {
namespace {

// While the disk refuses, it is asked again this often; each attempt carries all that is missing.
constexpr double kRetrySeconds = 1.0;
// What a loss of power may cost; asking the device for each reading would keep the window waiting.
constexpr double kSyncSeconds = 10.0;
// What is longer is set aside unread: looking for its lines in the table would keep the window waiting.
constexpr std::uint64_t kLongestRead = std::uint64_t{1} << 30;
constexpr data::MeasurementTable::Row kTold = 1 << 16;  // rows between two words about how far it has come

bool IsTitleLine(std::string_view line) { return line.starts_with("No.,") || line.starts_with("No.;"); }

// Columns may have come since a line was written; what it lacks at its end is empty cells.
std::string_view WithoutEmptyEnd(std::string_view line, char separator) {
  return line.substr(0, line.find_last_not_of(separator) + 1);
}

}  // namespace

RawLog::RawLog(platform::FileSystem& files, platform::Clock& clock, data::Document& document,
               std::string folder, std::function<void(const std::string&)> tell)
    : files_(files),
      clock_(clock),
      document_(document),
      folder_(std::move(folder)),
      tell_(std::move(tell)),
      saved_logs_(files, folder_) {
  document_.AddListener(*this);
}

RawLog::~RawLog() { document_.RemoveListener(*this); }

std::string RawLog::Path(int port_number) const { return folder_ + "/" + Name(port_number); }

std::string RawLog::Name(int port_number) const { return "Com_" + std::to_string(port_number) + ".txt"; }

void RawLog::AddLine(Row row, std::string& lines) const {
  document_.Grid1().AppendLine(row, document_.FieldSeparator(), lines);
  lines += "\r\n";
}

platform::Done RawLog::RewriteRawLog(int port_number, const data::Progress& progress) {
  const std::string path = Path(port_number);
  const std::string lock_path = folder_ + "/Com_" + std::to_string(port_number) + ".lock";
  auto lock = files_.Lock(lock_path);
  if (!lock) {
    const std::string holder = files_.HolderOf(lock_path);
    return platform::Failure{path + " is in use: " + lock_path + " is held by " +
                             (holder.empty() ? "another program" : holder)};
  }

  name_ = Name(port_number);
  if (auto failed = PutInPlace(path, progress)) return failed;
  path_ = path;
  lock_ = std::move(lock);
  missing_from_.reset();
  return {};
}

// The table, in place of what holds no more than it; anything else is set aside.
platform::Done RawLog::PutInPlace(const std::string& path, const data::Progress& progress) {
  const auto state = files_.State(path);
  if (!state.ok() && !NotFound(state)) return state.failure();
  const bool too_long = state.ok() && state.value().size > kLongestRead;
  if (state.ok() && (state.value().leads_out || too_long)) {
    if (auto failed = SetAside(path)) return failed;
  } else if (state.ok()) {
    const auto bytes = files_.Read(path, data::PartOf(progress, 0, 0.2));
    if (!bytes.ok() && !NotFound(bytes)) return bytes.failure();
    if (bytes.ok() && !saved_logs_.Holds(name_, bytes.value()) &&
        HoldsMoreThanTheTable(bytes.value(), data::PartOf(progress, 0.2, 0.6))) {
      if (auto failed = SetAside(path)) return failed;
    }
  }
  return WriteTable(path, data::PartOf(progress, 0.6, 1));
}

platform::Done RawLog::WriteTable(const std::string& path, const data::Progress& progress) {
  Fingerprint content;
  auto failed = files_.Replace(path, [&](platform::ByteSink& sink) {
    std::string line;
    for (Row row = 0; row < document_.Grid1().EntryRow(); ++row) {
      line.clear();
      AddLine(row, line);
      sink.Write(line);
      content.Add(line);
      if (progress && row % kTold == 0)
        progress(static_cast<double>(row) / static_cast<double>(document_.Grid1().Rows()));
    }
  });
  if (failed) return failed;
  logs_[name_] = {content};
  last_sync_ = clock_.Now().seconds;
  written_.reset();
  if (const auto state = files_.State(path); state.ok()) written_ = state.value();
  return {};
}

// Both hold their readings in the order of arrival, so one walk through the table finds every line
// or misses one.
bool RawLog::HoldsMoreThanTheTable(std::string_view bytes, const data::Progress& progress) const {
  const data::MeasurementTable& table = document_.Grid1();
  data::TextLines lines(bytes);
  Row row = 1;
  std::string in_table;
  while (const auto line = lines.Next()) {
    if (line->empty() || IsTitleLine(*line)) continue;
    const char separator = data::DividerOf(*line, document_.FieldSeparator());
    const std::string_view on_disk = WithoutEmptyEnd(*line, separator);
    bool found = false;
    for (; !found && row < table.EntryRow(); ++row) {
      if (progress && row % kTold == 0)
        progress(static_cast<double>(row) / static_cast<double>(table.Rows()));
      in_table.clear();
      table.AppendLine(row, separator, in_table);
      found = WithoutEmptyEnd(in_table, separator) == on_disk;
    }
    if (!found) return true;
  }
  return false;
}

platform::Done RawLog::SetAside(const std::string& path) {
  return platform::SetAside(files_, path, clock_.Now().local_second);
}

bool RawLog::StandsAsWritten() const {
  const auto state = files_.State(path_);
  return state.ok() && written_ == state.value();
}

void RawLog::AppendRawLog(Row row) {
  if (path_.empty()) return;
  if (!missing_from_) {
    AppendRows(row, row);
  } else if (std::fabs(clock_.Now().seconds - last_attempt_) >= kRetrySeconds) {
    AppendRows(*missing_from_, row);
  }
}

platform::Done RawLog::Append(Row first, Row last) {
  std::string lines;
  for (Row row = first; row <= last; ++row) AddLine(row, lines);
  if (lines.empty()) return {};
  auto failed = files_.Append(path_, lines);
  if (failed) return failed;
  logs_[name_].content.Add(lines);
  written_->size += lines.size();
  return {};
}

// A device that failed may have kept less than it took, and does not fail twice for it: all of it is written
// anew.
platform::Done RawLog::SyncNowAndThen() {
  auto failed = files_.EndedSync(path_);
  const double now = clock_.Now().seconds;
  if (!failed && std::fabs(now - last_sync_) >= kSyncSeconds) {
    last_sync_ = now;
    files_.BeginSync(path_);
    failed = files_.EndedSync(path_);
  }
  if (failed) written_.reset();
  return failed;
}

// A file that was removed, cut, exchanged or written to by somebody begins anew, with everything; so does one
// that took what it said it did not.
void RawLog::AppendRows(Row first, Row last) {
  const bool as_written = StandsAsWritten();
  auto failed = as_written ? Append(first, last) : PutInPlace(path_);
  if (!failed) failed = SyncNowAndThen();
  if (failed) {
    last_attempt_ = clock_.Now().seconds;
    if (!missing_from_) tell_("Raw Log Not Written: " + failed->text);
    missing_from_ = first;
  } else if (missing_from_) {
    missing_from_.reset();
    tell_("Raw Log Written Again");
  } else if (!as_written) {
    tell_("Raw Log Written Anew: " + path_ + " had been changed");
  }
}

void RawLog::Close() {
  if (path_.empty()) return;
  const Row end = document_.Grid1().EntryRow();
  if (missing_from_ || !StandsAsWritten()) AppendRows(missing_from_.value_or(end), end - 1);
  const auto failed = files_.Sync(path_);
  if (failed && !missing_from_) tell_("Raw Log Not Written: " + failed->text);
  path_.clear();
  lock_.reset();
}

void RawLog::TableHasChanged() {
  for (auto& [name, log] : logs_) log.in_the_table = false;
}

void RawLog::DocumentReplaced() {
  missing_from_.reset();
  TableHasChanged();
}

// What the data file holds now need not be set aside by a later measurement.
void RawLog::DocumentSaved() {
  std::map<std::string, Fingerprint> saved;
  for (const auto& [name, log] : logs_) {
    if (log.in_the_table) saved[name] = log.content;
  }
  saved_logs_.Note(saved);
}

void RawLog::RowsRemoved(Row first, Row last) {
  TableHasChanged();
  if (missing_from_ && *missing_from_ > first) {
    *missing_from_ -= std::min(last + 1, *missing_from_) - first;
  }
}

void RawLog::RowsRestored(Row first, Row last) {
  TableHasChanged();
  if (missing_from_ && *missing_from_ >= first) *missing_from_ += last + 1 - first;
}

}  // namespace quenlor::link
