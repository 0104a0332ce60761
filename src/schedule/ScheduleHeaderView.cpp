#include "schedule/ScheduleHeaderView.h"

#include <fmt/format.h>

#include <QPainter>

#include "ui/AttributedText.h"

namespace tarvel {
namespace {

constexpr double kNarrowBelow = 70.0;
constexpr double kTextTop = 2.0;
constexpr double kTextHeight = 15.0;
const TextAttributes kAttributes{11.0, FontWeight::regular, kLabel, kCentredStyle};
const TextAttributes kNarrowAttributes{9.0, FontWeight::regular, kLabel, kCentredStyle};

}  // namespace

ScheduleHeaderView::ScheduleHeaderView(const WindowContext& context, ScheduleViewOwner& owner,
                                       QWidget* parent)
    : QWidget(parent), owner_(&owner) {
  setFixedHeight(kHeight);
  setAccessibleName(QStringLiteral("Days of the week"));
  NotificationCenter& center = context.services.notifications;
  ObserverCensus& census = context.observerCensus;
  observations_.push_back(center.observe(kCurrentDateChanged, [this](const Notification&) { update(); }));
  observations_.push_back(center.observe(
      kCheckObservers, [&census](const Notification&) { census.checkObservers("ScheduleHeaderView"); }));
}

void ScheduleHeaderView::close() {
  observations_.clear();
  owner_ = nullptr;
}

void ScheduleHeaderView::setDate(PackedDate date) {
  if (date == date_) return;
  date_ = date;
  update();
}

void ScheduleHeaderView::setScheduleViewOption(ScheduleViewOption option) {
  if (option == scheduleViewOption_) return;
  scheduleViewOption_ = option;
  update();
}

std::string ScheduleHeaderView::columnTitle(PackedDate date, PackedDate today) {
  if (date == today) return "Today";
  return fmt::format("{} {}/{}", shortWeekdayName(weekdayOf(date)), monthOf(date), dayOf(date));
}

void ScheduleHeaderView::paintEvent(QPaintEvent*) {
  if (date_ == kNoDate || !owner_) return;
  const ColumnGeometry geometry = owner_->columnGeometry();
  if (geometry.width == 0.0) return;
  QPainter painter(this);
  if (scheduleViewOption_ == ScheduleViewOption::weekly) paintDays(painter, geometry);
}

void ScheduleHeaderView::paintDays(QPainter& painter, const ColumnGeometry& geometry) const {
  const auto rink = owner_->currentRinkData();
  const PackedDate today = rink ? rink->dateNow() : kNoDate;
  const TextAttributes& attributes = geometry.width < kNarrowBelow ? kNarrowAttributes : kAttributes;
  PackedDate date = date_;
  for (int column = 0; column < WeeklyLayout::kDays; ++column, date = nextDay(date)) {
    const Rect rect{geometry.x + column * geometry.width, kTextTop, geometry.width, kTextHeight};
    draw(painter, rect, AttributedText(columnTitle(date, today), attributes), TextFit::wrap,
         appearanceOf(this));
  }
}

}  // namespace tarvel
