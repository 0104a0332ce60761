#pragma once
#include <functional>
#include <memory>

class QSocketNotifier;

namespace tarvel {

/// Hears from the kernel that the machine has got a way into the world: a default route, as it comes with
/// each network, whoever manages it (the toolkit's own network information hears nothing where there is no
/// network manager, as on a display on a wall). Made after the application object, whose event loop brings
/// the news; main thread. Silent on a machine that doesn't let it listen.
class NetworkWatch {
 public:
  explicit NetworkWatch(std::function<void()> networkCameBack);
  ~NetworkWatch();
  NetworkWatch(const NetworkWatch&) = delete;
  NetworkWatch& operator=(const NetworkWatch&) = delete;

 private:
  void readMessages();

  std::function<void()> networkCameBack_;
  int socket_;  ///< -1 if there is none
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tarvel
