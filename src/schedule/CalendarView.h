#pragma once
#include <optional>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/CalendarLayout.h"
#include "schedule/MainStateWatch.h"
#include "ui/AccessibleView.h"
#include "ui/ScrollableView.h"

namespace tarvel {

/// The narrow calendar beside the schedule: all months of a range in one column, in which the user chooses a
/// day, a week or a month. It stands in a scroll area whose widget isn't resizable, and sees to its size
/// itself: as wide as the viewport and as high as its months. A new selection is posted as "CalendarView
/// selection changed" with this view as its object. While it is disabled it takes neither mouse nor keyboard,
/// and goes on doing what it is told. Main thread.
class CalendarView : public ScrollableView, public AccessibleView, Counted<CalendarView> {
  Q_OBJECT
 public:
  using Counted<CalendarView>::liveCount;
  /// Go-to commands that follow one another faster are one: keys that repeat send them twice.
  static constexpr double kCommandSeconds = 0.1;

  explicit CalendarView(const WindowContext& context, QWidget* parent = nullptr);

  /// Goes to the date, or to the end of the range next to it, and scrolls there. True if that is another date
  /// than before. Nothing is posted if the selection holds the new date already.
  bool setDate(PackedDate date, Animate animate);
  PackedDate currentDate() const { return currentDate_; }
  /// Shows the months from the one date's to the other's. The date and the selection stay as they are.
  void setRange(PackedDate minimumDate, PackedDate maximumDate);
  /// A day, at the start. The selection follows.
  void setPeriodOption(PeriodViewOption option);
  PeriodViewOption periodOption() const { return selection_.period; }
  PackedDate firstSelectedDate() const { return selection_.first; }
  PackedDate lastSelectedDate() const { return selection_.last; }
  PackedDate minimumDate() const { return layout_.minimumDate(); }
  PackedDate maximumDate() const { return layout_.maximumDate(); }

  /// While set, a new date doesn't scroll.
  void setSuppressScrolling(bool suppress) { suppressScrolling_ = suppress; }
  /// Whether scrolling to a month keeps those after it in view, rather than those before.
  void setPreferFuture(bool prefer) { preferFuture_ = prefer; }
  /// Brings the date's month into view; if nothing of the calendar can be seen now, as soon as it can.
  void scrollToCurrentDate(Animate animate);

  /// One period back or on, or to today.
  void gotoPrev();
  void gotoNext();
  void gotoToday();

  void needsRedraw();
  bool isMainWindow() const { return mainState_.isMain(); }
  void adjustSize();
  /// Hears of nothing and draws nothing from here on.
  void close();

  /// Months as rows of their days. Of a range too long for anyone, the days of the months about the current
  /// one alone.
  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void pressAccessible(const QString& id) override;
  void focusAccessible(const QString& id) override { pressAccessible(id); }

  const CalendarLayout& layout() const { return layout_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void updateSelection(Animate animate);
  /// A command to go to a date.
  void gotoDate(PackedDate date);
  std::optional<PackedDate> dateForKey(int key) const;
  void chooseDate(PackedDate date);
  AccessibleNode monthNode(int index) const;
  void watchSuperview();
  void setShowsFocus(bool shows);

  const Clock& clock_;
  const PretendTime& pretendTime_;
  CalendarLayout layout_;
  PackedDate currentDate_ = kNoDate;
  CalendarSelection selection_;
  PackedDate shownToday_ = kNoDate;  ///< as it was last painted
  std::optional<double> prevTime_;   ///< of the last go-to command, on the monotonic clock
  bool isClosing_ = false;
  bool suppressScrolling_ = false;
  bool preferFuture_ = false;
  bool scrollsWhenShown_ = false;
  bool showsFocus_ = false;
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
