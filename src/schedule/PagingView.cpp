#include "schedule/PagingView.h"

#include <fmt/format.h>

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QVariantAnimation>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/FatalError.h"
#include "schedule/PageTurnView.h"
#include "ui/NamedColors.h"

namespace tarvel {

namespace {
constexpr int kPreviousOffset = -1;
constexpr int kCurrentOffset = 0;
constexpr int kNextOffset = 1;
}  // namespace

PagingView::PagingView(const WindowContext& context, QWidget* parent)
    : QWidget(parent), pictures_(new PageTurnView(this)), animation_(new QVariantAnimation(this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  animation_->setEasingCurve(QEasingCurve::OutCubic);
  connect(animation_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& value) { gesture(value.toDouble()); });
  connect(animation_, &QVariantAnimation::finished, this, [this] { endTurn(); });
  observations_.push_back(context.services.notifications.observe(
      kCheckObservers,
      [&census = context.observerCensus](const Notification&) { census.checkObservers("PagingView"); }));
  watchSuperview();
}

PagingView::~PagingView() = default;

void PagingView::watchSuperview() {
  if (superview_ == parentWidget()) return;
  if (superview_) superview_->removeEventFilter(this);
  superview_ = parentWidget();
  if (superview_) superview_->installEventFilter(this);
}

bool PagingView::event(QEvent* event) {
  if (event->type() == QEvent::ParentChange) watchSuperview();
  return QWidget::event(event);
}

bool PagingView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == superview_ && event->type() == QEvent::Resize && hasPages()) adjustSize();
  return QWidget::eventFilter(watched, event);
}

void PagingView::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), color(kContentBackground2, this));
}

PagedView* PagingView::newPage(int offset) {
  PagedView* page = delegate_->newPagedViewForPagingView(*this);
  page->setParent(this);
  page->resize(size());
  page->setPagingView(this);
  page->setPresented(isPresented_);
  delegate_->loadView(*page, *this, offset);
  return page;
}

void PagingView::buildPages() {
  if (!delegate_) fatalError("a paging view without a delegate");
  const bool hadFocus = currView_ && window()->focusWidget() == currView_;
  removePages();
  // In the order of the stack, from the bottom up.
  nextView_ = newPage(kNextOffset);
  currView_ = newPage(kCurrentOffset);
  prevView_ = newPage(kPreviousOffset);
  adjustSize();
  if (hadFocus) currView_->setFocus(Qt::OtherFocusReason);
}

void PagingView::removePages() {
  animation_->stop();
  pictures_->end();
  amount_ = 0.0;
  for (PagedView** page : {&prevView_, &currView_, &nextView_}) {
    if (!*page) continue;
    (*page)->close();
    (*page)->hide();
    (*page)->deleteLater();
    *page = nullptr;
  }
}

void PagingView::requirePages() const {
  if (!prevView_ || !currView_ || !nextView_) fatalError("the pages have not been built");
}

void PagingView::setPresented(bool presented) {
  if (presented == isPresented_) return;
  isPresented_ = presented;
  for (PagedView* page : {prevView_, currView_, nextView_}) {
    if (page) page->setPresented(presented);
  }
}

void PagingView::reloadAll() {
  requirePages();
  delegate_->reloadView(*prevView_, *this, kPreviousOffset);
  delegate_->reloadView(*currView_, *this, kCurrentOffset);
  delegate_->reloadView(*nextView_, *this, kNextOffset);
}

void PagingView::redrawAll() {
  requirePages();
  for (PagedView* page : {prevView_, currView_, nextView_}) page->setNeedsDisplay(true);
}

void PagingView::adjustSize() {
  requirePages();
  if (superview_) {
    const double height = currView_->heightForAvailableHeight(superview_->height());
    const QSize wanted(superview_->width(), static_cast<int>(std::ceil(height)));
    if (size() != wanted) resize(wanted);
  }
  finishGlide();
  placePages();
}

void PagingView::placePages() {
  prevView_->setGeometry(-width(), 0, width(), height());
  currView_->setGeometry(0, 0, width(), height());
  nextView_->setGeometry(0, 0, width(), height());
  restack();
  // At rest the next page lies unseen under the current one, and the previous one out of sight: neither is
  // drawn.
  nextView_->setVisible(false);
  currView_->setVisible(true);
  prevView_->setVisible(true);
  for (PagedView* page : {prevView_, currView_, nextView_}) {
    page->setFocusPolicy(page == currView_ ? page->focusPolicyInView() : Qt::NoFocus);
    if (!QAccessible::isActive()) continue;
    // To the toolkit the page beside the one in view is shown as well.
    QAccessibleEvent event(page, page == currView_ ? QAccessible::ObjectShow : QAccessible::ObjectHide);
    QAccessible::updateAccessibility(&event);
  }
  places_ = pagesAtRest(width());
}

