// SPDX-License-Identifier: MIT
//
// The real program at the far end of a real pseudo-terminal. There is no such program where there is
// no such thing.
#ifdef QUENLOR_INSTRUMENT

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using std::chrono::steady_clock;
using testing::HasSubstr;
using testing::StartsWith;

constexpr auto kPatience = std::chrono::seconds(20);

// A descriptor read line by line, never waiting beyond the patience of a test.
class Reader {
 public:
  explicit Reader(int descriptor) : descriptor_(descriptor) {}
  ~Reader() { close(descriptor_); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  // The next line without its end; nothing when the other side closed or nothing came.
  std::optional<std::string> Line() {
    std::size_t end;
    while ((end = bytes_.find('\n', begin_)) == std::string::npos) {
      if (!Fill()) return std::nullopt;
    }
    std::string line = bytes_.substr(begin_, end - begin_);
    begin_ = end + 1;
    return line;
  }

  // Everything up to the other side's closing.
  std::string Rest() {
    while (Fill()) continue;
    return bytes_.substr(std::exchange(begin_, bytes_.size()));
  }

  bool closed() const { return closed_; }  // by the other side

 private:
  bool Fill() {
    bytes_.erase(0, std::exchange(begin_, 0));
    pollfd wait = {descriptor_, POLLIN, 0};
    if (poll(&wait, 1, static_cast<int>(std::chrono::milliseconds(kPatience).count())) <= 0) return false;
    char buffer[65536];
    const auto count = read(descriptor_, buffer, sizeof buffer);
    closed_ = count <= 0;
    if (count > 0) bytes_.append(buffer, static_cast<std::size_t>(count));
    return count > 0;
  }

  const int descriptor_;
  std::string bytes_;
  std::size_t begin_ = 0;
  bool closed_ = false;
};

// The running program with its output and messages at hand; killed at the latest at the end of the test.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), QUENLOR_INSTRUMENT);
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (auto& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);

    int output[2];
    int messages[2];
    if (pipe2(output, O_CLOEXEC) != 0 || pipe2(messages, O_CLOEXEC) != 0) abort();
    process_ = fork();
    if (process_ == 0) {
      dup2(output[1], STDOUT_FILENO);
      dup2(messages[1], STDERR_FILENO);
      execv(words[0], words.data());
      _exit(127);
    }
    close(output[1]);
    close(messages[1]);
    output_.emplace(output[0]);
    messages_.emplace(messages[0]);
  }

  ~Program() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Reader& output() { return *output_; }
  Reader& messages() { return *messages_; }
  void Signal(int number) const { kill(process_, number); }

  // -1 when it did not end by itself.
  int ExitCode() {
    const auto deadline = steady_clock::now() + kPatience;
    int status = 0;
    while (waitpid(process_, &status, WNOHANG) == 0) {
      if (steady_clock::now() > deadline) return -1;
      usleep(5000);
    }
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_ = 0;
  std::optional<Reader> output_;
  std::optional<Reader> messages_;
};

