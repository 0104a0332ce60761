#pragma once
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/ItemPainter.h"
#include "schedule/MainStateWatch.h"
#include "schedule/PagedView.h"
#include "schedule/ScheduleOutline.h"
#include "schedule/ScheduleViewOwner.h"
#include "schedule/TimeMarkerView.h"
#include "ui/AccessibleView.h"

class QScrollArea;

namespace tarvel {

/// A page of a rink's schedule, whatever its columns stand for. It finds its items itself, tells its owner
/// what is under the mouse and what is clicked, and marks the present moment. Its owner tells it rink, dates
/// and span of the day.
class SchedulePageView : public PagedView, public AccessibleView {
  Q_OBJECT
 public:
  void setChosenRink(const std::shared_ptr<RinkData>& rink);
  /// The span of the axis; true if it is another one than before, by which the page is then laid out.
  bool setDayRange(const DayRange& range);
  /// The span that the items of this page need.
  virtual DayRange dayRange() const = 0;
  /// What the schedule calls now; minutes above 1440 belong to the night after the date.
  virtual void setCurrentDate(PackedDate date, std::int64_t time);

  /// Scrolls at once, so that the minute stands a quarter of the way down.
  void scrollTo(std::int64_t minute);
  using PagedView::scrollTo;
  void scrollToCurrentTime() { scrollTo(currentTime_); }
  /// Looks again what is under the mouse. Only the page in view does.
  void updateItemInfo();

  const std::shared_ptr<const ScheduleItem>& mouseItem() const { return mouseItem_; }
  const TimeMarkerView* timeMarkerView() const { return timeMarkerView_; }

  /// What it shows now: nothing without a rink or while data is awaited.
  ScheduleOutline outline() const;
  /// Days or venues with their sessions. By the keyboard it is gone to with the tab key, and the arrows then
  /// lead from session to session.
  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void pressAccessible(const QString& id) override;
  void focusAccessible(const QString& id) override;
  Qt::FocusPolicy focusPolicyInView() const override { return Qt::TabFocus; }

  void loadData() final;
  void setPresented(bool presented) override;
  void pageDidChangeSettings() override;
  void close() override;

 protected:
  /// `name` is the class's, for the census of observers.
  SchedulePageView(const WindowContext& context, ScheduleViewOwner& owner, const char* name, QWidget* parent);

  // What a page tells of itself:
  virtual const ScheduleGrid& grid() const = 0;
  virtual bool showsDate(PackedDate date) const = 0;
  /// The day of a column; none if the page shows none.
  virtual PackedDate dateOfColumn(std::int64_t column) const = 0;
  /// 0 for none.
  virtual std::int64_t venueOfColumn(std::int64_t column) const = 0;
  virtual ScheduleSpot spotAt(const GridHit& hit) const = 0;
  virtual ScheduleItems itemsOfColumn(std::int64_t column) const = 0;
  /// What stands at the column's head, in full.
  virtual std::string columnName(std::int64_t column) const = 0;
  virtual bool isSelectedColumn(std::int64_t) const { return false; }
  /// What the information field calls the time between two items.
  virtual std::string_view gapName() const = 0;
  virtual std::optional<Rect> timeMarkerRect() const = 0;
  /// Whether a change of that venue and week shows on this page. They are those of the notification.
  virtual bool concerns(std::int64_t venueID, PackedDate weekOf) const = 0;
  // What a page does besides:
  virtual void readSchedules() = 0;
  virtual void chosenRinkChanged(const RinkData* rink) = 0;
  virtual void mainStateChanged(bool isMain);

  void needsRedraw() { setNeedsDisplay(!isClosing); }
  void placeTimeMarker();
  /// To be called when all else is drawn.
  void drawFocus(QPainter& painter) const;
  bool isCurrentPage() const { return owner_ && owner_->isCurrentPage(*this); }
  bool isMainWindow() const { return mainState_.isMain(); }
  std::shared_ptr<RinkData> chosenRink() const { return chosenRink_.lock(); }
  ScheduleViewOwner* owner() const { return owner_; }
  DataModel& dataModel() const { return dataModel_; }
  PackedDate currentDate() const { return currentDate_; }
  std::int64_t currentTime() const { return currentTime_; }
  void takeCurrentDate(PackedDate date, std::int64_t time);
  /// Copies what the owner has set, and the view's size, to what the layout is computed from. True if the
  /// font size is another one.
  bool readSettings();
  const SchedulePageInput& pageInput() const { return pageInput_; }
  /// The input with the owner's present choice of fit.
  SchedulePageInput wantedInput() const;
  double fontSize() const { return fontSize_; }
  const ItemStyles& styles() const { return styles_; }

  QColor backgroundColor() const override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  enum class Click { single, twice };

  void observe(const WindowContext& context, const char* name);
  void watchScrolling();
  void rinkChanged(const Notification& notification);
  void weeklyScheduleChanged(const Notification& notification);
  void handleClick(Point point, Click click);
  void updateItemInfo(Point point);
  std::string infoAt(Point point);
  void takeFocus(Qt::FocusReason reason);
  /// After new data, which the session that had the focus may not be among.
  void findFocus();
  void tellFocused(const ScheduleOutline::Spot& spot);

  DataModel& dataModel_;
  ScheduleViewOwner* owner_;
  std::weak_ptr<RinkData> chosenRink_;
  PackedDate currentDate_ = kNoDate;
  std::int64_t currentTime_ = 0;
  double fontSize_ = kDefaultItemFontSize;
  ItemStyles styles_;
  SchedulePageInput pageInput_;
  std::shared_ptr<const ScheduleItem> mouseItem_;
  QString focusedID_;                         ///< in the outline, which may have lost it
  TimeMarkerView* timeMarkerView_ = nullptr;  ///< a child, made at first need
  QPointer<QScrollArea> scroller_;            ///< the one whose scrolling is watched
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