void PagingView::restack() {
  nextView_->stackingOrder = 0;
  currView_->stackingOrder = 1;
  prevView_->stackingOrder = 2;
  std::array<PagedView*, 3> pages{prevView_, currView_, nextView_};
  std::sort(pages.begin(), pages.end(),
            [](const PagedView* a, const PagedView* b) { return a->stackingOrder < b->stackingOrder; });
  for (PagedView* page : pages) page->raise();
  pictures_->raise();
}

QRect PagingView::bandInSight() const {
  const QRect band = superview_ ? rect() & superview_->rect().translated(-pos()) : rect();
  return band.isEmpty() ? rect() : band;
}

void PagingView::gotoNext() {
  turn(Way::next);
}
void PagingView::gotoPrev() {
  turn(Way::previous);
}

void PagingView::turn(Way way) {
  requirePages();
  const bool toNext = way == Way::next;
  if (toNext ? !delegate_->pagesAfterCurrent(*this) : !delegate_->pagesBeforeCurrent(*this)) return;
  const bool hadFocus = window()->focusWidget() == currView_;
  PagedView* oldPrevious = prevView_;
  PagedView* oldCurrent = currView_;
  PagedView* oldNext = nextView_;
  prevView_ = toNext ? oldCurrent : oldNext;
  currView_ = toNext ? oldNext : oldPrevious;
  nextView_ = toNext ? oldPrevious : oldCurrent;
  placePages();
  if (toNext) {
    delegate_->pagingViewDidGotoNextPage(*this);
    delegate_->reloadView(*nextView_, *this, kNextOffset);
  } else {
    delegate_->pagingViewDidGotoPrevPage(*this);
    delegate_->reloadView(*prevView_, *this, kPreviousOffset);
  }
  currView_->pageDidBecomeCurrent();
  // One who goes back comes to the page before from behind.
  if (hadFocus) currView_->setFocus(toNext ? Qt::OtherFocusReason : Qt::BacktabFocusReason);
}

void PagingView::glideToNext() {
  glide(Way::next);
}
void PagingView::glideToPrev() {
  glide(Way::previous);
}

void PagingView::glide(Way way) {
  requirePages();
  finishGlide();
  const bool there =
      way == Way::next ? delegate_->pagesAfterCurrent(*this) : delegate_->pagesBeforeCurrent(*this);
  if (there) glideTo(way == Way::next ? -1.0 : 1.0);
}

void PagingView::glideTo(double target) {
  requirePages();
  animation_->stop();
  animation_->setStartValue(amount_);
  animation_->setEndValue(target);
  animation_->setDuration(static_cast<int>(std::lround(kGlideMilliseconds * std::abs(target - amount_))));
  animation_->start();
}

void PagingView::finishGlide() {
  if (animation_->state() != QAbstractAnimation::Running) return;
  const double target = animation_->endValue().toDouble();
  animation_->stop();
  gesture(target);
  endTurn();
}

bool PagingView::gesture(double amount) {
  requirePages();
  if (amount == 0.0) {
    endTurn();
    return false;
  }
  const GestureStep step =
      gestureStep(amount, width(), delegate_->pagesBeforeCurrent(*this), delegate_->pagesAfterCurrent(*this));
  if (step.turn != PageTurn::none) {
    animation_->stop();
    endTurn();
    turn(step.turn == PageTurn::toNext ? Way::next : Way::previous);
    return true;
  }
  if (amount_ == 0.0 && !bringUpToDate()) return false;
  if (amount_ == 0.0) pictures_->begin(*prevView_, *currView_, *nextView_, bandInSight());
  amount_ = amount;
  places_ = step.places;
  pictures_->setPlaces(places_);
  return false;
}

bool PagingView::bringUpToDate() {
  const bool gliding = animation_->state() == QAbstractAnimation::Running;
  // What a page reads may have the pages take another size, which ends a glide and turns them round.
  for (PagedView* page : {prevView_, currView_, nextView_}) {
    if (page->isAwaitingData && page->isPresented()) page->performUpdates();
  }
  return !gliding || animation_->state() == QAbstractAnimation::Running;
}

bool PagingView::isTurning() const {
  return amount_ != 0.0 || animation_->state() == QAbstractAnimation::Running;
}

void PagingView::endTurn() {
  pictures_->end();
  amount_ = 0.0;
  places_ = pagesAtRest(width());
}

void PagingView::close() {
  observations_.clear();
  removePages();
  delegate_ = nullptr;
}

std::string PagingView::description() const {
  const auto name = [](const PagedView* page) {
    return page ? std::string(page->metaObject()->className()) : std::string("none");
  };
  return fmt::format("PagingView\n   previous: {}\n   current:  {}\n   next:     {}", name(prevView_),
                     name(currView_), name(nextView_));
}

}  // namespace tarvel
