#pragma once
#include <QWidget>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/ScheduleViewOwner.h"
#include "ui/AccessibleView.h"

namespace tarvel {

/// The names of the columns, days or venues, above the schedule's pages; it stays put while pages turn. Made
/// by the owner of the schedule, which tells it what to show.
class ScheduleHeaderView : public QWidget, public AccessibleView, Counted<ScheduleHeaderView> {
  Q_OBJECT
 public:
  using Counted<ScheduleHeaderView>::liveCount;
  static constexpr int kHeight = 19;

  ScheduleHeaderView(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent);
  /// Lets go of the owner and of all observations.
  void close();

  /// Of the first column; with no date nothing is drawn.
  void setDate(PackedDate date);
  void setScheduleViewOption(ScheduleViewOption option);
  ScheduleViewOption scheduleViewOption() const { return scheduleViewOption_; }
  PackedDate date() const { return date_; }

  /// "Today", or "Sun 3/14".
  static std::string columnTitle(PackedDate date, PackedDate today);
  /// What stands above the columns, from the left: seven days or the names of the chosen venues.
  std::vector<std::string> columnTitles() const;
  AccessibleNode accessibleTree() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void describe();
  void contentChanged();

  ScheduleViewOwner* owner_;
  ScheduleViewOption scheduleViewOption_ = ScheduleViewOption::weekly;
  PackedDate date_ = kNoDate;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
