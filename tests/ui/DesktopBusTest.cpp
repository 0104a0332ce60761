// Runs on a message bus of its own, on which the test plays the desktop's part.
#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <map>

#include "LoopSupport.h"
#include "platform/qt/QtWorkspace.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/SystemAppearance.h"

namespace tarvel {
namespace {

const QString kPortalObject = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");

/// The connection of the desktop's side.
QDBusConnection desktopBus() {
  static const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "desktop");
  return bus;
}

QVariant accentValue(double red, double green, double blue) {
  QDBusArgument argument;
  argument.beginStructure();
  argument << red << green << blue;
  argument.endStructure();
  return QVariant::fromValue(argument);
}

class Portal final : public QDBusVirtualObject {
 public:
  Portal() {
    EXPECT_TRUE(desktopBus().registerVirtualObject(kPortalObject, this));
    EXPECT_TRUE(desktopBus().registerService("org.freedesktop.portal.Desktop"));
  }
  ~Portal() override {
    desktopBus().unregisterService("org.freedesktop.portal.Desktop");
    desktopBus().unregisterObject(kPortalObject);
  }
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.interface() != kSettings || message.member() != "Read") return false;
    const auto value = settings.find(message.arguments().at(1).toString());
    if (value == settings.end()) return false;
    const QDBusVariant wrapped(QVariant::fromValue(QDBusVariant(value->second)));
    return QDBusConnection(connection).send(message.createReply(QVariant::fromValue(wrapped)));
  }
  static void announce(const QString& key, const QVariant& value, const QString& group = kGroup) {
    QDBusMessage signal = QDBusMessage::createSignal(kPortalObject, kSettings, "SettingChanged");
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    desktopBus().send(signal);
  }

  std::map<QString, QVariant> settings{{"color-scheme", 1u}, {"accent-color", accentValue(-1.0, -1.0, -1.0)}};
};

TEST(DesktopBus, TheAppearanceIsThePortalsAndFollowsIt) {
  Portal portal;
  portal.settings["accent-color"] = accentValue(0.48, 0.24, 0.69);
  const SystemAppearance appearance;
  EXPECT_EQ(appearance.current(), Appearance::light);
  const auto accent = [&] { return color(kSelectedContentBackground, Appearance::light).name(); };
  test::runUntil([&] { return appearance.current() == Appearance::dark && accent() == "#7a3db0"; });
  Portal::announce("color-scheme", 2u);
  test::runUntil([&] { return appearance.current() == Appearance::light; });
  Portal::announce("accent-color", accentValue(-1.0, -1.0, -1.0));
  test::runUntil([&] { return accent() != "#7a3db0"; });
}

TEST(DesktopBus, ContrastAndTextSizeAreThePortalsAndFollowIt) {
  Portal portal;
  portal.settings["contrast"] = 1u;
  portal.settings["text-scaling-factor"] = 1.5;
  const SystemAppearance appearance;
  test::runUntil([] { return contrast() == Contrast::high && textScale() == 1.5; });
  Portal::announce("contrast", 0u);
  Portal::announce("text-scaling-factor", 1.0, "org.gnome.desktop.interface");
  test::runUntil([] { return contrast() == Contrast::standard && textScale() == 1.0; });
}

TEST(DesktopBus, AWakeIsTheLoginManagersSignal) {
  ASSERT_TRUE(desktopBus().registerService("org.freedesktop.login1"));
  QtWorkspace workspace;
  int wakes = 0;
  const auto subscription = workspace.onWake([&] { ++wakes; });
  const auto announce = [](bool goingToSleep) {
    QDBusMessage signal = QDBusMessage::createSignal("/org/freedesktop/login1",
                                                     "org.freedesktop.login1.Manager", "PrepareForSleep");
    signal << goingToSleep;
    desktopBus().send(signal);
  };
  announce(true);
  announce(false);
  test::runUntil([&] { return wakes > 0; });
  EXPECT_EQ(wakes, 1);
}

}  // namespace
}  // namespace tarvel

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // The login manager stands on the other bus; here one bus is both.
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  return RUN_ALL_TESTS();
}
