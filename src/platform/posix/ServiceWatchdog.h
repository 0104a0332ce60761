#pragma once
#include <memory>
#include <optional>
#include <string>

#include "platform/RunLoop.h"

namespace tarvel {

/// Tells the service manager that started the program, if one did, that it is ready, and then again and again
/// that its main loop still turns; without these signs the manager starts it anew. Main thread.
class ServiceWatchdog {
 public:
  /// What a service manager asks for in the environment.
  struct Request {
    std::string socket;                     ///< of the manager; '@' begins an abstract name
    std::optional<double> watchdogSeconds;  ///< none if it doesn't wait for signs of life
  };
  /// None for a program that no service manager started.
  static std::optional<Request> requestOfEnvironment();

  /// The loop outlives it. A manager that can't be reached is not tried again.
  ServiceWatchdog(RunLoop& mainLoop, const std::optional<Request>& request);
  ~ServiceWatchdog();
  ServiceWatchdog(const ServiceWatchdog&) = delete;
  ServiceWatchdog& operator=(const ServiceWatchdog&) = delete;

 private:
  void tell(const std::string& state) const;

  int socket_ = -1;
  std::unique_ptr<Timer> signs_;
};

}  // namespace tarvel
