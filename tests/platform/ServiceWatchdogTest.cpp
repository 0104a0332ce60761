#include "platform/posix/ServiceWatchdog.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

#include "simulation/ports/SimWorld.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

using States = std::vector<std::string>;

/// The service manager's end of the socket.
class Manager {
 public:
  explicit Manager(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }
  ~Manager() { close(socket_); }
  /// What has come since the last call.
  States heard() const {
    States states;
    char text[64];
    for (ssize_t size; (size = recv(socket_, text, sizeof text, MSG_DONTWAIT)) > 0;) {
      states.emplace_back(text, static_cast<std::size_t>(size));
    }
    return states;
  }

 private:
  int socket_ = socket(AF_UNIX, SOCK_DGRAM, 0);
};

TEST(ServiceWatchdog, GivesSignsOfLifeFromTheMainLoop) {
  const TempFolder folder;
  const std::string path = folder.path() + "/notify";
  const Manager manager(path);
  SimWorld world;
  {
    const ServiceWatchdog watchdog(world.mainLoop(), ServiceWatchdog::Request{path, 30.0});
    EXPECT_EQ(manager.heard(), States{"READY=1"});
    world.runFor(25.0);
    EXPECT_EQ(manager.heard(), (States{"WATCHDOG=1", "WATCHDOG=1"}));
    world.sleepMachine(300.0);
    EXPECT_EQ(manager.heard(), States{}) << "a loop that stands still gives none";
  }
  EXPECT_EQ(manager.heard(), States{"STOPPING=1"});
  const ServiceWatchdog unwatched(world.mainLoop(), ServiceWatchdog::Request{path, std::nullopt});
  world.runFor(100.0);
  EXPECT_EQ(manager.heard(), States{"READY=1"});
}

TEST(ServiceWatchdog, DoesWithoutAManager) {
  SimWorld world;
  const ServiceWatchdog none(world.mainLoop(), std::nullopt);
  const ServiceWatchdog gone(world.mainLoop(), ServiceWatchdog::Request{"/nowhere/at/all", 30.0});
  const ServiceWatchdog strange(world.mainLoop(), ServiceWatchdog::Request{std::string(500, 'x'), 30.0});
  EXPECT_EQ(world.pendingTimers(), 0U);
}

}  // namespace
}  // namespace tarvel
