#include "mainwindow/CalendarSidebar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "schedule/CalendarView.h"
#include "ui/NamedColors.h"

namespace tarvel {
namespace {

constexpr int kBorder = 1;

}  // namespace

CalendarSidebar::CalendarSidebar(const WindowContext& context, QWidget* parent) : QWidget(parent) {
  setFixedWidth(kWidth);
  calendarScrollView_ = new QScrollArea(this);
  calendarScrollView_->setFrameShape(QFrame::NoFrame);
  calendarScrollView_->setFocusPolicy(Qt::NoFocus);
  calendarScrollView_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Always there, so that the columns keep their width.
  calendarScrollView_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  calendarView_ = new CalendarView(context);
  calendarScrollView_->setWidget(calendarView_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kBorder, 0, 0, 0);
  row->addWidget(calendarScrollView_);
  updateScrollBarColor();
}

void CalendarSidebar::close() {
  calendarView_->close();
}

/// The bar stands on the calendar's surface, which isn't that of most lists.
void CalendarSidebar::updateScrollBarColor() {
  QPalette palette;
  palette.setColor(QPalette::Base, color(kContentBackground2, this));
  calendarScrollView_->verticalScrollBar()->setPalette(palette);
}

void CalendarSidebar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) updateScrollBarColor();
}

void CalendarSidebar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), color(kContentBackground2, this));
  painter.fillRect(QRect(0, 0, kBorder, height()), color(kContentBorder, this));
}

}  // namespace tarvel
