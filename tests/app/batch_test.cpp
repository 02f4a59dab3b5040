// SPDX-License-Identifier: MIT
#include "app/batch.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <new>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"
#include "tests/pdf_text.h"

namespace quenlor::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kFile =
    "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n"
    "1,00:00:00,50,mPa.s,25.0,C\r\n"
    "1,00:01:00,55,mPa.s,25.5,C\r\n"
    "2,00:00:00,70,mPa.s,26.0,C\r\n"
    "2,00:02:00,75,mPa.s,26.5,C\r\n"
    "Date,2026/11/21 09:30:00\r\n"
    "Memo,first batch\r\n";

struct Bench {
  platform::memory::MemoryFileSystem files;
  std::string input;
  std::string output;
  bool fits_into_memory = true;
  bool output_fails = false;
  bool writes_comma = false;
  std::vector<std::string> complaints;

  Bench() {
    files.Put("/data/oil.csv", kFile);
    files.Put("/data/empty.csv", "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
  }
  int Run(const std::vector<std::string>& arguments) {
    const CommandLine line = ParseCommandLine(arguments);
    EXPECT_EQ(line.error, "");
    return static_cast<int>(RunBatch(
        line, {.files = files,
               .place = {"/lab"},
               .system_writes_comma = writes_comma,
               .is_stream = [](const std::string& path) { return path == "-"; },
               .read_stream =
                   [this](const std::string&) {
                     if (!fits_into_memory) throw std::bad_alloc();
                     return platform::Result<std::string>(input);
                   },
               .write_standard_output =
                   [this](std::string_view text) {
                     if (output_fails) return platform::Done(platform::Failure{"pipe is gone"});
                     output += text;
                     return platform::Done();
                   },
               .why_no_new_file =
                   [this](const std::string& path) {
                     return files.Exists(path) ? platform::Done(platform::Failure{path + " is there"})
                                               : platform::Done();
                   },
               .complain = [this](const std::string& why) { complaints.push_back(why); }}));
  }
};

TEST(Batch, StatisticsAreTheTextThatTheWindowCopies) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--statistics", "/data/oil.csv"}), 0);
  EXPECT_EQ(bench.output,
            "oil.csv\r\n2026/11/21 09:30:00\r\n"
            "\tNo.\tTime\tViscosity\tUnit1\tTemp\tUnit2\r\n"
            "\t1\t00:01:00\t55\tmPa.s\t25.5\tC\r\n"
            "\t2\t00:02:00\t75\tmPa.s\t26.5\tC\r\n"
            "\tMaximum\t00:02:00\t75\t\t26.5\t\r\n"
            "\tMinimum\t00:01:00\t55\t\t25.5\t\r\n"
            "\tAverage\t00:01:30\t65.\t\t26.0\t\r\n"
            "\tStd Dev\t00:00:42\t14.\t\t0.7\t\r\n");
}

TEST(Batch, StatisticsTextsHaveTheSystemsDecimalPointAndNumbersForProgramsAPoint) {
  Bench bench;
  bench.writes_comma = true;
  bench.Run({"--statistics", "/data/oil.csv"});
  EXPECT_THAT(bench.output, HasSubstr("26,0"));
  bench.output.clear();
  bench.Run({"--statistics", "--format", "csv", "/data/oil.csv"});
  EXPECT_THAT(bench.output, HasSubstr("26"));
  EXPECT_EQ(bench.output.find("26,0"), std::string::npos);
}

TEST(Batch, StatisticsOfSeveralFilesFollowEachOther) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--statistics", "/data/oil.csv", "/data/empty.csv"}), 0);
  const std::size_t oil = bench.output.find("oil.csv");
  const std::size_t empty = bench.output.find("empty.csv");
  EXPECT_LT(oil, empty);
  EXPECT_NE(empty, std::string::npos);
}

TEST(Batch, ADashReadsStandardInput) {
  Bench bench;
  bench.input = kFile;
  EXPECT_EQ(bench.Run({"--statistics", "-"}), 0);
  EXPECT_THAT(bench.output, HasSubstr("75"));
}

