#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>

#include "FieldParsers.h"
#include "PublishInput.h"
#include "Publisher.h"
#include "foundation/TextFormats.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFileSystem.h"

namespace {

using namespace tarvel;

enum ExitCode { kDone = 0, kBadInput = 1, kFailed = 2 };

struct Arguments {
  std::string input;
  std::string output;
  std::string at;
  bool check = false;
  bool quiet = false;
};

Path absolutePath(const std::string& text) {
  Path path = std::filesystem::absolute(text).lexically_normal().string();
  if (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

int publishTree(const Arguments& arguments, Instant now) {
  PosixFileSystem files;
  const publish::PublishInput input = publish::readPublishInput(files, absolutePath(arguments.input));
  for (const publish::Problem& warning : input.problems.warnings) {
    fmt::print(stderr, "warning: {}\n", publish::describe(warning));
  }
  for (const publish::Problem& error : input.problems.errors) {
    fmt::print(stderr, "error: {}\n", publish::describe(error));
  }
  if (!input.problems.errors.empty()) {
    fmt::print(stderr, "Nothing was published.\n");
    return kBadInput;
  }
  if (arguments.check) return kDone;
  const auto report = publish::Publisher(files, absolutePath(arguments.output)).publish(input.catalogue, now);
  if (!report) {
    fmt::print(stderr, "error: {}\n", report.error().description);
    return kFailed;
  }
  if (arguments.quiet) return kDone;
  for (const std::string& path : report->written) fmt::print("wrote    {}\n", path);
  for (const std::string& path : report->removed) fmt::print("removed  {}\n", path);
  fmt::print("{} rinks: {} files written, {} removed, {} unchanged; new date {} UTC\n",
             input.catalogue.rinks.size(), report->written.size(), report->removed.size(), report->unchanged,
             dateAndTimeText(report->date, TimeZone::utc()));
  return kDone;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Turns a folder of rink descriptions into the files that a web server hands out.");
  Arguments arguments;
  app.add_option("INPUT", arguments.input, "Folder of descriptions, with catalogue.json in it")->required();
  CLI::Option* output = app.add_option("OUTPUT", arguments.output, "Folder that the web server serves");
  app.add_option("--at", arguments.at,
                 "Date of what changes, such as 2026-03-01T17:30:00Z; now if not given");
  CLI::Option* check = app.add_flag("--check", arguments.check, "Read and check INPUT, and write nothing");
  app.add_flag("--quiet", arguments.quiet, "Print nothing but errors and warnings");
  CLI11_PARSE(app, argc, argv);
  if (!*output && !*check) {
    fmt::print(stderr, "OUTPUT is required unless --check is given.\n");
    return kBadInput;
  }
  Instant now = PosixClock().now();
  if (!arguments.at.empty()) {
    const auto at = publish::parseInstant(arguments.at);
    if (!at) {
      fmt::print(stderr, "--at: \"{}\" is not an instant such as 2026-03-01T17:30:00Z\n", arguments.at);
      return kBadInput;
    }
    now = *at;
  }
  return publishTree(arguments, now);
}
