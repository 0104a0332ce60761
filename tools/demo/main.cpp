#include <fmt/format.h>
#include <pthread.h>
#include <signal.h>
#include <stdlib.h>

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "DemoControl.h"
#include "DemoServer.h"
#include "DemoSite.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFileSystem.h"
#include "publish/FieldParsers.h"

namespace {

using namespace tarvel;

constexpr int kDefaultPort = 8462;
constexpr std::uint64_t kDefaultSeed = 20;

/// The disk without waiting for it: what a demo writes need not outlive a power cut.
class UnsyncedFileSystem : public PosixFileSystem {
 public:
  Status sync(const Path&) override { return Done{}; }
};

/// The folder of the published files: the one given, or one for the time of the run.
class TreeFolder {
 public:
  explicit TreeFolder(const std::string& given) : temporary_(given.empty()) {
    if (temporary_) {
      std::string name = std::filesystem::temp_directory_path() / "tarvel-demo-XXXXXX";
      path_ = ::mkdtemp(name.data()) ? name : "";
      return;
    }
    path_ = std::filesystem::absolute(given).lexically_normal().string();
    if (path_.size() > 1 && path_.back() == '/') path_.pop_back();
  }
  ~TreeFolder() {
    std::error_code error;
    if (temporary_ && !path_.empty()) std::filesystem::remove_all(path_, error);
  }
  TreeFolder(const TreeFolder&) = delete;
  TreeFolder& operator=(const TreeFolder&) = delete;
  const Path& path() const { return path_; }

 private:
  bool temporary_;
  Path path_;
};

struct Arguments {
  int port = kDefaultPort;
  std::string folder;
  bool publishOnly = false;
  std::string today;
  std::uint64_t seed = kDefaultSeed;
  std::vector<std::string> faults;
};

int fail(const std::string& reason) {
  fmt::print(stderr, "tarvel-demo: {}\n", reason);
  return 1;
}

sigset_t quitSignals() {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, SIGTERM);
  ::sigaddset(&signals, SIGINT);
  return signals;
}

int run(const Arguments& arguments, PackedDate today, demo::FaultRules& faults) {
  const PosixClock clock;
  UnsyncedFileSystem files;
  const TreeFolder tree(arguments.folder);
  if (tree.path().empty()) return fail("no temporary folder can be made");
  demo::RequestLog log(clock);
  demo::DemoSite site(files, clock, tree.path());
  demo::DemoServer server(site, faults, log);
  int port = arguments.port;
  if (!arguments.publishOnly) {
    const auto bound = server.bind(port);
    if (!bound) return fail(bound.error().description);
    port = *bound;
  }
  const std::string address = fmt::format("http://127.0.0.1:{}", port);
  demo::DemoContent content(arguments.seed, today, address);
  if (const auto report = site.publish(content); !report) return fail(report.error().description);
  if (arguments.publishOnly) {
    fmt::print("published for {} in {}\n", address, tree.path());
    return 0;
  }
  demo::DemoControl control(content, site, faults, log);
  server.start(control);
  fmt::print("serving on {}\n", address);
  std::fflush(stdout);
  const sigset_t signals = quitSignals();
  int signal = 0;
  ::sigwait(&signals, &signal);
  server.stop();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // Taken by sigwait alone; threads made from here on inherit it.
  const sigset_t signals = quitSignals();
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  CLI::App app(
      "Publishes a catalogue of invented rinks around today's date and serves it on this machine alone.");
  Arguments arguments;
  app.add_option("--port", arguments.port, "Port of 127.0.0.1; 0 takes a free one")
      ->check(CLI::Range(0, 65535))
      ->capture_default_str();
  app.add_option("--folder", arguments.folder, "Publish into this folder and keep it");
  app.add_flag("--publish-only", arguments.publishOnly, "Publish into --folder and end");
  app.add_option("--today", arguments.today, "The day around which the weeks lie, such as 2026-03-01");
  app.add_option("--seed", arguments.seed, "Another number, other sessions")->capture_default_str();
  app.add_option("--fault", arguments.faults,
                 "KIND[=VALUE][*TIMES]:PATH, such as latency=2:/root.b1 (repeatable)");
  CLI11_PARSE(app, argc, argv);

  demo::FaultRules faults;
  for (const std::string& text : arguments.faults) {
    const auto rule = demo::parseFaultRule(text);
    if (!rule) return fail("--fault: \"" + text + "\" is no rule such as latency=2:/root.b1");
    faults.add(*rule);
  }
  const PosixClock clock;
  std::optional<PackedDate> today = packedDate(clock.machineZone().local(clock.now()));
  if (!arguments.today.empty()) today = publish::parseDate(arguments.today);
  if (!today) return fail("--today: \"" + arguments.today + "\" is not a date such as 2026-03-01");
  if (arguments.publishOnly && arguments.folder.empty()) return fail("--publish-only needs --folder");
  if (arguments.publishOnly && arguments.port == 0) return fail("--publish-only needs a port other than 0");
  // Image formats are plug-ins, and these are found through the application object.
  const QCoreApplication application(argc, argv);
  return run(arguments, *today, faults);
}