TEST(Batch, MergeWritesTheRunsOfAllFilesOneAfterAnother) {
  Bench bench;
  bench.files.Put("/data/water.csv", "No.,Time,Temp,Viscosity\r\n1,00:05:00,20.0,1.5\r\nMemo,later\r\n");
  EXPECT_EQ(bench.Run({"--merge", "/data/all.csv", "/data/oil.csv", "/data/water.csv"}), 0);
  EXPECT_THAT(bench.complaints, ElementsAre());
  const std::string all = bench.files.Content("/data/all.csv");
  EXPECT_THAT(all, StartsWith("No.,Time,Viscosity,Unit1,Temp,Unit2\r\n"
                              "1,00:00:00,50,mPa.s,25.0,C\r\n1,00:01:00,55,mPa.s,25.5,C\r\n"
                              "2,00:00:00,70,mPa.s,26.0,C\r\n2,00:02:00,75,mPa.s,26.5,C\r\n"
                              "3,00:05:00,1.5,,20.0,\r\n"));
  EXPECT_THAT(all, HasSubstr("\r\nInfo,No.1,oil No.1,"));
  EXPECT_THAT(all, HasSubstr("\r\nInfo,No.3,water,"));
  EXPECT_THAT(all, HasSubstr("\r\nAxis,2,4,0,360,-10,90,18,28,0,2,1,0,2,0\r\n")) << "both in one graph";
  EXPECT_THAT(all, HasSubstr("\r\nMemo,first,batch\r\n"));
  EXPECT_EQ(bench.files.Calls().replaces, 1) << "nothing else is written";
}

TEST(Batch, MergeOfAFileThatCannotBeReadWritesNothing) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--merge", "/data/all.csv", "/data/oil.csv", "/data/none.csv"}), 3);
  EXPECT_FALSE(bench.files.Exists("/data/all.csv"));
}

TEST(Batch, MergeNeverReplacesReadings) {
  Bench bench;
  bench.files.Put("/data/all.csv", "older");
  EXPECT_EQ(bench.Run({"--merge", "/data/all.csv", "/data/oil.csv"}), 4);
  EXPECT_EQ(bench.Run({"--merge", "/data/oil.csv", "/data/oil.csv"}), 2);
  EXPECT_EQ(bench.files.Content("/data/all.csv"), "older");
  EXPECT_EQ(bench.files.Content("/data/oil.csv"), kFile);
  EXPECT_THAT(bench.complaints,
              ElementsAre("/data/all.csv is there", "/data/oil.csv is also the file to be read"));
}

TEST(Batch, MergeTellsWhenRunNumbersDoNotSuffice) {
  Bench bench;
  bench.files.Put("/data/last.csv", "No.,Time,Viscosity\r\n32766,00:00:00,1\r\n");
  EXPECT_EQ(bench.Run({"--merge", "/data/all.csv", "/data/last.csv", "/data/oil.csv"}), 3);
  EXPECT_THAT(bench.complaints, ElementsAre("/data/oil.csv has more runs than there are numbers left"));
}

TEST(Batch, StandardInputHasNoDateOfAFileThatIsCalledLikeIt) {
  Bench bench;
  bench.files.Put("-", "another file");
  bench.input = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,0,5,x,6,y\r\n";
  EXPECT_EQ(bench.Run({"--statistics", "-"}), 0);
  EXPECT_THAT(bench.output, StartsWith("-\r\n\r\n\tNo."));
}

TEST(Batch, AReportIsADocumentWithAPageForEachFile) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--report", "/out/report.pdf", "/data/oil.csv", "/data/empty.csv"}), 0);
  const std::string pdf = bench.files.Content("/out/report.pdf");
  EXPECT_THAT(pdf, StartsWith("%PDF"));
  EXPECT_THAT(pdf, HasSubstr("/Count 2"));
}

TEST(Batch, AGraphIsAPictureOfTheSizeAskedInTheFormatOfItsName) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--graph", "/out/a.png", "--size", "640x480", "/data/oil.csv"}), 0);
  const QImage image = QImage::fromData(QByteArray::fromStdString(bench.files.Content("/out/a.png")));
  EXPECT_EQ(image.size(), QSize(640, 480));
  EXPECT_EQ(bench.Run({"--graph", "/out/a.SVG", "/data/oil.csv"}), 0);
  EXPECT_THAT(bench.files.Content("/out/a.SVG"), HasSubstr("viewBox=\"0 0 1200 800\""));
  EXPECT_EQ(bench.Run({"--graph=/out/a.pdf", "/data/oil.csv"}), 0);
  EXPECT_THAT(bench.files.Content("/out/a.pdf"), StartsWith("%PDF"));
}

