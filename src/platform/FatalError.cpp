#include "platform/FatalError.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

namespace tarvel {

void fatalError(std::string_view reason, const char* file, int line) {
  fmt::print(stderr, "Fatal error: {}, line {}{}{}\n", file, line, reason.empty() ? "" : ": ", reason);
  std::fflush(stderr);
  std::abort();
}

}  // namespace tarvel
