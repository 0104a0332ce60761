#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>

#include "platform/posix/PosixClock.h"
#include "reliability/StoreRun.h"

int main(int argc, char** argv) {
  using namespace tarvel;
  CLI::App app("Runs the application once, without its windows, on a store and a folder of published files.");
  reliability::StoreRunOptions options;
  app.add_option("--store", options.store, "The application's folder, absolute")->required();
  app.add_option("--site", options.site, "The published files, absolute")->required();
  app.add_option("--rinks", options.rinks, "Ids of the rinks to look at");
  options.start = PosixClock().now();
  app.add_option("--now", options.start.seconds, "Wall time of the start, in seconds since 2001-01-01 UTC");
  CLI11_PARSE(app, argc, argv);

  reliability::StoreRun run(options);
  run.launch();
  run.use();
  run.quit();
  const auto errors = run.errors();
  for (const std::string& error : errors) fmt::print(stderr, "{}\n", error);
  return errors.empty() ? 0 : 1;
}
