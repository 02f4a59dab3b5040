// SPDX-License-Identifier: MIT
// What is on the disk when the power fails between any two calls to the system: the calls are recorded, and
// every beginning of them is replayed on a disk that has kept only what it was asked to keep, or the names
// without the bytes, or the bytes without the names, or half of what it was not asked to keep.

#include <QTemporaryDir>
#include <algorithm>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#ifdef __linux__
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/desk/session.h"
#include "link/measurement.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/test_clock.h"
#include "platform/memory/test_event_loop.h"
#include "platform/qt/qt_file_system.h"

namespace {

struct Call {
  enum Kind { kWrite, kSync, kSyncFolder, kRename, kReading };

  Kind kind = kReading;
  std::string path;
  std::string text;  // the bytes written, or the other name
  ino_t file = 0;
};

// Calls that concern this folder, while there is one.
std::string recorded_folder;
std::vector<Call> calls;
std::mutex recording;  // a log is synced behind the measurement

template <class Function>
Function Real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

void Record(Call::Kind kind, int file, std::string text = {}) {
  if (recorded_folder.empty()) return;
  char path[4096];
  const ssize_t size = ::readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
  struct stat known {};
  if (size <= 0 || ::fstat(file, &known) != 0) return;
  const std::string name(path, static_cast<std::size_t>(size));
  if (!name.starts_with(recorded_folder)) return;
  if (kind == Call::kSync && S_ISDIR(known.st_mode)) kind = Call::kSyncFolder;
  const std::lock_guard lock(recording);
  calls.push_back({kind, name, std::move(text), known.st_ino});
}

}  // namespace

// The system's own, which the program and Qt call.
extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
  static const auto real = Real<ssize_t (*)(int, const void*, size_t)>("write");
  const ssize_t written = real(file, bytes, size);
  if (written > 0)
    Record(Call::kWrite, file, {static_cast<const char*>(bytes), static_cast<std::size_t>(written)});
  return written;
}

int fsync(int file) {
  static const auto real = Real<int (*)(int)>("fsync");
  Record(Call::kSync, file);
  return real(file);
}

int rename(const char* from, const char* to) noexcept {
  static const auto real = Real<int (*)(const char*, const char*)>("rename");
  if (!recorded_folder.empty() && std::string(to).starts_with(recorded_folder)) {
    const std::lock_guard lock(recording);
    calls.push_back({Call::kRename, from, to, 0});
  }
  return real(from, to);
}

}  // extern "C"

namespace quenlor::app {
namespace {

class Disk {
 public:
  void Put(const std::string& path, const std::string& content) {
    names_[path] = kept_names_[path] = 0;
    files_[0] = {content, content};
  }

  void Do(const Call& call) {
    switch (call.kind) {
      case Call::kWrite:
        names_[call.path] = call.file;
        files_[call.file].bytes += call.text;
        break;
      case Call::kSync:
        files_[call.file].kept = files_[call.file].bytes;
        break;
      case Call::kSyncFolder:
        kept_names_ = names_;
        break;
      case Call::kRename:
        names_[call.text] = names_[call.path];
        names_.erase(call.path);
        break;
      case Call::kReading:
        break;
    }
  }

  // What may be found under that name when the power is back.
  std::vector<std::string> Found(const std::string& path) const {
    std::vector<std::string> found;
    for (const auto* names : {&names_, &kept_names_}) {
      const auto name = names->find(path);
      if (name == names->end()) {
        found.emplace_back("(missing)");
        continue;
      }
      const auto& [bytes, kept] = files_.at(name->second);
      found.push_back(bytes);
      found.push_back(kept);
      found.push_back(bytes.substr(0, (bytes.size() + kept.size()) / 2));
    }
    return found;
  }

 private:
  struct File {
    std::string bytes;
    std::string kept;
  };

