#include "app/TarvelApp.h"

#include "app/AppInfo.h"

namespace tarvel {

TarvelApp::TarvelApp() : QApplication(ProgramArguments::count, ProgramArguments::list) {
  setApplicationName(QString::fromUtf8(kAppInfo.name.data(), static_cast<qsizetype>(kAppInfo.name.size())));
  setApplicationVersion(
      QString::fromUtf8(kAppInfo.version.data(), static_cast<qsizetype>(kAppInfo.version.size())));
  setDesktopFileName("tarvel");
  // The last window's closing ends the program too, but in the order that the controller keeps.
  setQuitOnLastWindowClosed(false);
}

bool TarvelApp::event(QEvent* event) {
  if (event->type() != QEvent::Quit || !quitRequested) return QApplication::event(event);
  event->accept();
  quitRequested();
  return true;
}

}  // namespace tarvel
