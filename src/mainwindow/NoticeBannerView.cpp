#include "mainwindow/NoticeBannerView.h"

#include <fmt/format.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "mainwindow/NoticeTexts.h"
#include "mainwindow/RinkIdentity.h"
#include "ui/FocusRing.h"

namespace tarvel {
namespace {

constexpr Color kBannerColor{0.1, 0.1, 0.7, 1.0};
const TextAttributes kCountAttributes{11.0, FontWeight::regular, white(1.0), kCentredStyle,
                                      FontDesign::tabularDigits};
constexpr int kControlMargin = 4;
constexpr int kBottomMargin = 10;
constexpr int kCountHeight = 16;
constexpr int kCountGap = 4;

}  // namespace

NoticeBannerView::NoticeBannerView(const WindowContext& context, QWidget* parent)
    : DataLoadingView(context.services.notifications, parent),
      console_(context.services.console),
      application_(context.application) {
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(QStringLiteral("Notice"));
  countField_ = new TextLabel(kCountAttributes, TextLabel::Lines::one, this);
  prevButton_ = new BannerButton("chevron-left", QStringLiteral("Previous Notice"), this);
  nextButton_ = new BannerButton("chevron-right", QStringLiteral("Next Notice"), this);
  connect(prevButton_, &BannerButton::clicked, this, &NoticeBannerView::prevNotice);
  connect(nextButton_, &BannerButton::clicked, this, &NoticeBannerView::nextNotice);
  updateCount();
  NotificationCenter& center = context.services.notifications;
  observations_.push_back(
      center.observe(kNoticesChanged, [this](const Notification& changed) { noticesChanged(changed); }));
  observations_.push_back(
      center.observe(kCheckObservers, [&census = context.observerCensus](const Notification&) {
        census.checkObservers("NoticeBannerView");
      }));
  needsData();
}

void NoticeBannerView::close() {
  isClosing = true;
  accessibleContentChanged();
  observations_.clear();
}

QColor NoticeBannerView::backgroundColor() const {
  return toQColor(kBannerColor);
}

void NoticeBannerView::setRinkData(const std::shared_ptr<RinkData>& rinkData) {
  if (isSameRink(rinkData_, rinkData)) return;
  rinkData_ = rinkData;
  needsData();
}

void NoticeBannerView::noticesChanged(const Notification& notification) {
  const auto rink = rinkData_.lock();
  if (rink && notification.object.is(rink.get())) needsData();
}

void NoticeBannerView::showFirstNotice() {
  currentIndex_ = 0;
  needsData();
}

void NoticeBannerView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  setNeedsDisplay(true);
  noticeList_.clear();
  // A pass that was due when the banner went reads nothing: whatever the list holds when the banner goes
  // counts as seen.
  if (const auto rink = isPresented() ? rinkData_.lock() : nullptr) {
    for (const auto& notice : rink->noticeList().value_or(NoticeList())) {
      if (!rink->isDismissed(notice->noticeID)) noticeList_.push_back(notice);
    }
  }
  if (!noticeList_.empty()) currentIndex_ = std::min(currentIndex_, noticeList_.size() - 1);
  updateCount();
}

void NoticeBannerView::updateCount() {
  const bool several = noticeList_.size() > 1;
  countField_->setVisible(several);
  prevButton_->setVisible(several);
  nextButton_->setVisible(several);
  accessibleContentChanged();
  if (!several) return;
  countField_->setTextUtf8(fmt::format("{} of {}", currentIndex_ + 1, noticeList_.size()));
  prevButton_->setEnabled(currentIndex_ >= 1);
  nextButton_->setEnabled(currentIndex_ + 1 < noticeList_.size());
}

// For the keyboard and for screen readers.

AccessibleNode NoticeBannerView::accessibleTree() const {
  AccessibleNode group;
  group.role = QAccessible::Grouping;
  if (isClosing || currentIndex_ >= noticeList_.size()) return group;
  AccessibleNode notice;
  notice.id = accessibleFocus();
  notice.role = QAccessible::Notification;
  notice.name = spokenNotice(*noticeList_[currentIndex_]);
  notice.rect = QRectF(0.0, 0.0, width() - BannerLayout::kControlsWidth, height());
  notice.focusable = true;
  notice.action = QStringLiteral("Show among the notices");
  group.children.push_back(notice);
  return group;
}

QString NoticeBannerView::accessibleFocus() const {
  if (currentIndex_ >= noticeList_.size()) return {};
  return QString::number(noticeList_[currentIndex_]->noticeID);
}

