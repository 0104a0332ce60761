#pragma once
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/MainStateWatch.h"
#include "schedule/PagedView.h"
#include "schedule/ScheduleViewOwner.h"
#include "schedule/TimeMarkerView.h"

namespace tarvel {

/// One venue's week as seven columns on one axis. It finds its items itself, tells its owner what is under
/// the mouse and what is clicked, and marks the present moment. Its owner tells it rink, venue, week and span
/// of the day.
class WeeklyScheduleView : public PagedView, Counted<WeeklyScheduleView> {
  Q_OBJECT
 public:
  using Counted<WeeklyScheduleView>::liveCount;

  WeeklyScheduleView(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent = nullptr);

  /// Another rink brings its date and time with it.
  void setChosenRink(const std::shared_ptr<RinkData>& rink);
  /// 0 leaves the choice to the view: the first venue by its display order.
  void setChosenVenueID(std::int64_t venueID);
  std::int64_t chosenVenueID() const { return chosenVenueID_; }
  /// Shows the week that holds the date.
  void setWeekContaining(PackedDate date);
  PackedDate weekOf() const { return input_.weekOf; }
  /// The span of the axis; true if it is another one than before.
  bool setDayRange(const DayRange& range);
  /// The span that this week's items need.
  DayRange dayRange() const { return dayRangeOf(*items_); }
  /// Selects the date if this week holds it, and nothing otherwise.
  void setSelectedDate(PackedDate date);
  PackedDate selectedDate() const { return selectedDate_; }
  /// What the schedule calls now; minutes above 1440 belong to the night after the date.
  void setCurrentDate(PackedDate date, std::int64_t time);

  /// Scrolls at once, so that the minute stands a quarter of the way down.
  void scrollTo(std::int64_t minute);
  using PagedView::scrollTo;
  void scrollToCurrentTime() { scrollTo(currentTime_); }
  /// Looks again what is under the mouse.
  void updateItemInfo();

  const WeeklyLayout& layout() const { return layout_; }
  const ScheduleItems& scheduleItems() const { return *items_; }
  const std::shared_ptr<const ScheduleItem>& mouseItem() const { return mouseItem_; }
  const TimeMarkerView* timeMarkerView() const { return timeMarkerView_; }

  void loadData() override;
  void setPresented(bool presented) override;
  double heightForAvailableHeight(double height) const override;
  void adjustSize() override;
  void pageDidChangeSettings() override;
  void pageDidBecomeCurrent() override;
  void close() override;

 protected:
  void draw(QPainter& painter, const Rect& dirty) override;
  QColor backgroundColor() const override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  enum class Click { single, twice };

  void observe(const WindowContext& context);
  void needsRedraw() { setNeedsDisplay(!isClosing); }
  void rinkChanged(const Notification& notification);
  void weeklyScheduleChanged(const Notification& notification);
  void mainStateChanged(bool isMain);
  void chooseFirstVenue(const RinkData& rink);
  void describe();
  bool isCurrentPage() const { return owner_ && owner_->isCurrentPage(*this); }
  /// Of the week that is to be shown, also while its layout waits for data.
  bool weekHolds(PackedDate date) const;
  void placeTimeMarker();
  /// The message in place of the week, if there is one; true if it was drawn.
  bool drawMessage(QPainter& painter) const;
  void handleClick(Point point, Click click);
  void updateItemInfo(Point point);
  std::string infoAt(Point point);

  DataModel& dataModel_;
  ScheduleViewOwner* owner_;
  std::weak_ptr<RinkData> chosenRink_;
  std::int64_t chosenVenueID_ = 0;
  PackedDate selectedDate_ = kNoDate;
  PackedDate currentDate_ = kNoDate;
  std::int64_t currentTime_ = 0;
  double fontSize_ = kDefaultItemFontSize;
  ItemStyles styles_;
  std::weak_ptr<WeeklySchedule> weeklySchedule_;
  std::shared_ptr<const ScheduleItems> items_;  ///< never null
  std::shared_ptr<const ScheduleItem> mouseItem_;
  WeeklyLayoutInput input_;
  WeeklyLayout layout_;
  TimeMarkerView* timeMarkerView_ = nullptr;  ///< a child, made at first need
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
