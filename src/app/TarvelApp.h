#pragma once
#include <QApplication>
#include <functional>

namespace tarvel {

/// What `QApplication` keeps a hold on for as long as it lives. The application reads no command line: it has
/// an argument list of the program's name alone.
struct ProgramArguments {
  char name[7] = "tarvel";
  int count = 1;
  char* list[2] = {name, nullptr};
};

/// The application object. One in the process, on the main thread.
class TarvelApp : private ProgramArguments, public QApplication {
 public:
  TarvelApp();

  /// The desktop, or a window's command, asks the program to quit. Without a handler the toolkit's own
  /// quitting takes place, which closes the windows one by one.
  std::function<void()> quitRequested;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace tarvel
