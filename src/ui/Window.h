#pragma once
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "foundation/InstanceCounter.h"
#include "platform/Geometry.h"
#include "ui/Appearance.h"
#include "ui/WindowDelegate.h"
#include "ui/WindowPlacement.h"

namespace tarvel {

/// A window of the application. It adds to the toolkit's what the application's windows need: places with y
/// upwards, a front-to-back order, main and key state, a saved form of its place, and a delegate. Main
/// thread.
///
/// A frame is the window with what the window manager puts around it, as far as that is known: the manager
/// only tells once the window is on the screen, and before that the margins of the window shown last stand
/// in. The saved form holds the content's place instead, which doesn't depend on them, so that it returns to
/// the pixel.
///
/// The windows don't use the toolkit's rule that closing the last one quits; whoever starts the event loop
/// switches it off and decides by `closed` and `orderedWindows`.
class Window : public QWidget, private Counted<Window> {
  Q_OBJECT
 public:
  using Counted<Window>::liveCount;

  explicit Window(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
  ~Window() override;

  /// Visible windows, the front one first: the one activated, shown or ordered front last.
  static std::vector<Window*> orderedWindows();
  /// The window that takes the keyboard, and the one that the user works in: the key window, unless that is
  /// one that can't become main or a dialog, which leave the window in charge as it was. Null while another
  /// application is active.
  static Window* keyWindow();
  static Window* mainWindow();
  bool isKey() const { return keyWindow() == this; }
  bool isMain() const { return mainWindow() == this; }
  virtual bool canBecomeMain() const { return true; }

  /// Not owned; outlives its charge of the window. Null takes it away.
  void setDelegate(WindowDelegate* delegate) { delegate_ = delegate; }
  WindowDelegate* delegate() const { return delegate_; }

  Rect frame() const;
  /// Moves and resizes within the limits below. A window that the manager has maximised or made full-screen
  /// stays.
  virtual void setFrame(const Rect& frame);
  /// Of whole frames.
  void setFrameLimits(Size smallest, Size largest);
  Size smallestFrame() const { return smallest_; }
  Size largestFrame() const { return largest_; }
  void setFrameTopLeftPoint(Point topLeft);
  /// Moves the window's top left corner to the point and returns the one for the next window of a cascade.
  Point cascadeTopLeftFromPoint(Point topLeft);
  /// Between the frame that the delegate chooses and the one before.
  void zoom();

  /// Where the compositor keeps to itself where windows are, the place is the one restored last.
  std::string stringWithSavedFrame() const;
  /// False, with nothing changed, for a text that isn't a saved frame. A place that no screen shows any more
  /// is moved to one that exists.
  bool setFrameFromString(const std::string& text);

  /// Of the screen that the window is on.
  Rect screenFrame() const;
  Rect visibleFrame() const;

  /// Shows the window in front of the others, without taking the keyboard.
  void orderFront();
  /// Also brings a minimised window back.
  void makeKeyAndOrderFront();
  /// Closes the window if the delegate lets it; what the user's ways of closing come to.
  virtual void performClose();
  /// Closes the window without asking. It is hidden and not deleted; a second call does nothing.
  virtual void close();

  /// The window's own choice of appearance; none follows the application's.
  void setChosenAppearance(std::optional<Appearance> appearance);
  std::optional<Appearance> chosenAppearance() const { return chosenAppearance_; }

 signals:
  void becameMain();
  void resignedMain();
  void becameKey();
  void resignedKey();
  void closed();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  static void updateKeyAndMain();
  bool followsManager() const { return isMaximized() || isFullScreen(); }
  bool isDecorated() const;
  FrameMargins margins() const;
  void noteMargins();
  void applyLimits();
  Rect content() const;
  void setContent(const Rect& content);
  void moveToFront();

  WindowDelegate* delegate_ = nullptr;
  Size smallest_;
  Size largest_;
  FrameMargins limitsMargins_;          ///< those that the limits of the content were made with
  std::optional<Rect> requestedFrame_;  ///< set before the margins were known
  std::optional<Rect> frameBeforeZoom_;
  std::optional<Appearance> chosenAppearance_;
  std::optional<SavedFrame> restoredFrame_;  ///< as it was saved
  bool isTitleBarPlaced_ = false;
  bool isClosing_ = false;
};

}  // namespace tarvel
