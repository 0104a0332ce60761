#include "mainwindow/SchedulePane.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "mainwindow/ContentBox.h"
#include "mainwindow/TextLabel.h"

namespace tarvel {
namespace {

constexpr int kMargin = 8;
constexpr int kSplitterWidth = 8;
constexpr int kDescriptionInset = 4;
const TextAttributes kDescriptionAttributes{13.0, FontWeight::medium, kLabel, kLeftStyle};

}  // namespace

SchedulePane::SchedulePane(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent)
    : WindowPane(context.services.notifications, context.observerCensus, parent) {
  scheduleSplitView_ = new QSplitter(Qt::Horizontal, this);
  scheduleSplitView_->setHandleWidth(kSplitterWidth);
  scheduleSplitView_->setChildrenCollapsible(false);
  scheduleSidebarView_ = new ScheduleSidebar(scheduleSplitView_);
  scheduleSidebarView_->setMinimumWidth(ScheduleSidebar::kMinimumWidth);
  scheduleSidebarView_->setMaximumWidth(ScheduleSidebar::kMaximumWidth);
  scheduleSplitView_->addWidget(scheduleSidebarView_);
  scheduleSplitView_->addWidget(makeScheduleArea(context, owner));
  // The sidebar keeps its width; all that the window gains or loses is the schedule's.
  scheduleSplitView_->setStretchFactor(0, 0);
  scheduleSplitView_->setStretchFactor(1, 1);
  scheduleSplitView_->setSizes({ScheduleSidebar::kNaturalWidth, width()});
  calendarSidebar_ = new CalendarSidebar(context, this);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(scheduleSplitView_, 1);
  row->addWidget(calendarSidebar_);
}

QWidget* SchedulePane::makeScheduleArea(const WindowContext& context, ScheduleViewOwner& owner) {
  auto* area = new QWidget(scheduleSplitView_);
  descriptionLabel_ = new TextLabel(kDescriptionAttributes, TextLabel::Lines::one, area);
  descriptionLabel_->setContentsMargins(kDescriptionInset, 0, kDescriptionInset, 0);
  auto* box = new ContentBox(kScheduleBackground, area);
  scheduleHeaderView_ = new ScheduleHeaderView(context, owner, box);
  scroller_ = new QScrollArea(box);
  scroller_->setFrameShape(QFrame::NoFrame);
  scroller_->setFocusPolicy(Qt::TabFocus);
  box->showFocusOf(*scroller_);
  scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  schedulePagingView_ = new PagingView(context);
  scroller_->setWidget(schedulePagingView_);
  scheduleSwipeController_ = new SwipeGestureController(context, *schedulePagingView_, *scroller_);
  auto* boxColumn = new QVBoxLayout(box);
  boxColumn->setContentsMargins(1, 1, 1, 1);
  boxColumn->setSpacing(0);
  boxColumn->addWidget(scheduleHeaderView_);
  boxColumn->addWidget(scroller_, 1);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, kMargin, kMargin);
  column->setSpacing(kDescriptionInset);
  column->addWidget(descriptionLabel_);
  column->addWidget(box, 1);
  return area;
}

void SchedulePane::showCalendar(bool shown) {
  calendarSidebar_->setVisible(shown);
}

void SchedulePane::close() {
  schedulePagingView_->close();
  scheduleHeaderView_->close();
  calendarSidebar_->close();
  scheduleSidebarView_->setLogoProvider({});
  WindowPane::close();
}

}  // namespace tarvel
