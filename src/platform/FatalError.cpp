#include "platform/FatalError.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tarvel {

namespace {
FatalErrorHandler fatalErrorHandler = nullptr;
}

void fatalError(std::string_view reason, const char* file, int line) {
  if (fatalErrorHandler) fatalErrorHandler(reason);
  fmt::print(stderr, "Fatal error: {}, line {}{}{}\n", file, line, reason.empty() ? "" : ": ", reason);
  std::fflush(stderr);
  std::abort();
}

FatalErrorHandler setFatalErrorHandler(FatalErrorHandler handler) {
  return std::exchange(fatalErrorHandler, handler);
}

}  // namespace tarvel