TEST(Batch, TheKindOfGraphIsChosen) {
  Bench bench;
  for (const char* kind : {"visco-time", "visco-temp-time", "visco-temp"}) {
    bench.Run({"--graph", std::string("/out/") + kind + ".svg", "--kind", kind, "/data/oil.csv"});
  }
  EXPECT_EQ(bench.files.Content("/out/visco-time.svg").find(">Temp<"), std::string::npos);
  EXPECT_NE(bench.files.Content("/out/visco-temp-time.svg").find("Temp"), std::string::npos);
  EXPECT_EQ(bench.files.Content("/out/visco-temp.svg").find("(min)"), std::string::npos);
}

TEST(Batch, AFileThatCannotBeReadIsToldAndNothingIsWritten) {
  Bench bench;
  for (const std::vector<std::string>& task :
       {std::vector<std::string>{"--report", "/out/x.pdf"}, {"--statistics"}, {"--graph", "/out/x.png"}}) {
    bench.complaints.clear();
    std::vector<std::string> arguments = task;
    if (task[0] != "--graph") arguments.push_back("/data/oil.csv");
    arguments.push_back("/data/missing.csv");
    EXPECT_EQ(bench.Run(arguments), 3) << task[0];
    EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("missing.csv"))) << task[0];
  }
  EXPECT_EQ(bench.output, "");
  EXPECT_EQ(bench.files.Paths().size(), 2U);
}

TEST(Batch, EveryUnreadableFileIsTold) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--statistics", "/a.csv", "/data/oil.csv", "/b.csv"}), 3);
  EXPECT_EQ(bench.complaints.size(), 2U);
}

TEST(Batch, AFileTooLargeForTheMemoryIsToldAsOneThatCannotBeRead) {
  Bench bench;
  bench.fits_into_memory = false;
  EXPECT_EQ(bench.Run({"--statistics", "/data/oil.csv", "-"}), 3);
  EXPECT_THAT(bench.complaints, ElementsAre("cannot read standard input: it does not fit into memory"));
  EXPECT_EQ(bench.output, "");
}

TEST(Batch, AnOutputThatCannotBeWrittenIsTold) {
  Bench bench;
  bench.files.Refuse("/out", "Read-only file system");
  EXPECT_EQ(bench.Run({"--report", "/out/x.pdf", "/data/oil.csv"}), 4);
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("Read-only file system")));
  bench.output_fails = true;
  EXPECT_EQ(bench.Run({"--statistics", "/data/oil.csv"}), 4);
}

TEST(Batch, AFileThatIsReadIsNeverWritten) {
  Bench bench;
  bench.files.Put("/data/a.pdf", kFile);
  EXPECT_EQ(bench.Run({"--report", "/data/a.pdf", "/data/oil.csv", "/data/a.pdf"}), 2);
  EXPECT_THAT(bench.complaints, ElementsAre("/data/a.pdf is also the file to be read"));
  EXPECT_EQ(bench.files.Content("/data/a.pdf"), kFile);
}

TEST(Batch, AFileWithoutAReadingIsToldAndNoFailure) {
  Bench bench;
  EXPECT_EQ(bench.Run({"--report", "/out/x.pdf", "/data/oil.csv", "/data/empty.csv", "-"}), 0);
  EXPECT_THAT(bench.complaints,
              ElementsAre("/data/empty.csv holds no reading", "standard input holds no reading"));
  EXPECT_THAT(bench.files.Content("/out/x.pdf"), HasSubstr("/Count 3"));
}

