#pragma once
#include <string>

#include "Random.h"

namespace tarvel::demo {

struct SessionText {
  std::string subtitle;
  std::string note;
};

/// A subtitle and a note such as a rink would give to a session of that kind at that time (minutes after
/// midnight); either may be empty.
SessionText sessionText(Random& random, const std::string& kind, int time);

}  // namespace tarvel::demo
