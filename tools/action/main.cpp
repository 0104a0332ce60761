// For launchers that start a program for an action of the desktop entry, rather than ask for the action over
// the bus: asks for it in their place. The application reads no command line.
//
//   tarvel-action ACTION
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kPatience = 30'000;  ///< milliseconds for the application to start and answer

/// What the launcher has given along, in the form that goes over the bus.
QVariantMap platformData() {
  QVariantMap data;
  const auto take = [&data](const char* variable, const QString& key) {
    if (qEnvironmentVariableIsSet(variable)) data[key] = qEnvironmentVariable(variable);
  };
  take("DESKTOP_STARTUP_ID", QStringLiteral("desktop-startup-id"));
  take("XDG_ACTIVATION_TOKEN", QStringLiteral("activation-token"));
  return data;
}

QDBusMessage actionCall(const QString& action) {
  const QString id = QStringLiteral(TARVEL_APPLICATION_ID);
  QDBusMessage call = QDBusMessage::createMethodCall(id, '/' + QString(id).replace('.', '/'),
                                                     QStringLiteral("org.freedesktop.Application"),
                                                     QStringLiteral("ActivateAction"));
  call << action << QVariantList() << platformData();
  return call;
}

/// Without a bus the program alone is what can be had. Comes back only on failure.
int startProgram() {
  const QByteArray program =
      (QCoreApplication::applicationDirPath() + QStringLiteral("/" TARVEL_PROGRAM)).toLocal8Bit();
  execl(program.constData(), "tarvel", nullptr);
  std::perror(program.constData());
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  if (QCoreApplication::arguments().size() != 2) {
    std::fputs("usage: tarvel-action today-window|refresh\n", stderr);
    return 2;
  }
  const QDBusMessage reply = QDBusConnection::sessionBus().call(
      actionCall(QCoreApplication::arguments().at(1)), QDBus::Block, kPatience);
  if (reply.type() == QDBusMessage::ReplyMessage) return EXIT_SUCCESS;
  std::fprintf(stderr, "tarvel-action: %s\n", qPrintable(reply.errorMessage()));
  const bool isKnown = reply.errorName() != QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
  return isKnown ? startProgram() : EXIT_FAILURE;
}
