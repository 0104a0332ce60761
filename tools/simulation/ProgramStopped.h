#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/FatalError.h"

namespace tarvel::sim {

/// Thrown in place of the process's end while a `StopCatcher` stands.
struct ProgramStopped : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Lets the simulated program end without ending the simulation.
class StopCatcher {
 public:
  StopCatcher()
      : previous_(setFatalErrorHandler(
            [](std::string_view reason) { throw ProgramStopped(std::string(reason)); })) {}
  ~StopCatcher() { setFatalErrorHandler(previous_); }
  StopCatcher(const StopCatcher&) = delete;
  StopCatcher& operator=(const StopCatcher&) = delete;

 private:
  FatalErrorHandler previous_;
};

}  // namespace tarvel::sim
