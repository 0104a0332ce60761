#include "app/DBusApplication.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>

namespace tarvel {
namespace {

const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
constexpr uint kDoNotQueue = 4;  // the bus's flag for "now or never"

}  // namespace

DBusApplication::DBusApplication(QDBusConnection bus, QString id, Request activate,
                                 std::map<QString, Request> actions)
    : bus_(std::move(bus)),
      id_(std::move(id)),
      path_('/' + QString(id_).replace('.', '/').replace('-', '_')),
      activate_(std::move(activate)),
      actions_(std::move(actions)) {
  // The object first: with the name, calls may follow that have waited for it.
  if (bus_.registerObject(path_, this, QDBusConnection::ExportScriptableSlots)) {
    callBus(QStringLiteral("RequestName"), {id_, kDoNotQueue});
  }
}

DBusApplication::~DBusApplication() {
  callBus(QStringLiteral("ReleaseName"), {id_});
  bus_.unregisterObject(path_);
}

void DBusApplication::callBus(const QString& method, const QVariantList& arguments) {
  QDBusMessage call = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, method);
  call.setArguments(arguments);
  bus_.asyncCall(call);
}

void DBusApplication::Activate(const QVariantMap& platformData) {
  activate_(StartupNotice::ofPlatformData(platformData));
}

void DBusApplication::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
  Activate(platformData);
}

void DBusApplication::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                     const QVariantMap& platformData) {
  const auto found = actions_.find(name);
  if (found != actions_.end()) return found->second(StartupNotice::ofPlatformData(platformData));
  if (calledFromDBus()) {
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("there is no action \"%1\"").arg(name));
  }
}

}  // namespace tarvel
