#pragma once
#include <memory>
#include <string>
#include <vector>

#include "app/ClassRegistry.h"
#include "auxwindows/ApplicationProtocol.h"
#include "foundation/Services.h"
#include "ui/WindowController.h"

namespace tarvel {

enum class RestoreFrame { no, yes };

/// The general part of an application's controller: the steps of a process's life, and the bookkeeping of its
/// windows and of their settings. It knows nothing of rinks. Main thread.
class MorvAppController : public ApplicationProtocol {
 public:
  /// Sets and prints the application's folder, and makes ready what all windows share. A named colour that is
  /// missing stops the program. What the services hold outlives the controller.
  MorvAppController(const Services& services, Path supportFolder, ClassRegistry classes);
  ~MorvAppController() override;
  MorvAppController(const MorvAppController&) = delete;
  MorvAppController& operator=(const MorvAppController&) = delete;

  bool launchCompleted = false;  ///< true once `applicationDidFinishLaunching` has run
  bool activated = false;
  bool terminating = false;  ///< true from the first step of quitting
  /// The settings of the last closed window of each class, by class name.
  PropertyList::Dictionary windowSettings;
  /// Those that are alive. A window controller lives as long as it stands here.
  std::vector<std::unique_ptr<WindowController>> windowControllers;

  virtual void applicationWillFinishLaunching();
  virtual void applicationDidFinishLaunching();
  /// The application has come to the front. Called for the first time by the event loop's first turn.
  virtual void applicationDidBecomeActive();
  /// The application quits. Closes every window.
  virtual void applicationWillTerminate();
  /// The user has started the application once more. Always false: there is nothing left to do for the
  /// caller.
  bool applicationShouldHandleReopen(bool hasVisibleWindows);

  /// Asks each window to close, as its user would.
  void closeAllWindows();
  /// Ends the event loop by way of the application object, in order.
  void quitApplication();
  /// Shows the window without which the application would stand there with none.
  virtual void showDefaultWindow() {}

  /// The saved settings for a new window of that class; null if there are none.
  const PropertyList::Dictionary* settingsForClassName(const std::string& className) const;
  /// Every window controller passes through here right after it is made. Its window takes the settings given,
  /// or, with null, those of the frontmost window of its class, off which it is cascaded, or else those saved
  /// for its class.
  WindowController& addWindowController(std::unique_ptr<WindowController> controller,
                                        const PropertyList::Dictionary* settings, RestoreFrame restoreFrame);
  /// Also brings back the default window when the last window closes and is another one, and quits when no
  /// window is left.
  void removeWindowController(WindowController& controller, SaveFrame saveFrame) override;

 protected:
  const Services& services() const { return services_; }
  const Path& supportFolder() const { return supportFolder_; }
  /// What brings the window back as it is now.
  static PropertyList::Dictionary savedForm(const WindowController& controller);
  /// The window controller behind a window; null if something else is in charge of it.
  static WindowController* controllerOf(const Window& window);
  /// The frontmost visible window of exactly that class; null if there is none.
  static WindowController* frontmostOf(const std::string& className,
                                       const WindowController* except = nullptr);
  /// True for a window that may close as the last one without another taking its place.
  virtual bool isDefaultWindow(const WindowController&) const { return false; }
  /// A window controller has just come into the list; its window has neither place nor settings yet.
  virtual void prepareWindow(WindowController&) {}
  /// Deletes all window controllers and their windows at once. For the end, outside the event loop.
  void deleteAllWindows();

 private:
  /// Over the windows there are now; those that go meanwhile are passed over.
  void forEachWindow(void (Window::*operation)());
  void letGo(WindowController& controller);

  Services services_;
  Path supportFolder_;
  ClassRegistry classes_;
  /// Taken out of the list, and deleted in the loop's next turn: a window's own event may still be at work.
  std::vector<std::unique_ptr<WindowController>> closedControllers_;
  std::shared_ptr<MorvAppController*> self_;  ///< emptied when the controller goes, for tasks under way
};

}  // namespace tarvel
