#include "platform/qt/QtWorkspace.h"

#include <QDesktopServices>
#include <QUrl>
#include <cmath>
#include <utility>

#include "platform/qt/MapHandler.h"
#include "platform/qt/SleepWatch.h"

namespace tarvel {
namespace {

constexpr double kMaxLatitude = 90.0;
constexpr double kMaxLongitude = 180.0;

}  // namespace

class QtWorkspace::WakeSubscription final : public Workspace::Subscription {
 public:
  WakeSubscription(const std::shared_ptr<SleepWatch>& watch, std::function<void()> handler)
      : watch_(watch), key_(watch->add(std::move(handler))) {}
  ~WakeSubscription() override {
    if (const auto watch = watch_.lock()) watch->remove(key_);
  }

 private:
  std::weak_ptr<SleepWatch> watch_;
  int key_;
};

QtWorkspace::QtWorkspace() = default;
QtWorkspace::~QtWorkspace() = default;

bool QtWorkspace::openUrl(const std::string& url) {
  const QUrl parsed(QString::fromStdString(url), QUrl::StrictMode);
  const bool web = parsed.scheme() == u"http" || parsed.scheme() == u"https";
  if (!parsed.isValid() || !web || parsed.host().isEmpty()) return false;
  return QDesktopServices::openUrl(parsed);
}

bool QtWorkspace::openLocation(double latitude, double longitude) {
  // Written so that no number that isn't one passes.
  const bool onGlobe = std::abs(latitude) <= kMaxLatitude && std::abs(longitude) <= kMaxLongitude;
  if (!onGlobe) return false;
  if (hasMapApplication() &&
      QDesktopServices::openUrl(QUrl(QString::fromStdString(geoLink(latitude, longitude))))) {
    return true;
  }
  return openUrl(mapWebsiteLink(latitude, longitude));
}

std::unique_ptr<Workspace::Subscription> QtWorkspace::onWake(std::function<void()> handler) {
  if (!sleepWatch_) {
    sleepWatch_ = std::make_shared<SleepWatch>();
    sleepWatch_->connectToLoginManager();
  }
  return std::make_unique<WakeSubscription>(sleepWatch_, std::move(handler));
}

}  // namespace tarvel
