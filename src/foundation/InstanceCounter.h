#pragma once
#include <cstdint>

#include "platform/FatalError.h"

namespace tarvel {

/// Counts the live objects of a class for the debug report: `class Venue : Counted<Venue>`. Main thread only.
template <class T>
class Counted {
 public:
  static std::int64_t liveCount() { return count; }

 protected:
  Counted() { ++count; }
  Counted(const Counted&) { ++count; }
  Counted& operator=(const Counted&) = default;
  ~Counted() {
    if (--count < 0) fatalError("instance count below zero");
  }

 private:
  static inline std::int64_t count = 0;
};

}  // namespace tarvel