  std::map<ino_t, File> files_;
  std::map<std::string, ino_t> names_;
  std::map<std::string, ino_t> kept_names_;
};

// A clock that a test moves leaves the device no time for what is synced behind the measurement.
class PatientFiles : public platform::qt::QtFileSystem {
 public:
  void BeginSync(const std::string& path) override {
    const auto syncs = [] {
      const std::lock_guard lock(recording);
      return std::ranges::count(calls, Call::kSync, &Call::kind);
    };
    const auto before = syncs();
    while (syncs() == before) {
      QtFileSystem::BeginSync(path);
      EXPECT_FALSE(QtFileSystem::EndedSync(path)) << "of the one before";
      std::this_thread::yield();
    }
  }
};

class PowerLoss : public testing::Test {
 protected:
  PowerLoss() { calls.clear(); }
  ~PowerLoss() override { recorded_folder.clear(); }

  std::string Path(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  void BeginRecording() { recorded_folder = folder_.path().toStdString(); }
  void EndRecording() { recorded_folder.clear(); }

  QTemporaryDir folder_;
  PatientFiles files_;
};

TEST_F(PowerLoss, ASaveLeavesTheOldFileOrTheNewOneAndThenTheNewOne) {
  Session session(files_, {folder_.path().toStdString()}, false);
  std::string text = "No.,Time,Viscosity,Temp\r\n";
  for (int i = 0; i < 100'000; ++i) text += "1,00.0," + std::to_string(i) + ",25.0\r\n";
  session.Load("a.csv", data::ParseDataFile(text), "");
  const std::string path = Path("a.csv");
  ASSERT_FALSE(files_.Replace(path, "old"));
  Disk disk;
  disk.Put(path, "old");

  BeginRecording();
  ASSERT_FALSE(session.Save(path));
  EndRecording();

  const std::string saved = files_.Read(path).value();
  ASSERT_GE(calls.size(), 5U) << "several writes, a sync, a rename, and a sync of the folder";
  for (std::size_t done = 0; done < calls.size(); ++done) {
    disk.Do(calls[done]);
    for (const std::string& found : disk.Found(path))
      EXPECT_TRUE(found == "old" || found == saved)
          << "after call " << done << ": " << found.size() << " bytes";
  }
  for (const std::string& found : disk.Found(path)) EXPECT_TRUE(found == saved);
}

TEST_F(PowerLoss, ARunKeepsAllButTheReadingsOfTheLastTenSecondsAndAtItsEndAll) {
  platform::memory::TestClock clock;
  platform::memory::TestTimer Timer1{clock};
  platform::memory::TestTimer Timer2{clock};
  platform::memory::TestEventLoop loop{clock};
  platform::memory::MemorySerialPort port;
  Session session(files_, {folder_.path().toStdString()}, false);
  session.List().Set(data::setting::kVisco, 0);
  session.List().Set(data::setting::kRepeat, 0);
  link::Measurement measurement({port, clock, Timer1, Timer2, loop, files_}, session.Document(),
                                session.List(), folder_.path().toStdString());
  session.Load("a.csv", data::ParseDataFile("No.,Time,Viscosity\r\n1,00.0,6001\r\n1,01.0,6002\r\n"), "");
  BeginRecording();
  ASSERT_FALSE(measurement.Start());
  const std::size_t started = calls.size();
  constexpr int kReadings = 35;
  for (int reading = 0; reading < kReadings; ++reading) {
    clock.Advance(1);
    port.Feed(std::to_string(7000 + reading) + "\r");
    const std::lock_guard lock(recording);
    calls.emplace_back();
  }
  measurement.Stop();
  EndRecording();

  const std::string path = Path("Com_1.txt");
  const std::string whole = files_.Read(path).value();
  const auto lines = [](const std::string& text) { return std::ranges::count(text, '\n'); };
  Disk disk;
  int readings = 0;
  for (std::size_t done = 0; done < calls.size(); ++done) {
    disk.Do(calls[done]);
    if (done < started) continue;
    readings += calls[done].kind == Call::kReading ? 1 : 0;
    for (const std::string& found : disk.Found(path)) {
      EXPECT_TRUE(whole.starts_with(found)) << "after call " << done << ": " << found;
      EXPECT_GE(lines(found), lines(whole) - kReadings + std::max(readings - 10, 0)) << "after call " << done;
    }
  }
  for (const std::string& found : disk.Found(path)) EXPECT_TRUE(found == whole);
  EXPECT_EQ(readings, kReadings);
}

}  // namespace
}  // namespace quenlor::app

#endif
