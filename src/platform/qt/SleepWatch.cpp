#include "platform/qt/SleepWatch.h"

#include <QDBusConnection>
#include <utility>
#include <vector>

namespace tarvel {

void SleepWatch::connectToLoginManager() {
  QDBusConnection bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return;
  bus.connect(QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
              QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"), this,
              SLOT(prepareForSleep(bool)));
}

int SleepWatch::add(std::function<void()> handler) {
  handlers_.emplace(++lastKey_, std::make_shared<std::function<void()>>(std::move(handler)));
  return lastKey_;
}

void SleepWatch::remove(int key) {
  handlers_.erase(key);
}

void SleepWatch::prepareForSleep(bool goingToSleep) {
  if (goingToSleep) return;
  std::vector<int> keys;
  keys.reserve(handlers_.size());
  for (const auto& [key, handler] : handlers_) keys.push_back(key);
  for (const int key : keys) {
    const auto found = handlers_.find(key);
    if (found == handlers_.end()) continue;
    const auto handler = found->second;  // it may remove itself
    (*handler)();
  }
}

}  // namespace tarvel
