// Runs on a message bus of its own, on which the test plays the launcher's part.
#include "app/DBusApplication.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>

namespace tarvel {
namespace {

const QString kId = QStringLiteral("org.example.Test-App");
const QString kPath = QStringLiteral("/org/example/Test_App");

class DBusApplicationTest : public testing::Test {
 protected:
  using Notice = const StartupNotice&;

  static bool isNameOwned() { return QDBusConnection::sessionBus().interface()->isServiceRegistered(kId); }
  std::unique_ptr<DBusApplication> application() {
    auto made = std::make_unique<DBusApplication>(
        QDBusConnection::sessionBus(), kId, [this](Notice notice) { note("activate", notice); },
        std::map<QString, DBusApplication::Request>{
            {"today-window", [this](Notice notice) { note("today", notice); }}});
    EXPECT_TRUE(isNameOwned());
    return made;
  }
  /// The answer to the launcher.
  QDBusMessage call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(kId, kPath, "org.freedesktop.Application", method);
    message.setArguments(arguments);
    QDBusPendingCallWatcher pending(launcher_.asyncCall(message));
    QEventLoop loop;
    QObject::connect(&pending, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    return pending.reply();
  }

  QStringList heard;

 private:
  void note(const char* what, Notice notice) {
    heard << QString("%1 %2 %3").arg(what, notice.startupId.constData(), notice.activationToken.constData());
  }

  QDBusConnection launcher_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "launcher");
};

TEST_F(DBusApplicationTest, TakesTheCallsOfALauncher) {
  const auto app = application();
  const QVariantMap x11{{"desktop-startup-id", "id_TIME7"}};
  const QVariantMap wayland{{"activation-token", "token"}, {"unknown", 1}};
  const std::tuple<QString, QVariantList, QString, QString> cases[] = {
      {"Activate", {x11}, "activate id_TIME7 ", ""},
      {"Open", {QStringList{"file:///a"}, wayland}, "activate  token", ""},
      {"ActivateAction", {"today-window", QVariantList(), wayland}, "today  token", ""},
      {"ActivateAction", {"format-disk", QVariantList(), x11}, "", "org.freedesktop.DBus.Error.InvalidArgs"},
      {"Activate", {1}, "", "org.freedesktop.DBus.Error.UnknownMethod"},
  };
  for (const auto& [member, given, text, error] : cases) {
    heard.clear();
    EXPECT_EQ(call(member, given).errorName(), error);
    EXPECT_EQ(heard.join("|"), text);
  }
}

TEST_F(DBusApplicationTest, TheNameIsTheFirstOnesAndGoesWithIt) {
  auto app = application();
  const QString owner = QDBusConnection::sessionBus().interface()->serviceOwner(kId);
  {
    const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "other");
    const DBusApplication other(bus, kId, {}, {});
    ASSERT_TRUE(bus.interface()->isServiceRegistered(kId))
        << "asked on the same way, so behind the other's wish";
    EXPECT_EQ(call("Activate", {QVariantMap()}).errorName(), "");
    EXPECT_EQ(QDBusConnection::sessionBus().interface()->serviceOwner(kId).value(), owner);
  }
  app.reset();
  EXPECT_FALSE(isNameOwned()) << "nobody waited in a queue for it";
  // A copy without a bus does without the name.
  const DBusApplication alone(QDBusConnection::connectToBus("unix:path=/nonexistent", "none"), kId, {}, {});
}

TEST(StartupNotice, ALineBringsBackWhatItWasMadeOf) {
  const std::pair<StartupNotice, StartupNotice> cases[] = {{{"id_TIME7", "token"}, {"id_TIME7", "token"}},
                                                           {{"", "token"}, {"", "token"}},
                                                           {{"id", ""}, {"id", ""}},
                                                           {{"i\td", "tok\nen"}, {"", ""}}};
  for (const auto& [given, taken] : cases) {
    const StartupNotice notice = StartupNotice::ofLine(given.line());
    EXPECT_EQ(notice.startupId, taken.startupId);
    EXPECT_EQ(notice.activationToken, taken.activationToken);
  }
  for (const char* strange : {"", "\n", "one\n", "a\tb\tc\n"})
    EXPECT_EQ(StartupNotice::ofLine(strange).startupId, "") << strange;
}

}  // namespace
}  // namespace tarvel
