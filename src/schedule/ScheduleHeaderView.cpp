#include "schedule/ScheduleHeaderView.h"

#include <fmt/format.h>

#include <QEvent>
#include <QPainter>

#include "schedule/ScheduleContents.h"
#include "schedule/WeeklyLayout.h"
#include "ui/AttributedText.h"

namespace tarvel {
namespace {

constexpr double kNarrowBelow = 70.0;
constexpr double kTextTop = 2.0;
constexpr int kTextHeight = 15;
const TextAttributes kAttributes{11.0, FontWeight::regular, kLabel, kCentredStyle};
const TextAttributes kNarrowAttributes{9.0, FontWeight::regular, kLabel, kCentredStyle};

}  // namespace

ScheduleHeaderView::ScheduleHeaderView(const WindowContext& context, ScheduleViewOwner& owner,
                                       QWidget* parent)
    : QWidget(parent), owner_(&owner) {
  setFixedHeight(scaledForText(kHeight));
  describe();
  NotificationCenter& center = context.services.notifications;
  ObserverCensus& census = context.observerCensus;
  observations_.push_back(
      center.observe(kCurrentDateChanged, [this](const Notification&) { contentChanged(); }));
  observations_.push_back(center.observe(
      kCheckObservers, [&census](const Notification&) { census.checkObservers("ScheduleHeaderView"); }));
}

void ScheduleHeaderView::close() {
  observations_.clear();
  owner_ = nullptr;
  accessibleContentChanged();
}

void ScheduleHeaderView::setDate(PackedDate date) {
  if (date == date_) return;
  date_ = date;
  contentChanged();
}

void ScheduleHeaderView::setScheduleViewOption(ScheduleViewOption option) {
  if (option == scheduleViewOption_) return;
  scheduleViewOption_ = option;
  describe();
  contentChanged();
}

void ScheduleHeaderView::contentChanged() {
  update();
  accessibleContentChanged();
}

void ScheduleHeaderView::describe() {
  const bool isWeekly = scheduleViewOption_ == ScheduleViewOption::weekly;
  setAccessibleName(isWeekly ? QStringLiteral("Days of the week") : QStringLiteral("Venues"));
}

std::string ScheduleHeaderView::columnTitle(PackedDate date, PackedDate today) {
  if (date == today) return "Today";
  return fmt::format("{} {}/{}", shortWeekdayName(weekdayOf(date)), monthOf(date), dayOf(date));
}

std::vector<std::string> ScheduleHeaderView::columnTitles() const {
  std::vector<std::string> titles;
  if (date_ == kNoDate || !owner_) return titles;
  const auto rink = owner_->currentRinkData();
  if (scheduleViewOption_ == ScheduleViewOption::daily) {
    for (const auto& venue : venuesOf(rink.get(), owner_->dailyVenueIDs())) {
      titles.push_back(venue->displayName());
    }
    return titles;
  }
  const PackedDate today = rink ? rink->dateNow() : kNoDate;
  PackedDate date = date_;
  for (int column = 0; column < WeeklyLayout::kDays; ++column, date = nextDay(date)) {
    titles.push_back(columnTitle(date, today));
  }
  return titles;
}

AccessibleNode ScheduleHeaderView::accessibleTree() const {
  AccessibleNode heading;
  heading.role = QAccessible::Heading;
  const ColumnGeometry geometry = owner_ ? owner_->columnGeometry() : ColumnGeometry{};
  double x = geometry.x;
  for (const std::string& title : columnTitles()) {
    AccessibleNode column;
    column.id = QString::number(heading.children.size());
    column.role = QAccessible::StaticText;
    column.name = QString::fromStdString(title);
    column.rect = QRectF(x, 0.0, geometry.width, height());
    x += geometry.width;
    heading.children.push_back(std::move(column));
  }
  return heading;
}

void ScheduleHeaderView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) setFixedHeight(scaledForText(kHeight));
}

void ScheduleHeaderView::paintEvent(QPaintEvent*) {
  if (date_ == kNoDate || !owner_) return;
  const ColumnGeometry geometry = owner_->columnGeometry();
  if (geometry.width <= 0.0) return;
  QPainter painter(this);
  const bool isWeekly = scheduleViewOption_ == ScheduleViewOption::weekly;
  const TextAttributes& attributes =
      isWeekly && geometry.width < kNarrowBelow * textScale() ? kNarrowAttributes : kAttributes;
  Rect rect{geometry.x, kTextTop, geometry.width, double(scaledForText(kTextHeight))};
  for (const std::string& title : columnTitles()) {
    const ItemClip clip(painter, rect);
    draw(painter, rect, AttributedText(title, attributes), TextFit::wrapAndTruncate, appearanceOf(this));
    rect.x += geometry.width;
  }
}

}  // namespace tarvel