TEST(Batch, SettingsAndColoursAreReadAndNeverWritten) {
  Bench bench;
  bench.Run({"--report", "/out/x.pdf", "/data/oil.csv"});
  EXPECT_THAT(bench.files.Paths(), ElementsAre("/data/empty.csv", "/data/oil.csv", "/out/x.pdf"));

  bench.files.Put("/lab/Color.txt", "noise");
  bench.Run({"--graph", "/out/white.png", "/data/oil.csv"});
  EXPECT_EQ(bench.files.Content("/lab/Color.txt"), "noise");
  std::string black;
  for (int i = 0; i < 10; ++i) black += "&h0000FF\r\n";
  bench.files.Put("/lab/Color.txt", black + "Black\r\n");
  bench.Run({"--graph", "/out/black.png", "/data/oil.csv"});
  const auto corner = [&](const char* path) {
    return QImage::fromData(QByteArray::fromStdString(bench.files.Content(path))).pixelColor(2, 2);
  };
  EXPECT_EQ(corner("/out/white.png"), QColor(Qt::white));
  EXPECT_EQ(corner("/out/black.png"), QColor(Qt::black));
}

TEST(Batch, TheSettingsOfOneFileDoNotReachTheNext) {
  Bench bench;
  // The axis line's 12th field asks for the logarithmic axis.
  const std::string log = std::string(kFile).insert(std::string(kFile).find("Date"),
                                                    "Axis,2,4,0,180,0,100,0,100,0,2,1,1,1,0\r\n");
  bench.files.Put("/data/log.csv", log);
  bench.Run({"--report", "/out/alone.pdf", "/data/oil.csv"});
  bench.Run({"--report", "/out/both.pdf", "/data/log.csv", "/data/oil.csv"});
  const std::string alone = PdfText(bench.files.Content("/out/alone.pdf"));
  const std::string both = PdfText(bench.files.Content("/out/both.pdf"));
  const std::size_t second_page = both.find('\f') + 1;
  EXPECT_EQ(both.substr(second_page), alone);
  EXPECT_NE(both.substr(0, second_page).substr(7), alone.substr(7)) << "the first has another axis";
}

