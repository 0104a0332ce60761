#include "platform/FatalError.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

namespace tarvel {

void fatalError(std::string_view reason, std::source_location where) {
  fmt::print(stderr, "Fatal error: {}, line {}{}{}\n", where.file_name(), where.line(),
             reason.empty() ? "" : ": ", reason);
  std::fflush(stderr);
  std::abort();
}

}  // namespace tarvel
