#include "app/TarvelApp.h"

#include "app/AppInfo.h"

namespace tarvel {
namespace {

QString textOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

TarvelApp::TarvelApp() : QApplication(ProgramArguments::count, ProgramArguments::list) {
  setApplicationName(textOf(kAppInfo.name));
  setApplicationVersion(textOf(kAppInfo.version));
  setDesktopFileName(textOf(kApplicationId));
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
