// SPDX-License-Identifier: MIT
//
// Plays random user actions on the real window, on a screen that nobody sees, and looks after each at what
// the program promises. Says with which seed it played; the same seed plays the same actions. What fails is
// played again with fewer and fewer actions, until each of those left is needed.
//
// Usage: quenlor-action-fuzz [--seed N] [--actions M] [--seconds S] [--only I,J,...]

#include <QApplication>
#include <QTemporaryDir>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <numeric>
#include <optional>
#include <string_view>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/qt/system_reasons.h"
#include "tests/actions/player.h"

namespace quenlor::actions {
namespace {

using Indices = std::vector<int>;

struct Options {
  std::uint64_t seed = std::random_device()();
  int actions = 200;
  int seconds = 0;  // without it, one seed
  Indices only;     // those actions alone
};

constexpr int kShrinkSeconds = 240;
constexpr unsigned kLongestPlay = 120;  // seconds

// In a process of its own: what fails may end it.
int Play(std::uint64_t seed, int count, const Indices& chosen, bool tell) {
  const rlimit of_the_processor{kLongestPlay, kLongestPlay};
  ::setrlimit(RLIMIT_CPU, &of_the_processor);
  ::alarm(10 * kLongestPlay);
  int argc = 1;
  char name[] = "quenlor-action-fuzz";
  char* argv[] = {name, nullptr};
  const QTemporaryDir home;
  for (const char* folder : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(folder, home.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) return;  // of what this screen cannot do
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::abort();
  });
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  platform::qt::SystemReasonsInEnglish();
  const std::vector<Action> actions = RandomActions(seed, count);
  std::optional<Player> player;
  try {
    player.emplace();
    for (const int index : chosen) {
      if (tell) std::fprintf(stderr, "action %d: ", index);
      player->Do(actions[static_cast<std::size_t>(index)]);
      if (tell) std::fprintf(stderr, "%s\n", player->Told().c_str());
    }
    if (tell) std::fprintf(stderr, "the end: ");
    player->End();
  } catch (const std::exception& broken) {
    std::fprintf(stderr, "%s\nbroken: %s\n", player ? player->Told().c_str() : "", broken.what());
    return 1;
  }
  return 0;
}

bool Fails(const Options& options, const Indices& chosen, bool tell) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    if (!tell && std::freopen("/dev/null", "w", stderr) == nullptr) std::_Exit(2);
    std::_Exit(Play(options.seed, options.actions, chosen, tell));
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (tell && WIFSIGNALED(status)) std::fprintf(stderr, "ended by signal %d\n", WTERMSIG(status));
  return status != 0;
}

// Leaves away ever smaller pieces without which it fails as well.
Indices Shrunk(const Options& options, Indices failing) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(kShrinkSeconds);
  for (std::size_t piece = failing.size() / 2; piece > 0; piece /= 2) {
    for (std::size_t at = 0; at < failing.size();) {
      if (std::chrono::steady_clock::now() > until) return failing;
      Indices fewer = failing;
      const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(at);
      fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, fewer.size() - at)));
      if (Fails(options, fewer, false)) {
        failing = fewer;
      } else {
        at += piece;
      }
    }
  }
  return failing;
}

Indices Numbers(std::string_view text) {
  Indices numbers;
  for (const char *at = text.data(), *end = at + text.size(); at < end; ++at) {
    int number = 0;
    at = std::from_chars(at, end, number).ptr;
    numbers.push_back(number);
  }
  return numbers;
}

std::optional<Options> Parse(int argc, char** argv) {
  Options options;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string_view name = argv[i];
    if (name == "--seed")
      options.seed = std::strtoull(argv[i + 1], nullptr, 10);
    else if (name == "--actions")
      options.actions = std::atoi(argv[i + 1]);
    else if (name == "--seconds")
      options.seconds = std::atoi(argv[i + 1]);
    else if (name == "--only")
      options.only = Numbers(argv[i + 1]);
    else
      return std::nullopt;
  }
  if (argc % 2 == 0 || options.actions < 1) return std::nullopt;
  return options;
}

int Report(const Options& options, const Indices& failing) {
  std::printf("seed %llu fails; leaving away what it fails without…\n",
              static_cast<unsigned long long>(options.seed));
  const Indices needed = Shrunk(options, failing);
  Fails(options, needed, true);
  std::string only;
  for (const int index : needed) only += (only.empty() ? "" : ",") + std::to_string(index);
  std::printf("To play it again: quenlor-action-fuzz --seed %llu --actions %d --only %s\n",
              static_cast<unsigned long long>(options.seed), options.actions, only.c_str());
  return 1;
}

int Run(Options options) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(options.seconds);
  long long played = 0;
  do {
    Indices all(static_cast<std::size_t>(options.actions));
    std::iota(all.begin(), all.end(), 0);
    std::printf("seed %llu\n", static_cast<unsigned long long>(options.seed));
    if (Fails(options, all, false)) return Report(options, all);
    played += options.actions;
    ++options.seed;
  } while (std::chrono::steady_clock::now() < until);
  std::printf("%lld actions, nothing broken\n", played);
  return 0;
}

}  // namespace
}  // namespace quenlor::actions

int main(int argc, char** argv) {
  using namespace quenlor::actions;
  const auto options = Parse(argc, argv);
  if (!options) {
    std::fputs("usage: quenlor-action-fuzz [--seed N] [--actions M] [--seconds S] [--only I,J,...]\n",
               stderr);
    return 2;
  }
  if (!options->only.empty()) return Fails(*options, options->only, true) ? 1 : 0;
  return Run(*options);
}
