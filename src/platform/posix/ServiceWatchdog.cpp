#include "platform/posix/ServiceWatchdog.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace tarvel {
namespace {

constexpr double kMicrosecondsPerSecond = 1e6;
/// Of the time the manager waits: one sign may be late.
constexpr double kSignsInterval = 0.4;

int connectTo(const std::string& path) {
  sockaddr_un address{};
  if (path.empty() || path.size() >= sizeof address.sun_path) return -1;
  address.sun_family = AF_UNIX;
  std::memcpy(address.sun_path, path.data(), path.size());
  if (path.front() == '@') address.sun_path[0] = '\0';
  const int made = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
  if (made >= 0 && connect(made, reinterpret_cast<const sockaddr*>(&address), length) == 0) return made;
  if (made >= 0) close(made);
  return -1;
}

}  // namespace

std::optional<ServiceWatchdog::Request> ServiceWatchdog::requestOfEnvironment() {
  const char* path = std::getenv("NOTIFY_SOCKET");
  if (!path || !*path) return std::nullopt;
  Request request{path, std::nullopt};
  const char* interval = std::getenv("WATCHDOG_USEC");
  const double seconds = interval ? std::strtod(interval, nullptr) / kMicrosecondsPerSecond : 0.0;
  if (seconds > 0.0) request.watchdogSeconds = seconds;
  return request;
}

ServiceWatchdog::ServiceWatchdog(RunLoop& mainLoop, const std::optional<Request>& request) {
  if (request) socket_ = connectTo(request->socket);
  if (socket_ < 0) return;
  tell("READY=1");
  if (!request->watchdogSeconds) return;
  const double interval = *request->watchdogSeconds * kSignsInterval;
  signs_ = mainLoop.every(interval, interval, [this] { tell("WATCHDOG=1"); });
}

ServiceWatchdog::~ServiceWatchdog() {
  if (socket_ < 0) return;
  tell("STOPPING=1");
  close(socket_);
}

void ServiceWatchdog::tell(const std::string& state) const {
  // A manager that doesn't read takes no harm from a sign that is lost.
  send(socket_, state.data(), state.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
}

}  // namespace tarvel
