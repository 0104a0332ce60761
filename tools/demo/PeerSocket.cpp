#include "PeerSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <charconv>
#include <filesystem>
#include <string>

namespace tarvel::demo {
namespace {

using NameOf = int (*)(int, sockaddr*, socklen_t*);

int portOf(NameOf nameOf, int socket) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  if (nameOf(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return -1;
  return address.sin_family == AF_INET ? ntohs(address.sin_port) : -1;
}

}  // namespace

std::optional<int> socketOfPeer(int localPort, int peerPort) {
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
    const std::string name = entry.path().filename().string();
    int descriptor = -1;
    std::from_chars(name.data(), name.data() + name.size(), descriptor);
    if (portOf(::getpeername, descriptor) == peerPort && portOf(::getsockname, descriptor) == localPort) {
      return descriptor;
    }
  }
  return std::nullopt;
}

void hangUp(int socket) {
  ::shutdown(socket, SHUT_RDWR);
}

void abortConnection(int socket) {
  // Dissolving the association makes the system send a reset right away.
  sockaddr none{};
  none.sa_family = AF_UNSPEC;
  (void)::connect(socket, &none, sizeof none);
}

}  // namespace tarvel::demo
