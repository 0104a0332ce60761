#include "platform/qt/DBusScreenInhibitor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>
#include <QVariantMap>

namespace tarvel {
namespace {

const QString kSaverService = QStringLiteral("org.freedesktop.ScreenSaver");
const QString kSaverObject = QStringLiteral("/org/freedesktop/ScreenSaver");
const QString kPortalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalObject = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kPortalInterface = QStringLiteral("org.freedesktop.portal.Inhibit");
const QString kPortalRequest = QStringLiteral("org.freedesktop.portal.Request");
const QString kApplication = QStringLiteral("Tarvel");
constexpr uint kPortalIdle = 8;  // the portal's flag for "the session goes idle"

/// One inhibition and its way there: its answers come when they come, also when nobody wants it any more.
class Inhibition : public std::enable_shared_from_this<Inhibition> {
 public:
  explicit Inhibition(QString reason) : reason_(std::move(reason)) {}

  void askSaver() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kSaverService, kSaverObject, kSaverService, QStringLiteral("Inhibit"));
    call << kApplication << reason_;
    ask(call, [](Inhibition& self, const QDBusMessage& reply) {
      if (reply.type() == QDBusMessage::ErrorMessage) return self.askPortal();
      QDBusMessage undo = QDBusMessage::createMethodCall(kSaverService, kSaverObject, kSaverService,
                                                         QStringLiteral("UnInhibit"));
      undo << reply.arguments().value(0).toUInt();
      self.hold(undo);
    });
  }
  void release() {
    released_ = true;
    if (undo_.type() == QDBusMessage::MethodCallMessage) QDBusConnection::sessionBus().send(undo_);
    undo_ = {};
  }

 private:
  using Answer = void (*)(Inhibition&, const QDBusMessage&);

  void ask(const QDBusMessage& call, Answer answer) {
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [self = shared_from_this(), watcher, answer] {
                       answer(*self, watcher->reply());
                       watcher->deleteLater();
                     });
  }
  void askPortal() {
    if (released_) return;
    QDBusMessage call = QDBusMessage::createMethodCall(kPortalService, kPortalObject, kPortalInterface,
                                                       QStringLiteral("Inhibit"));
    call << QString() << kPortalIdle << QVariantMap{{QStringLiteral("reason"), reason_}};
    ask(call, [](Inhibition& self, const QDBusMessage& reply) {
      const QString handle = reply.arguments().value(0).value<QDBusObjectPath>().path();
      if (reply.type() == QDBusMessage::ErrorMessage || handle.isEmpty()) return;
      self.hold(
          QDBusMessage::createMethodCall(kPortalService, handle, kPortalRequest, QStringLiteral("Close")));
    });
  }
  void hold(const QDBusMessage& undo) {
    undo_ = undo;
    if (released_) release();
  }

  QString reason_;
  QDBusMessage undo_;  ///< what ends the inhibition, once it stands
  bool released_ = false;
};

class DBusHold final : public ScreenInhibitor::Hold {
 public:
  explicit DBusHold(std::shared_ptr<Inhibition> inhibition) : inhibition_(std::move(inhibition)) {}
  ~DBusHold() override { inhibition_->release(); }

 private:
  std::shared_ptr<Inhibition> inhibition_;
};

}  // namespace

std::unique_ptr<ScreenInhibitor::Hold> DBusScreenInhibitor::inhibit(const std::string& reason) {
  const auto inhibition = std::make_shared<Inhibition>(QString::fromStdString(reason));
  if (QDBusConnection::sessionBus().isConnected()) inhibition->askSaver();
  return std::make_unique<DBusHold>(inhibition);
}

}  // namespace tarvel
