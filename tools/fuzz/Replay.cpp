#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "Targets.h"

/// Runs one target over the files of a folder: fuzz_replay rootFile tools/fuzz/corpus/rootFile. A folder
/// without files is an error. Needs no fuzzer, so that any compiler's tests can look at the corpus.
namespace {

using namespace tarvel;

const fuzz::Target* targetOf(std::string_view name) {
  for (const fuzz::Target& target : fuzz::kTargets) {
    if (target.name == name) return &target;
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  const fuzz::Target* const target = argc == 3 ? targetOf(argv[1]) : nullptr;
  if (!target) {
    std::fprintf(stderr, "usage: fuzz_replay TARGET FOLDER\n");
    return 2;
  }
  int count = 0;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(argv[2], error)) {
    if (!entry.is_regular_file()) continue;
    // The last line tells which file it was, should the check end the program.
    std::printf("%s\n", entry.path().c_str());
    std::fflush(stdout);
    std::ifstream file(entry.path(), std::ios::binary);
    const Bytes content{std::istreambuf_iterator<char>(file), {}};
    target->check(content);
    ++count;
  }
  std::printf("%d files\n", count);
  return count > 0 ? 0 : 1;
}
