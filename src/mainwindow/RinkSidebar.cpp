#include "mainwindow/RinkSidebar.h"

#include <QPainter>
#include <QScrollArea>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace tarvel {
namespace {

constexpr int kBorder = 1;
constexpr int kStatusMargin = 8;

}  // namespace

RinkSidebar::RinkSidebar(const WindowContext& context, QWidget* parent)
    : QWidget(parent), dataModel_(context.dataModel), watch_(context.services, [this] { updateTexts(); }) {
  setFixedWidth(kWidth);
  rinkListScroller_ = new QScrollArea(this);
  rinkListScroller_->setFrameShape(QFrame::NoFrame);
  rinkListScroller_->setFocusPolicy(Qt::NoFocus);
  rinkListScroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  rinkListView_ = new RinkListView(context);
  rinkListScroller_->setWidget(rinkListView_);
  emptyList_ = new EmptyListView(context, this);
  refreshStatus_ =
      new RefreshStatusView(context.services, RefreshStatusView::Arrangement::buttonThenText, this);

  // One of the two has all the room.
  rinkListOrEmpty_ = new QStackedLayout;
  rinkListOrEmpty_->addWidget(rinkListScroller_);
  rinkListOrEmpty_->addWidget(emptyList_);
  auto* statusRow = new QHBoxLayout;
  statusRow->setContentsMargins(kStatusMargin, kStatusMargin + kBorder, kStatusMargin, kStatusMargin);
  statusRow->addWidget(refreshStatus_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, kBorder, 0);
  column->setSpacing(0);
  column->addLayout(rinkListOrEmpty_, 1);
  column->addLayout(statusRow);

  rinkListView_->listLoaded = [this] { updateTexts(); };
  const auto catalogue = [this]() -> RefreshableProtocol* { return &dataModel_; };
  watch_.watch(&dataModel_, catalogue);
  refreshStatus_->watch(&dataModel_, catalogue);
}

void RinkSidebar::close() {
  rinkListView_->close();
  refreshStatus_->close();
  watch_.stop();
}

void RinkSidebar::updateTexts() {
  const bool empty = rinkListView_->rinks().empty();
  if (empty) {
    emptyList_->updateContent();
    rinkListOrEmpty_->setCurrentWidget(emptyList_);
  } else if (rinkListOrEmpty_->currentWidget() != rinkListScroller_) {
    rinkListOrEmpty_->setCurrentWidget(rinkListScroller_);
    // While it was hidden, the keyboard that was meant for it went to some control beside it.
    if (rinkListView_->enabled) rinkListView_->setFocus();
  }
}

void RinkSidebar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), color(kContentBackground, this));
  const QColor border = color(kContentBorder, this);
  painter.fillRect(QRect(width() - kBorder, 0, kBorder, height()), border);
  painter.fillRect(QRect(0, refreshStatus_->y() - kStatusMargin - kBorder, width(), kBorder), border);
}

}  // namespace tarvel
