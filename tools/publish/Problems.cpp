#include "Problems.h"

#include <fmt/format.h>

namespace tarvel::publish {

std::string describe(const Problem& problem) {
  if (problem.field.empty()) return fmt::format("{}: {}", problem.file, problem.reason);
  return fmt::format("{}: {}: {}", problem.file, problem.field, problem.reason);
}

}  // namespace tarvel::publish
