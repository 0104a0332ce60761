#include "platform/qt/NetworkWatch.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <utility>

namespace tarvel {

namespace {

constexpr std::size_t kMessageBytes = 16'384;

/// -1 if the system doesn't give one.
int routeSocket() {
  const int socket = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE);
  if (socket < 0) return socket;
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  address.nl_groups = RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_ROUTE;
  if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return socket;
  ::close(socket);
  return -1;
}

/// A new route to everywhere. The multicast and unreachable ones that go with each interface lead nowhere.
bool isDefaultRoute(const nlmsghdr& header) {
  if (header.nlmsg_type != RTM_NEWROUTE || header.nlmsg_len < NLMSG_LENGTH(sizeof(rtmsg))) return false;
  const auto& route = *static_cast<const rtmsg*>(NLMSG_DATA(&header));
  return route.rtm_dst_len == 0 && route.rtm_type == RTN_UNICAST;
}

}  // namespace

NetworkWatch::NetworkWatch(std::function<void()> networkCameBack)
    : networkCameBack_(std::move(networkCameBack)), socket_(routeSocket()) {
  if (socket_ < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readMessages(); });
}

NetworkWatch::~NetworkWatch() {
  notifier_ = nullptr;  // before what it watches
  if (socket_ >= 0) ::close(socket_);
}

void NetworkWatch::readMessages() {
  bool cameBack = false;
  alignas(nlmsghdr) std::array<char, kMessageBytes> buffer;
  for (;;) {
    const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), 0);
    // More news than the kernel could keep: what was lost may have been a route.
    if (count < 0 && errno == ENOBUFS) cameBack = true;
    if (count < 0 && (errno == EINTR || errno == ENOBUFS)) continue;
    if (count <= 0) break;
    auto left = static_cast<unsigned>(count);
    for (const auto* header = reinterpret_cast<const nlmsghdr*>(buffer.data()); NLMSG_OK(header, left);
         header = NLMSG_NEXT(header, left)) {
      cameBack = cameBack || isDefaultRoute(*header);
    }
  }
  if (cameBack) networkCameBack_();
}

}  // namespace tarvel
