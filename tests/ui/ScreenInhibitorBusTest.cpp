// Runs on a message bus of its own, on which the test plays the desktop's part.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include "LoopSupport.h"
#include "platform/qt/DBusScreenInhibitor.h"

namespace tarvel {
namespace {

constexpr uint kCookie = 42;
const QString kRequest = QStringLiteral("/org/freedesktop/portal/desktop/request/1");

/// The screen saver, or the portal, of a desktop: it notes the calls, and answers an inhibition.
class Desktop final : public QDBusVirtualObject {
 public:
  Desktop(const QString& service, const QString& object)
      : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, service)),
        service_(service),
        object_(object) {
    EXPECT_TRUE(bus_.registerVirtualObject(object_, this, QDBusConnection::SubPath));
    EXPECT_TRUE(bus_.registerService(service_));
  }
  ~Desktop() override {
    bus_.unregisterService(service_);
    bus_.unregisterObject(object_);
  }
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls << message.member() + (message.path() == kRequest ? " request" : "");
    const bool isPortal = service_.endsWith(u"Desktop");
    calls.back() += message.member() == "UnInhibit" ? argument(message, 0) : QString();
    if (message.member() != "Inhibit") return QDBusConnection(connection).send(message.createReply());
    if (isPortal) calls.back() += argument(message, 1);
    const QVariant answer = isPortal ? QVariant::fromValue(QDBusObjectPath(kRequest)) : QVariant(kCookie);
    return QDBusConnection(connection).send(message.createReply(answer));
  }

  QStringList calls;

 private:
  static QString argument(const QDBusMessage& message, int index) {
    return QStringLiteral(" %1").arg(message.arguments().value(index).toUInt());
  }

  QDBusConnection bus_;
  QString service_;
  QString object_;
};

TEST(ScreenInhibitor, HoldsAndReleasesByTheScreenSaverElseByThePortal) {
  const std::tuple<const char*, const char*, QStringList> cases[] = {
      {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", {"Inhibit", "UnInhibit 42"}},
      {"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", {"Inhibit 8", "Close request"}},
  };
  for (const auto& [name, path, expected] : cases) {
    Desktop desktop(name, path);
    DBusScreenInhibitor inhibitor;
    auto hold = inhibitor.inhibit("a test");
    test::runUntil([&] { return desktop.calls.size() == 1; });
    hold.reset();
    test::runUntil([&] { return desktop.calls.size() == 2; });
    EXPECT_EQ(desktop.calls, expected);
  }
}

TEST(ScreenInhibitor, LetGoOfBeforeTheDesktopAnswersItHoldsNothing) {
  Desktop desktop("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver");
  DBusScreenInhibitor inhibitor;
  inhibitor.inhibit("a test").reset();
  test::runUntil([&] { return desktop.calls.size() == 2; });
  EXPECT_EQ(desktop.calls.back(), "UnInhibit 42");
}

}  // namespace
}  // namespace tarvel