void NoticeBannerView::pressAccessible(const QString& id) {
  if (id == accessibleFocus()) choose();
}

void NoticeBannerView::choose() {
  // What is out of date doesn't show, so that nobody can have meant it. A banner on show keeps its rink, also
  // when all of that rink's notices have been dismissed meanwhile: it is empty then, and nothing can be
  // meant.
  if (isAwaitingData || !isPresented() || currentIndex_ >= noticeList_.size()) return;
  if (noticeChosen) noticeChosen(noticeList_[currentIndex_]);
}

void NoticeBannerView::keyPressEvent(QKeyEvent* event) {
  const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!chooses || !hasKeyboardFocus(*this)) return DataLoadingView::keyPressEvent(event);
  choose();
}

void NoticeBannerView::focusInEvent(QFocusEvent* event) {
  DataLoadingView::focusInEvent(event);
  setNeedsDisplay(true);
  accessibleFocusChanged();
}

void NoticeBannerView::focusOutEvent(QFocusEvent* event) {
  DataLoadingView::focusOutEvent(event);
  setNeedsDisplay(true);
}

void NoticeBannerView::dismissCurrent() {
  const auto rink = rinkData_.lock();
  if (!rink || currentIndex_ >= noticeList_.size()) return;
  if (rink->dismissNotice(noticeList_[currentIndex_]->noticeID)) application_.markChanged();
}

void NoticeBannerView::goTo(std::size_t index) {
  dismissCurrent();
  currentIndex_ = index;
  setNeedsDisplay(true);
  updateCount();
}

void NoticeBannerView::prevNotice() {
  if (currentIndex_ >= 1) goTo(currentIndex_ - 1);
}

void NoticeBannerView::nextNotice() {
  if (currentIndex_ + 1 < noticeList_.size()) goTo(currentIndex_ + 1);
}

void NoticeBannerView::closeBanner() {
  dismissCurrent();
  currentIndex_ = 0;
  noticeList_.clear();
  updateCount();
}

void NoticeBannerView::draw(QPainter& painter, const Rect&) {
  if (currentIndex_ >= noticeList_.size()) return;
  drawNotice(painter);
  if (hasKeyboardFocus(*this)) drawFocusRing(painter, rect(), *this);
}

void NoticeBannerView::drawNotice(QPainter& painter) const {
  const Notice& notice = *noticeList_[currentIndex_];
  const BannerLayout layout{{static_cast<double>(width()), static_cast<double>(height())}};
  if (layout.textWidth() <= 0.0) return;
  const Appearance appearance = appearanceOf(this);
  std::optional<double> summaryHeight;
  if (!notice.summary.empty()) {
    const AttributedText summary(notice.summary, kBannerSummaryAttributes);
    summaryHeight = boundingRect(summary, layout.summaryRoom(), TextFit::wrapAndTruncate).height;
    tarvel::draw(painter, layout.summary(*summaryHeight), summary, TextFit::wrapAndTruncate, appearance);
  }
  const double top = BannerLayout::detailTop(summaryHeight);
  const Size room = layout.detailRoom(top);
  if (notice.detail.empty() || room.height <= 0.0) return;
  const AttributedText detail(notice.detail, kBannerDetailAttributes);
  const double height = boundingRect(detail, room, TextFit::wrapAndTruncate).height;
  // A first line is measured in full even where a long summary leaves less than that.
  if (height > room.height) return;
  tarvel::draw(painter, layout.detail(top, height), detail, TextFit::wrapAndTruncate, appearance);
}

void NoticeBannerView::resizeEvent(QResizeEvent* event) {
  DataLoadingView::resizeEvent(event);
  constexpr int kWidth = static_cast<int>(BannerLayout::kControlsWidth);
  const int left = width() - kWidth;
  const QSize button = prevButton_->size();
  const int buttonY = height() - kBottomMargin - button.height();
  prevButton_->move(left + kWidth / 2 - button.width() - kControlMargin / 2, buttonY);
  nextButton_->move(left + kWidth / 2 + kControlMargin / 2, buttonY);
  countField_->setGeometry(left + kControlMargin, buttonY - kCountGap - kCountHeight,
                           kWidth - 2 * kControlMargin, kCountHeight);
}

void NoticeBannerView::mousePressEvent(QMouseEvent* event) {
  console_.printLine("NoticeBannerView mouseDown");
  if (!isPresented()) return DataLoadingView::mousePressEvent(event);
  const BannerLayout layout{{static_cast<double>(width()), static_cast<double>(height())}};
  if (!layout.isOnControls(event->position().x())) choose();
}

}  // namespace tarvel
