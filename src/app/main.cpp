#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

#include <QSessionManager>
#include <QStandardPaths>

#include "app/AppController.h"
#include "app/AppInfo.h"
#include "app/CursorHider.h"
#include "app/DBusApplication.h"
#include "app/DesktopRequests.h"
#include "app/QuitSignals.h"
#include "app/SingleInstance.h"
#include "app/TarvelApp.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixThreads.h"
#include "platform/posix/ServiceWatchdog.h"
#include "platform/posix/StandardConsole.h"
#include "platform/qt/DBusScreenInhibitor.h"
#include "platform/qt/NetworkWatch.h"
#include "platform/qt/QtHttpClient.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtSoundPlayer.h"
#include "platform/qt/QtWorkspace.h"
#include "ui/Icons.h"
#include "ui/SystemAppearance.h"

namespace tarvel {
namespace {

/// The real ports. A member is destroyed before those that stand above it.
struct Ports {
  PosixFileSystem files;
  PosixClock clock;
  PosixThreads threads;
  StandardConsole console;
  QtRunLoop mainLoop;
  QtHttpClient http{mainLoop};
  QtImageDecoder images;
  QtWorkspace workspace;
  PretendTime pretendTime{clock};
  NotificationCenter notifications{mainLoop};
  ObserverCensus observerCensus;
  QtSoundPlayer sounds;
  DBusScreenInhibitor screenInhibitor;

  Services services() {
    return {mainLoop, clock, pretendTime, files, http, images, threads, console, notifications};
  }
};

/// The folder of users' data, and in it the application's own.
Path applicationFolder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return join(data.toStdString(), kAppInfo.localizedName);
}

/// How the session manager brings this program back: by the very file that runs, which need not be found by
/// its name alone, and without arguments, since the windows come back from the state file. A copy is started
/// in the same way.
void tellRestart(QSessionManager& manager) {
  const QStringList command{QCoreApplication::applicationFilePath()};
  manager.setRestartCommand(command);
  manager.setManagerProperty(QStringLiteral("CloneCommand"), command);
  manager.setManagerProperty(QStringLiteral("Program"), command.front());
}

void connectLifecycle(TarvelApp& app, AppController& controller, SingleInstance& instance,
                      DesktopRequests& requests) {
  // The controller quits in its own order once the loop has ended, when nothing can change the model any
  // more.
  app.quitRequested = [&instance] {
    instance.stopListening();
    QCoreApplication::exit(EXIT_SUCCESS);
  };
  // The session may still go on after this, by its user's choice; if it ends, a quit follows.
  QObject::connect(
      &app, &QGuiApplication::commitDataRequest, &app,
      [&controller](QSessionManager&) { controller.saveAppState(); }, Qt::DirectConnection);
  QObject::connect(&app, &QGuiApplication::saveStateRequest, &app, tellRestart, Qt::DirectConnection);
  QObject::connect(&app, &QGuiApplication::applicationStateChanged, &app,
                   [&controller](Qt::ApplicationState state) {
                     if (state == Qt::ApplicationActive) controller.applicationDidBecomeActive();
                   });
  instance.showYourself = [&requests](const StartupNotice& notice) { requests.showYourself(notice); };
}

std::unique_ptr<DBusApplication> onTheBus(DesktopRequests& requests) {
  using Notice = const StartupNotice&;
  const QString id = QString::fromUtf8(kApplicationId.data(), static_cast<qsizetype>(kApplicationId.size()));
  return std::make_unique<DBusApplication>(
      QDBusConnection::sessionBus(), id, [&requests](Notice notice) { requests.showYourself(notice); },
      std::map<QString, DBusApplication::Request>{
          {QStringLiteral("today-window"), [&requests](Notice notice) { requests.showToday(notice); }},
          {QStringLiteral("refresh"), [&requests](Notice) { requests.refresh(); }},
      });
}

int runTarvel() {
  const StartupNotice notice = StartupNotice::ofEnvironment();
  TarvelApp app;
  Ports ports;
  const Path folder = applicationFolder();
  SingleInstance instance;
  switch (instance.claim(ports.files, folder, notice)) {
    case SingleInstance::Outcome::first:
      break;
    case SingleInstance::Outcome::handedOver:
      return EXIT_SUCCESS;
    case SingleInstance::Outcome::noAnswer:
      std::fputs("Tarvel is running already, and doesn't answer.\n", stderr);
      return EXIT_FAILURE;
  }
  initAssets();
  TarvelApp::setWindowIcon(applicationIcon());
  const SystemAppearance appearance;
  CursorHider cursorHider(ports.mainLoop, ports.workspace);
  AppController controller({ports.services(), ports.workspace, ports.observerCensus, ports.sounds, folder,
                            TARVEL_SERVER_URL, kAppInfo, applicationWindowKinds(), &ports.screenInhibitor,
                            &cursorHider});
  DesktopRequests requests(controller);
  connectLifecycle(app, controller, instance, requests);
  const QuitSignals quitSignals([] { QCoreApplication::quit(); });
  controller.applicationWillFinishLaunching();
  controller.applicationDidFinishLaunching();
  // With no window there is none that the desktop could make active, so the first activation is the
  // application's own.
  ports.mainLoop.post([&controller] {
    if (controller.firstActivation) controller.applicationDidBecomeActive();
  });
  std::unique_ptr<DBusApplication> bus = onTheBus(requests);
  const NetworkWatch network([&controller] { controller.networkCameBack(); });
  const ServiceWatchdog watchdog(ports.mainLoop, ServiceWatchdog::requestOfEnvironment());
  const int status = QApplication::exec();
  app.quitRequested = nullptr;
  app.disconnect();
  instance.stopListening();
  bus.reset();
  controller.applicationWillTerminate();
  return status;
}

}  // namespace
}  // namespace tarvel

int main() {
  // A reader of the progress lines that goes away must not take the application with it.
  std::signal(SIGPIPE, SIG_IGN);
  return tarvel::runTarvel();
}