// The program itself, without a display.
class BatchProgram : public testing::Test {
 protected:
  void SetUp() override {
    QFile file(Path(QStringLiteral("oil.csv")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(kFile);
  }
  QString Path(const QString& name) const { return folder_.filePath(name); }
  int Run(const QStringList& arguments, const QByteArray& input = {}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(QString::fromLatin1(name));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(QUENLOR_PROGRAM),
                  QStringList{QStringLiteral("--folder"), folder_.path()} + arguments);
    program.write(input);
    program.closeWriteChannel();
    EXPECT_TRUE(program.waitForFinished(60'000));
    output_ = program.readAllStandardOutput();
    errors_ = program.readAllStandardError();
    return program.exitCode();
  }
  QByteArray Bytes(const QString& name) {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
  QByteArray output_;
  QByteArray errors_;
};

TEST_F(BatchProgram, WritesTheSameBytesInEveryRun) {
  for (const char* name : {"a.pdf", "a.png", "a.svg"}) {
    const QString task = QString::fromLatin1(name).endsWith(QStringLiteral("pdf"))
                             ? QStringLiteral("--report")
                             : QStringLiteral("--graph");
    const QString out = QString::fromLatin1(name);
    ASSERT_EQ(Run({task, Path(out), Path(QStringLiteral("oil.csv"))}), 0) << errors_.toStdString();
    const QByteArray first = Bytes(out);
    QFile::remove(Path(out));
    ASSERT_EQ(Run({task, Path(out), Path(QStringLiteral("oil.csv"))}), 0);
    EXPECT_FALSE(first.isEmpty());
    EXPECT_TRUE(Bytes(out) == first) << name;
  }
}

TEST_F(BatchProgram, ReadsStandardInputAndLeavesTheFolderAsItWas) {
  EXPECT_EQ(Run({QStringLiteral("--statistics"), QStringLiteral("-")}, kFile), 0);
  EXPECT_TRUE(output_.contains("Std Dev"));
  EXPECT_EQ(errors_, "");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList{QStringLiteral("oil.csv")});
}

TEST_F(BatchProgram, TellsItsFailuresInOneLineEach) {
  EXPECT_EQ(Run({QStringLiteral("--statistics"), Path(QStringLiteral("missing.csv"))}), 3);
  EXPECT_EQ(errors_.count('\n'), 1);
  EXPECT_EQ(
      Run({QStringLiteral("--report"), QStringLiteral("/proc/none/x.pdf"), Path(QStringLiteral("oil.csv"))}),
      4);
  EXPECT_EQ(errors_.count('\n'), 1);
  EXPECT_TRUE(errors_.contains("cannot write /proc/none/x.pdf: No such file or directory"));
  EXPECT_EQ(Run({QStringLiteral("--statistics"), QStringLiteral("mis\nsing\r.csv")}), 3);
  EXPECT_EQ(errors_.count('\n'), 1);
  EXPECT_TRUE(errors_.contains("mis?sing?.csv"));
  EXPECT_EQ(Run({QStringLiteral("--report")}), 2);
  EXPECT_EQ(errors_.count('\n'), 1);
}

// A shell closes streams, links files and makes pipes; `script` has the program as "$0" and its folder as
// "$1".
class ShellProgram : public BatchProgram {
 protected:
  int Shell(const QString& script) {
    QProcess shell;
    shell.setWorkingDirectory(folder_.path());
    shell.start(QStringLiteral("bash"),
                {QStringLiteral("-c"), script, QStringLiteral(QUENLOR_PROGRAM), folder_.path()});
    EXPECT_TRUE(shell.waitForFinished(60'000));
    output_ = shell.readAllStandardOutput();
    errors_ = shell.readAllStandardError();
    return shell.exitCode();
  }
  int Shell(const char* script) { return Shell(QString::fromLatin1(script)); }
};

TEST_F(ShellProgram, NeverWritesOverAnInputOfAnotherName) {
  for (const char* link : {"ln oil.csv out.pdf", "ln -s oil.csv out.pdf"}) {
    const QString script = QString::fromLatin1(link) + QStringLiteral(R"(; "$0" --report out.pdf oil.csv)");
    EXPECT_EQ(Shell(script), 2);
    EXPECT_EQ(errors_, "quenlor: out.pdf is also the file to be read\n");
    EXPECT_EQ(Bytes(QStringLiteral("oil.csv")), kFile);
    QFile::remove(Path(QStringLiteral("out.pdf")));
  }
  EXPECT_EQ(Shell(R"(cp oil.csv out.pdf; "$0" --report out.pdf - <out.pdf)"), 2);
}

TEST_F(ShellProgram, TellsWhenAStreamIsClosedOrFull) {
  EXPECT_EQ(Shell(R"("$0" --help >/dev/full)"), 4);
  EXPECT_EQ(errors_, "quenlor: cannot write to standard output: No space left on device\n");
  EXPECT_EQ(Shell(R"("$0" --version >&-)"), 4);
  EXPECT_EQ(errors_, "quenlor: cannot write to standard output: Bad file descriptor\n");
  EXPECT_EQ(Shell(R"("$0" --statistics oil.csv >&-)"), 4);
  EXPECT_EQ(errors_, "quenlor: cannot write to standard output: Bad file descriptor\n");
  EXPECT_EQ(Shell(R"("$0" --statistics - <&-)"), 3);
  EXPECT_EQ(errors_, "quenlor: cannot read standard input: Bad file descriptor\n");
}

// Opening the pipe to write waits until the program has it open to read.
TEST_F(ShellProgram, OpensNoFileInThePlaceOfAClosedStream) {
  EXPECT_EQ(Shell(R"(mkfifo pipe
                     "$0" --graph out.svg pipe <&- >&- 2>&- &
                     exec 3>pipe
                     readlink /proc/$!/fd/{0,1,2}
                     cat oil.csv >&3
                     exec 3>&-
                     wait $!)"),
            0);
  EXPECT_EQ(output_, "/dev/null\n/dev/null\n/dev/null\n");
  EXPECT_TRUE(Bytes(QStringLiteral("out.svg")).contains("</svg>"));
}

TEST_F(ShellProgram, ReadsPipesAsFiles) {
  ASSERT_EQ(Shell(R"("$0" --statistics - <oil.csv)"), 0);
  const QByteArray statistics = output_.mid(output_.indexOf('\t'));
  for (const char* script :
       {R"("$0" --statistics <(cat oil.csv))", R"(cat oil.csv | "$0" --statistics /dev/stdin)",
        R"("$0" --statistics /dev/stdin <oil.csv)",
        R"(mkfifo pipe; cat oil.csv >pipe & "$0" --statistics pipe)"}) {
    EXPECT_EQ(Shell(script), 0) << script;
    EXPECT_EQ(output_.mid(output_.indexOf('\t')), statistics) << script;
    EXPECT_EQ(errors_, "") << script;
  }
  EXPECT_EQ(Shell(R"("$0" <(cat oil.csv))"), 2);
  EXPECT_TRUE(errors_.startsWith("quenlor: only batch commands read a pipe: /dev/fd/"));
}

TEST_F(ShellProgram, WritesTheSameBytesUnderEveryZoneLocaleAndScreen) {
  const QString make = QStringLiteral(
      R"(mkdir %1; for out in graph.{png,svg,pdf}; do %2 "$0" --graph %1/$out oil.csv; done
         %2 "$0" --report %1/report.pdf oil.csv; %2 "$0" --statistics --format csv oil.csv >%1/statistics.csv)");
  ASSERT_EQ(Shell(make.arg(QStringLiteral("here"), QStringLiteral("TZ=UTC LC_ALL=C"))), 0);
  const QStringList names = QDir(Path(QStringLiteral("here"))).entryList(QDir::Files);
  ASSERT_EQ(names.size(), 5);
  for (const char* there : {"TZ=Pacific/Auckland", "LC_ALL=de_DE.UTF-8", "QT_FONT_DPI=192",
                            "QT_SCALE_FACTOR=2", "QT_SCREEN_SCALE_FACTORS=1.5 QT_USE_PHYSICAL_DPI=1"}) {
    ASSERT_EQ(Shell(make.arg(QStringLiteral("there"), QStringLiteral("env ") + QString::fromLatin1(there))),
              0);
    for (const QString& name : names)
      EXPECT_TRUE(Bytes(QStringLiteral("there/") + name) == Bytes(QStringLiteral("here/") + name))
          << there << ' ' << name.toStdString();
    ASSERT_EQ(Shell("rm -r there"), 0);
  }
}

TEST_F(ShellProgram, ReadsAndWritesFilesUnderExactlyTheirNames) {
  EXPECT_EQ(Shell(R"(cp oil.csv $'\xF6l.csv'
                     "$0" --report $'\xF6l.pdf' $'\xF6l.csv' &&
                     "$0" --graph $'\xF6l.svg' - <$'\xF6l.csv' &&
                     mkdir $'lab\xFF' && printf '&h0000FF\r\n%.0s' {1..10} >$'lab\xFF/Color.txt' &&
                     echo Black >>$'lab\xFF/Color.txt' &&
                     "$0" --folder $'lab\xFF' --graph black.svg oil.csv && "$0" --graph white.svg oil.csv
                     LC_ALL=C; for name in *; do printf '%q\n' "$name"; done; rm -r $'\xF6'* $'lab\xFF')"),
            0);
  EXPECT_EQ(output_,
            "black.svg\n$'lab\\377'\noil.csv\nwhite.svg\n$'\\366l.csv'\n$'\\366l.pdf'\n$'\\366l.svg'\n")
      << errors_.toStdString();
  EXPECT_NE(Bytes(QStringLiteral("black.svg")), Bytes(QStringLiteral("white.svg")));
}

TEST_F(ShellProgram, KeepsNoFilesInAFolderWhoseNameIsNoText) {
  EXPECT_EQ(Shell(R"(mkdir $'lab\xFF'; QT_QPA_PLATFORM=offscreen "$0" --folder $'lab\xFF'
                     status=$?; ls; rmdir $'lab\xFF'; exit $status)"),
            2);
  EXPECT_TRUE(errors_.contains(": its name is not UTF-8")) << errors_.toStdString();
}

TEST_F(ShellProgram, NeedsTheFolderThatIsNamed) {
  for (const char* script :
       {R"("$0" --folder none --statistics oil.csv)", R"("$0" --folder none)", R"("$0" --folder oil.csv)"}) {
    EXPECT_EQ(Shell(script), 2) << script;
    EXPECT_TRUE(errors_.startsWith("quenlor: cannot use the folder ")) << errors_.toStdString();
  }
  EXPECT_FALSE(QFile::exists(Path(QStringLiteral("none"))));
}

}  // namespace
}  // namespace quenlor::app
