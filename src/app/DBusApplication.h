#pragma once
#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <map>

#include "app/StartupNotice.h"

namespace tarvel {

/// The application as the launchers of the desktop know it: under its name on the session bus, with the calls
/// of `org.freedesktop.Application`. The bus starts the program for a call that finds nobody under the name.
/// A second copy, on a store of its own, does without the name, and so does one without a bus. Owned by the
/// program's start; main thread.
class DBusApplication : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  using Request = std::function<void(const StartupNotice&)>;

  /// The name is asked for at once, and granted later, without a wait. `id` is the application's, such as
  /// "org.example.App". Calls come from the event loop.
  DBusApplication(QDBusConnection bus, QString id, Request activate, std::map<QString, Request> actions);
  /// Gives the name back.
  ~DBusApplication() override;

 public slots:
  Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
  /// No file belongs to this application: it comes to the front, as by a further start with a file.
  Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
  /// An action of the desktop entry's. An unknown one is answered with an error.
  Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameters,
                                   const QVariantMap& platformData);

 private:
  void callBus(const QString& method, const QVariantList& arguments);

  QDBusConnection bus_;
  QString id_;
  QString path_;
  Request activate_;
  std::map<QString, Request> actions_;
};

}  // namespace tarvel
