#pragma once
#include <string>
#include <vector>

namespace tarvel::publish {

/// Where something in the descriptions stands, and what is the matter with it.
struct Problem {
  std::string file;   ///< relative to the input folder
  std::string field;  ///< "schedules[0].sessions[3].time"; empty for the file as a whole
  std::string reason;
  friend bool operator==(const Problem&, const Problem&) = default;
};

/// "rinks/cedar/rink.json: venues[1].kind: there is no ...".
std::string describe(const Problem& problem);

/// Everything that was found in one reading, so that a rink's publisher sees all faults at once. Errors
/// forbid publishing, warnings don't.
struct Problems {
  std::vector<Problem> errors;
  std::vector<Problem> warnings;
};

}  // namespace tarvel::publish
