#pragma once
#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/PagePlaces.h"
#include "schedule/PagedView.h"
#include "schedule/PagingViewDelegateProtocol.h"

class QVariantAnimation;

namespace tarvel {

class PageTurnView;

/// Three pages that turn like paper: the current one in view, the one before it waiting at the left, the one
/// after it lying underneath. The three are recycled, and the delegate fills the one that comes round. It
/// lies in a scroll area's viewport, which it fills, and it is taller where the current page wants that. Main
/// thread.
///
/// While a turn is under way the pages stand still, and pictures of them move in front: so a frame of the
/// turn costs two pictures, whatever is on the pages.
class PagingView : public QWidget, private Counted<PagingView> {
  Q_OBJECT
 public:
  using Counted<PagingView>::liveCount;
  static constexpr int kGlideMilliseconds = 250;

  explicit PagingView(const WindowContext& context, QWidget* parent = nullptr);
  ~PagingView() override;

  /// Not owned; null for none.
  void setDelegate(PagingViewDelegateProtocol* delegate) { delegate_ = delegate; }
  PagingViewDelegateProtocol* delegate() const { return delegate_; }

  /// Makes the three pages, in place of those it had. Again when another kind of page is wanted.
  void buildPages();
  bool hasPages() const { return currView_ != nullptr; }
  PagedView* prevView() const { return prevView_; }
  PagedView* currView() const { return currView_; }
  PagedView* nextView() const { return nextView_; }

  /// Whether the pages count as on show; false at start. Not the toolkit's visibility.
  bool isPresented() const { return isPresented_; }
  void setPresented(bool presented);

  /// The operations below stop the program while there are no pages.
  void reloadAll();
  void redrawAll();
  /// Takes the viewport's size, and the height that the current page wants.
  void adjustSize();
  /// Turns at once. Nothing happens without a page that way.
  void gotoNext();
  void gotoPrev();
  /// The same, gliding. A turn asked for during a glide isn't lost: the one under way ends at once.
  void glideToNext();
  void glideToPrev();
  /// A swipe has come to this amount (see `gestureStep`); true when that has turned the page.
  bool gesture(double amount);
  /// Glides from the present amount of a swipe to -1, 0 or 1, and ends it there.
  void glideTo(double target);
  /// Ends a glide at once, where it was going.
  void finishGlide();
  bool isTurning() const;
  /// Where the pages stand now.
  const PagePlaces& places() const { return places_; }

  /// Closes the pages and lets go of them and of the delegate.
  void close();
  /// The three pages by name, for logs.
  std::string description() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Way { next, previous };
  PagedView* newPage(int offset);
  void requirePages() const;
  void watchSuperview();
  void placePages();
  void restack();
  QRect bandInSight() const;
  void turn(Way way);
  void glide(Way way);
  void endTurn();
  /// Before pictures are taken: a page that came round a moment ago may still wait for the idle loop, and
  /// the turn doesn't. False if that has ended the glide.
  bool bringUpToDate();
  void removePages();

  PagingViewDelegateProtocol* delegate_ = nullptr;
  PagedView* prevView_ = nullptr;
  PagedView* currView_ = nullptr;
  PagedView* nextView_ = nullptr;
  bool isPresented_ = false;
  double amount_ = 0.0;
  PagePlaces places_;
  PageTurnView* pictures_;  ///< a child, shown during a turn
  QVariantAnimation* animation_;
  QPointer<QWidget> superview_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
