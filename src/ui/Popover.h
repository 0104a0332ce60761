#pragma once
#include <QWidget>
#include <functional>

#include "ui/PopoverPlacement.h"

namespace tarvel {

/// A small panel that stands beside a view, its arrow pointing at it, until the user does something else: a
/// press outside, Escape, or the anchor's going from the screen closes it. It takes the keyboard, for the
/// view that the content names as its focus proxy, else for the first that takes it by the tab key, and gives
/// it back when it closes. A press on the anchor itself only closes it, so that a button which opens a
/// popover also closes it.
///
/// Owned by its opener, made anew for each showing. The anchor's window, too, deletes it when it goes itself.
/// Main thread.
class Popover : public QWidget {
  Q_OBJECT
 public:
  /// Takes the content over. Its size hint is the room it gets; with a height for its width, that height.
  explicit Popover(QWidget* content);
  ~Popover() override;

  QWidget& content() const { return *content_; }
  /// Shows the popover beside that part of the anchor. The anchor's window is visible.
  void showRelativeTo(QWidget& anchor, const QRect& bounds, PopoverEdge preferred);
  /// Where it stands; `frame` is in the screen's coordinates.
  const PopoverPlacement& placement() const { return placement_; }

  /// Called once, when the popover has gone from the screen, whatever closed it: the toolkit's `close` and
  /// its deletion included. The callee lets go of the popover by `deleteLater`, since it is still at work.
  std::function<void()> closed;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize contentSize() const;
  bool isFine() const;
  QRect anchorOnScreen() const;
  void place();
  void placeAgain();
  void tellClosed();

  QWidget* content_;
  QWidget* anchor_ = nullptr;  ///< null when it has gone
  QRect bounds_;               ///< of the anchor, in its own coordinates
  PopoverEdge preferred_ = PopoverEdge::right;
  PopoverPlacement placement_;
};

}  // namespace tarvel
