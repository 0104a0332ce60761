#pragma once
#include <QPointer>
#include <memory>
#include <optional>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/TimeMarkerView.h"
#include "todaywindow/TodayLayout.h"
#include "todaywindow/TodayStyles.h"
#include "ui/AccessibleView.h"
#include "ui/DataLoadingView.h"

class QScrollArea;
class QVariantAnimation;

namespace tarvel {

/// Today's sessions of one venue as wide bars on one axis, to be read from a distance. It fits the whole day
/// into its scroll area, or scrolls and keeps the present moment in view, and frames the session that is on.
/// Its window tells it rink, venue, date and time. Main thread.
class TodayScheduleView : public DataLoadingView, public AccessibleView, Counted<TodayScheduleView> {
  Q_OBJECT
 public:
  using Counted<TodayScheduleView>::liveCount;

  static constexpr int kScrollToNowMilliseconds = 2000;
  /// After someone has scrolled, so long the view stays where it is, in seconds.
  static constexpr double kScrollRest = 30.0;
  static constexpr double kSmallestScale = 0.5;
  static constexpr double kLargestScale = 6.0;

  explicit TodayScheduleView(const WindowContext& context, QWidget* parent = nullptr);

  void setChosen(const std::shared_ptr<RinkData>& rink, const std::shared_ptr<Venue>& venue);
  /// What the schedule calls now; minutes above 1440 belong to the night after the date.
  void setCurrent(PackedDate date, std::int64_t time);

  void setFitHeight(VerticalFit fit);
  VerticalFit fitHeight() const { return fitHeight_; }
  /// Logical pixels a minute in the scroll mode; kept within the limits above.
  void setHeightScaleFactor(double value);
  double heightScaleFactor() const { return heightScaleFactor_; }
  /// The base size of that mode; 0 while none was ever chosen, which shows as the smallest. Others are kept
  /// within the limits of `TodayStyles`.
  void setFontSize(VerticalFit mode, double size);
  double fontSize(VerticalFit mode) const {
    return mode == VerticalFit::fit ? fontSizeFit_ : fontSizeScroll_;
  }
  /// Of the present mode; the state is then to be saved.
  void increaseFontSize();
  void decreaseFontSize();
  void setBackgroundColor(NamedColor name);

  /// Brings the present moment a fifth of the way down. An animated scroll has begun when this returns.
  void scrollToCurrentTime(Animate animate);
  /// The day's sessions, from the first to the last. The arrow keys lead through them once the user has gone
  /// to the view with the tab key; a click doesn't give it the keyboard.
  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void focusAccessible(const QString& id) override;

  void loadData() override;
  /// Lays out anew in the room that the scroll area has.
  void adjustSize();
  /// Stops observing and drawing; final.
  void close();

  const TodayLayout& layout() const { return layout_; }
  const TodayStyles& styles() const { return styles_; }
  const ScheduleItems& scheduleItems() const { return scheduleItems_; }
  PackedDate currentDate() const { return currentDate_; }
  std::int64_t currentTime() const { return currentTime_; }
  /// The session found last; it stays when it is over.
  const std::shared_ptr<const ScheduleItem>& currentSession() const { return currentSession_; }
  const std::shared_ptr<WeeklySchedule>& weeklySchedule() const { return weeklySchedule_; }
  std::shared_ptr<RinkData> chosenRink() const { return chosenRink_.lock(); }
  const TimeMarkerView* timeMarkerView() const { return timeMarkerView_; }
  QVariantAnimation& scrollAnimation() const { return *scrollAnimation_; }

 protected:
  void draw(QPainter& painter, const Rect& dirty) override;
  QColor backgroundColor() const override { return color(backgroundColor_, this); }
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void observe(const WindowContext& context);
  void weeklyScheduleChanged(const Notification& notification);
  void readSchedule();
  void measureColumns();
  void applyFontSize();
  double baseSize() const;
  void updateCurrentSession();
  void placeTimeMarker();
  void describe();
  void drawFocus(QPainter& painter) const;
  void watchScrolling();
  void viewDidScroll();
  void needsRedraw() { setNeedsDisplay(!isClosing); }

  Services services_;
  DataModel& dataModel_;
  ApplicationProtocol& application_;
  std::weak_ptr<RinkData> chosenRink_;
  std::weak_ptr<Venue> chosenVenue_;
  double fontSizeFit_ = 0.0;
  double fontSizeScroll_ = 0.0;
  VerticalFit fitHeight_ = VerticalFit::fit;
  double heightScaleFactor_ = 1.0;
  NamedColor backgroundColor_ = kScheduleBackground;
  TodayStyles styles_;
  DayRange dayRange_{kDefaultStartOfDay, kDefaultEndOfDay};
  PackedDate currentDate_ = kNoDate;
  std::int64_t currentTime_ = 0;
  std::shared_ptr<const ScheduleItem> currentSession_;
  QString focusedID_;                         ///< of a session that may be gone
  const ScheduleItem* framedItem_ = nullptr;  ///< compared alone
  std::optional<Instant> lastScrolled_;       ///< none since the last scroll to now
  bool scrollToNow_ = true;                   ///< at the next load
  std::shared_ptr<WeeklySchedule> weeklySchedule_;
  ScheduleItems scheduleItems_;
  ItemTextWidths widest_;
  TodayLayout layout_;
  TimeMarkerView* timeMarkerView_ = nullptr;  ///< a child, made at first need
  QVariantAnimation* scrollAnimation_;        ///< a child
  QPointer<QScrollArea> scroller_;            ///< the one whose scrolling is watched
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
