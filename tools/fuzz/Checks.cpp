#include "Checks.h"

#include <cstdio>
#include <cstdlib>

#include "platform/FatalError.h"

namespace tarvel::fuzz {

namespace {
// The dearest a byte can be: a photo without texts takes four in its file. Fixed costs come on top.
constexpr std::size_t kBytesPerByte = 128;
constexpr std::size_t kFixedBytes = 64 << 10;

[[maybe_unused]] const FatalErrorHandler kNoHandler =
    setFatalErrorHandler([](std::string_view reason) { throw ProgramStop{std::string(reason)}; });
}  // namespace

void require(bool kept, const char* promise) {
  if (kept) return;
  std::fprintf(stderr, "Broken promise: %s\n", promise);
  std::abort();
}

bool isAllowed(const ProgramStop& stop) {
  return stop.reason == "negative count" || stop.reason == "unknown session kind in a week file";
}

std::size_t allowance(ByteView input) {
  return kFixedBytes + kBytesPerByte * input.size();
}

}  // namespace tarvel::fuzz
