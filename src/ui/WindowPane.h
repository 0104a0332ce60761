#pragma once
#include <QPointer>
#include <QWidget>
#include <optional>

#include "foundation/InstanceCounter.h"
#include "foundation/ObserverCensus.h"
#include "ui/NamedColors.h"

namespace tarvel {

class Window;

/// The background of a pane of a window. Around the view that has the keyboard it draws the focus ring, on
/// its own surface, for as long as the window is the one that the user works in. Main thread.
class WindowPane : public QWidget, Counted<WindowPane> {
  Q_OBJECT
 public:
  using Counted<WindowPane>::liveCount;

  /// Centre and census outlive the pane.
  WindowPane(NotificationCenter& notifications, ObserverCensus& census, QWidget* parent = nullptr);
  /// Hears of nothing from here on.
  void close();

  /// A view that stands in the pane, or null. Not owned, and free to go first.
  void setFocusView(QWidget* view);
  QWidget* focusView() const { return focusView_; }
  /// None lets what lies behind show through.
  void setBgColor(std::optional<ColorSource> color);
  const std::optional<ColorSource>& bgColor() const { return bgColor_; }
  void setFrameColor(std::optional<ColorSource> color);
  const std::optional<ColorSource>& frameColor() const { return frameColor_; }
  bool isOpaque() const { return bgColor_.has_value(); }

  int hideCnt = 0;  ///< the ring shows while this is 0

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void observeWindow();
  void windowBecameKey() { updateFocusRing(); }
  void windowResignedKey() { updateFocusRing(); }
  void updateFocusRing() { updateAround(focusView_); }
  void updateAround(const QWidget* view);
  QRect frameOf(const QWidget& view) const;
  bool isInMainWindow() const;
  void paintFocusRing(QPainter& painter) const;

  QPointer<QWidget> focusView_;
  std::optional<ColorSource> bgColor_;
  std::optional<ColorSource> frameColor_;
  QPointer<Window> window_;
  Observation checkObservation_;
  bool isClosing_ = false;
};

}  // namespace tarvel