// The logger's end of the line.
class Line {
 public:
  explicit Line(const std::string& path)
      : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY)), reader_(descriptor_) {
    EXPECT_GE(descriptor_, 0) << path;
  }

  void Send(std::string_view bytes) const {
    EXPECT_EQ(write(descriptor_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  std::optional<std::string> Receive() { return reader_.Line(); }
  bool closed() const { return reader_.closed(); }

 private:
  const int descriptor_;
  Reader reader_;
};

std::vector<std::string> Arguments(std::vector<std::string> more) {
  more.insert(more.begin(), {"--viscosity", "const:100", "--temperature", "const:25", "--form", "numbered"});
  return more;
}

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quenlor-instrument-XXXXXX").string();
    if (!mkdtemp(name.data())) abort();
    path_ = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

TEST(InstrumentProgram, StreamsAnswersAndStops) {
  Program program(Arguments({"--interval", "0.02", "--after-stop", "answer"}));
  Line line(program.output().Line().value());

  line.Send("QUENLOR\r\n");
  EXPECT_EQ(line.Receive(), "1,100.0,25.0\r");
  EXPECT_EQ(line.Receive(), "2,100.0,25.0\r");
  EXPECT_EQ(line.Receive(), "3,100.0,25.0\r");

  // Two polls after a stop are a run of their own: whatever was streamed meanwhile, its first lines
  // end the stream.
  line.Send("STOP\r\nQM\r\nQM\r\n");
  std::optional<std::string> next;
  do next = line.Receive();
  while (next && *next != "1,100.0,25.0\r");
  EXPECT_EQ(next, "1,100.0,25.0\r");
  EXPECT_EQ(line.Receive(), "2,100.0,25.0\r");

  program.Signal(SIGTERM);
  EXPECT_EQ(program.ExitCode(), 0);
}

TEST(InstrumentProgram, ServesALoggerThatOnlyPolls) {
  Program program(Arguments({}));
  const std::string path = program.output().Line().value();

  for (int opening = 0; opening < 3; ++opening) {
    Line line(path);
    line.Send("QM\r");
    EXPECT_EQ(line.Receive(), std::to_string(opening + 1) + ",100.0,25.0\r");
  }
}

TEST(InstrumentProgram, LosesNoLineAtFullSpeed) {
  Program program(Arguments({"--interval", "0", "--count", "100000"}));
  Line line(program.output().Line().value());

  line.Send("QUENLOR\r");

  for (int n = 1; n <= 100000; ++n) ASSERT_EQ(line.Receive(), std::to_string(n) + ",100.0,25.0\r");
}

TEST(InstrumentProgram, StopAtFullSpeedComesAfterWhatTheLineHolds) {
  Program program(Arguments({"--interval", "0", "--after-stop", "answer"}));
  Line line(program.output().Line().value());
  line.Send("QUENLOR\r");
  ASSERT_EQ(line.Receive(), "1,100.0,25.0\r");

  line.Send("STOP\rQM\r");

  // What the line and the program's queue hold still comes, then the answer that opens the next run.
  int more = 0;
  std::optional<std::string> next;
  for (next = line.Receive(); next && *next != "1,100.0,25.0\r"; next = line.Receive()) ++more;
  ASSERT_EQ(next, "1,100.0,25.0\r");
  EXPECT_LT(more, 30000);
}

TEST(InstrumentProgram, EveryByteArrivesUnchanged) {
  Program program(Arguments({"--fault", "babble:unknown"}));
  Line line(program.output().Line().value());

  line.Send("\x03\x04\x11\x13\x1a\x7f\r");  // what a terminal that is not raw would take for itself

  EXPECT_THAT(line.Receive().value(), testing::EndsWith("\r"));
}

TEST(InstrumentProgram, HangUpComesAfterTheLastReadingAndEndsTheProgram) {
  Program program(Arguments({"--interval", "0", "--fault", "hangup:5000"}));
  Line line(program.output().Line().value());

  line.Send("QUENLOR\r");

  for (int n = 1; n <= 5000; ++n) ASSERT_EQ(line.Receive(), std::to_string(n) + ",100.0,25.0\r");
  EXPECT_EQ(line.Receive(), std::nullopt);
  EXPECT_TRUE(line.closed());
  EXPECT_EQ(program.ExitCode(), 0);
}

TEST(InstrumentProgram, HangUpDoesNotWaitForEverForALoggerThatDoesNotRead) {
  Program program(Arguments({"--interval", "0", "--fault", "hangup:10"}));
  Line line(program.output().Line().value());

  line.Send("QUENLOR\r");

  EXPECT_EQ(program.ExitCode(), 0);
}

TEST(InstrumentProgram, InterruptEndsItWhileTheLineIsFull) {
  Program program(Arguments({"--interval", "0", "--after-stop", "answer"}));
  Line line(program.output().Line().value());
  line.Send("QUENLOR\r");
  ASSERT_EQ(line.Receive(), "1,100.0,25.0\r");

  program.Signal(SIGINT);

  EXPECT_EQ(program.ExitCode(), 0);
}

TEST(InstrumentProgram, LinkLeadsToTheLineAndIsRemovedAtTheEnd) {
  TemporaryFolder folder;
  const std::string link = folder / "viscometer";
  for (const int number : {SIGTERM, SIGINT}) {
    Program program(Arguments({"--link", link}));
    const std::string path = program.output().Line().value();

    ASSERT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(std::filesystem::read_symlink(link), path);
    Line line(link);
    line.Send("QM\r");
    EXPECT_EQ(line.Receive(), "1,100.0,25.0\r");

    program.Signal(number);
    EXPECT_EQ(program.ExitCode(), 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
  }
}

TEST(InstrumentProgram, LinkIsRemovedAfterAHangUp) {
  TemporaryFolder folder;
  const std::string link = folder / "viscometer";
  Program program(Arguments({"--link=" + link, "--fault", "hangup:1"}));
  Line line(program.output().Line().value());

  line.Send("QM\r");

  EXPECT_EQ(line.Receive(), "1,100.0,25.0\r");
  EXPECT_EQ(program.ExitCode(), 0);
  EXPECT_FALSE(std::filesystem::is_symlink(link));
}

TEST(InstrumentProgram, LinkOfAKilledProgramIsReplaced) {
  TemporaryFolder folder;
  const std::string link = folder / "viscometer";
  std::filesystem::create_symlink("/dev/pts/99999", link);

  Program program(Arguments({"--link", link}));

  const auto path = program.output().Line();
  EXPECT_EQ(std::filesystem::read_symlink(link), path);
}

TEST(InstrumentProgram, OtherFileIsNotReplacedByTheLink) {
  TemporaryFolder folder;
  const std::string link = folder / "precious.csv";
  std::ofstream(link) << "data";

  Program program(Arguments({"--link", link}));

  EXPECT_EQ(program.ExitCode(), 1);
  EXPECT_THAT(program.messages().Rest(), HasSubstr("cannot make the link " + link + ": File exists"));
  EXPECT_TRUE(std::filesystem::is_regular_file(link));
}

TEST(InstrumentProgram, HelpAndVersionGoToTheOutput) {
  Program help({"--help"});
  EXPECT_THAT(help.output().Rest(),
              testing::AllOf(HasSubstr("Usage: quenlor-instrument"), HasSubstr("--link PATH"),
                             HasSubstr("--fault hangup:N"), HasSubstr("Examples:")));
  EXPECT_EQ(help.ExitCode(), 0);

  Program version({"--version"});
  EXPECT_THAT(version.output().Rest(),
              testing::MatchesRegex("quenlor-instrument [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  EXPECT_EQ(version.ExitCode(), 0);
}

TEST(InstrumentProgram, WrongUsageIsToldAndEndsWithTwo) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--speed", "3"}, {"--interval", "x"}, {"--fault", "smoke:1"}, {"--link"}}) {
    Program program(arguments);

    EXPECT_EQ(program.ExitCode(), 2) << arguments[0];
    EXPECT_THAT(program.messages().Rest(), testing::AllOf(StartsWith("quenlor-instrument: "),
                                                          HasSubstr(arguments[0]), HasSubstr("--help")));
    EXPECT_EQ(program.output().Rest(), "");
  }
}

}  // namespace

#endif  // QUENLOR_INSTRUMENT
