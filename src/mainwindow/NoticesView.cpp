#include "mainwindow/NoticesView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <utility>

#include "mainwindow/NoticeTexts.h"
#include "mainwindow/RinkIdentity.h"
#include "ui/PixelBox.h"

namespace tarvel {
namespace {

constexpr double kMessageHeight = 24.0;
constexpr double kSelectionLine = 2.0;
constexpr double kGridLine = 1.0;

double heightOf(const AttributedText& text, double width) {
  return boundingRect(text, {width, 0.0}, TextFit::wrap).height;
}

std::optional<double> heightOf(const std::string& text, const TextAttributes& attributes, double width) {
  if (text.empty()) return std::nullopt;
  return heightOf(AttributedText(text, attributes), width);
}

QString idOf(const Notice& notice) {
  return QString::number(notice.noticeID);
}

}  // namespace

NoticesView::NoticesView(const WindowContext& context, QWidget* parent)
    : DataLoadingView(context.services.notifications, parent),
      mainState_(*this, [this](bool) { updateActive(); }) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Notices"));
  NotificationCenter& center = context.services.notifications;
  observations_.push_back(
      center.observe(kNoticesChanged, [this](const Notification& changed) { noticesChanged(changed); }));
  observations_.push_back(center.observe(
      kCheckObservers,
      [&census = context.observerCensus](const Notification&) { census.checkObservers("NoticesView"); }));
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
  attachToParent();
  needsData();
}

void NoticesView::close() {
  isClosing = true;
  accessibleContentChanged();
  observations_.clear();
  wakeSubscription_.reset();
}

void NoticesView::setRinkData(const std::shared_ptr<RinkData>& rinkData) {
  if (isSameRink(rinkData_, rinkData)) return;
  rinkData_ = rinkData;
  needsData();
}

void NoticesView::noticesChanged(const Notification& notification) {
  const auto rink = rinkData_.lock();
  if (rink && notification.object.is(rink.get())) needsData();
}

void NoticesView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  setNeedsDisplay(true);
  if (!noticeToSelect_) noticeToSelect_ = selectedNotice_;
  const auto rink = rinkData_.lock();
  noticeList_ = rink ? rink->noticeList().value_or(NoticeList()) : NoticeList();
  measuredWidth_ = kNotMeasured;
  adjustSize();
  selectNotice(std::exchange(noticeToSelect_, nullptr));
  accessibleContentChanged();
}

void NoticesView::measureRows(double width) {
  const double textWidth = NoticeLayout::textWidth(width);
  std::vector<NoticeHeights> rows;
  rows.reserve(noticeList_.size());
  for (const auto& notice : noticeList_) {
    const AttributedText date(noticeDateText(*notice), kNoticeDateAttributes);
    rows.push_back({heightOf(notice->summary, kNoticeSummaryAttributes, textWidth),
                    heightOf(notice->detail, kNoticeDetailAttributes, textWidth), heightOf(date, textWidth)});
  }
  layout_ = NoticeLayout(rows);
  measuredWidth_ = width;
}

void NoticesView::adjustSize() {
  if (isAwaitingData) return;
  const QSize room = parentWidget() ? parentWidget()->size() : size();
  if (room.width() != measuredWidth_) measureRows(room.width());
  const QSize size(room.width(), static_cast<int>(std::ceil(layout_.viewHeight(room.height()))));
  if (size == this->size()) return;
  resize(size);
  setNeedsDisplay(true);
}

void NoticesView::attachToParent() {
  if (!parentWidget()) return;
  parentWidget()->installEventFilter(this);
  adjustSize();
}

bool NoticesView::event(QEvent* event) {
  if (event->type() == QEvent::ParentAboutToChange && parentWidget()) parentWidget()->removeEventFilter(this);
  if (event->type() == QEvent::ParentChange) attachToParent();
  if (event->type() == QEvent::PaletteChange) setNeedsDisplay(true);
  return DataLoadingView::event(event);
}

bool NoticesView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) adjustSize();
  return DataLoadingView::eventFilter(watched, event);
}

void NoticesView::draw(QPainter& painter, const Rect& dirty) {
  if (noticeList_.empty()) return drawMessage(painter);
  const QColor grid = color(kGrid, this);
  for (std::size_t row = 0; row < noticeList_.size(); ++row) {
    const Rect rect = layout_.rowRect(row, width());
    if (rect.intersects(dirty)) {
      drawRow(painter, row);
      if (noticeList_[row] == selectedNotice_) {
        PixelBox(painter, {rect.x, rect.y, rect.width, rect.height})
            .frame(kSelectionLine,
                   color(isActive_ ? kSelectedContentBackground : kInactiveSelectedContentFrame, this));
      }
    }
    // It belongs to the room of the next row, whose frame hides it.
    PixelBox(painter,
             {NoticeLayout::kLineInset, rect.maxY(), width() - 2 * NoticeLayout::kLineInset, kGridLine})
        .fill(grid);
  }
}

void NoticesView::drawMessage(QPainter& painter) const {
  const AttributedText message(rinkData_.expired() ? "No Rink Selected" : "No Notices", kMessageAttributes);
  tarvel::draw(painter,
               {0.0, (height() - kMessageHeight) * 0.5, static_cast<double>(width()), kMessageHeight},
               message, TextFit::wrap, appearanceOf(this));
}

void NoticesView::drawRow(QPainter& painter, std::size_t row) const {
  const Notice& notice = *noticeList_[row];
  const NoticeLayout::Texts places = layout_.textsOf(row, width());
  const auto drawText = [&](const Rect& place, const std::string& text, const TextAttributes& attributes) {
    tarvel::draw(painter, place, {text, attributes}, TextFit::wrap, appearanceOf(this));
  };
  if (places.summary) drawText(*places.summary, notice.summary, kNoticeSummaryAttributes);
  if (places.detail) drawText(*places.detail, notice.detail, kNoticeDetailAttributes);
  drawText(places.dateLine, noticeDateText(notice), kNoticeDateAttributes);
}

void NoticesView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const auto row = layout_.rowAt(event->position().y());
  selectNotice(row ? noticeList_[*row] : nullptr);
}

std::optional<std::size_t> NoticesView::rowOf(const std::shared_ptr<const Notice>& notice) const {
  const auto found = std::find(noticeList_.begin(), noticeList_.end(), notice);
  if (!notice || found == noticeList_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - noticeList_.begin());
}

void NoticesView::selectNotice(std::shared_ptr<const Notice> notice) {
  if (isAwaitingData) {
    noticeToSelect_ = std::move(notice);
    return;
  }
  const auto row = rowOf(notice);
  if (!row) notice = nullptr;
  if (notice != selectedNotice_) {
    redrawRowOf(selectedNotice_);
    selectedNotice_ = std::move(notice);
    redrawRowOf(selectedNotice_);
    accessibleSelectionChanged();
    accessibleFocusChanged();
  }
  if (!row) return;
  const Rect rect = layout_.rowRect(*row, width());
  scrollTo(rect.y, rect.height);
}

void NoticesView::redrawRowOf(const std::shared_ptr<const Notice>& notice) {
  const auto row = rowOf(notice);
  if (!row || isAwaitingData || isClosing || !isPresented()) return;
  const Rect rect = layout_.rowRect(*row, width());
  update(QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect());
}

// For the keyboard and for screen readers.

AccessibleNode NoticesView::accessibleTree() const {
  AccessibleNode list;
  list.role = QAccessible::List;
  if (isClosing || isAwaitingData) return list;
  for (std::size_t index = 0; index < noticeList_.size(); ++index) {
    const Rect rect = layout_.rowRect(index, width());
    AccessibleNode row;
    row.id = idOf(*noticeList_[index]);
    row.name = spokenNotice(*noticeList_[index]);
    row.rect = QRectF(rect.x, rect.y, rect.width, rect.height);
    row.focusable = row.selectable = true;
    row.selected = noticeList_[index] == selectedNotice_;
    list.children.push_back(row);
  }
  return list;
}

QString NoticesView::accessibleFocus() const {
  return selectedNotice_ ? idOf(*selectedNotice_) : QString();
}

void NoticesView::focusAccessible(const QString& id) {
  const auto found = std::find_if(noticeList_.begin(), noticeList_.end(),
                                  [&](const auto& notice) { return idOf(*notice) == id; });
  if (found != noticeList_.end()) selectNotice(*found);
}

void NoticesView::keyPressEvent(QKeyEvent* event) {
  const bool isDown = event->key() == Qt::Key_Down;
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && !isAwaitingData && (isDown || event->key() == Qt::Key_Up)) {
    const AccessibleNode tree = accessibleTree();
    const QString next = selectedNotice_
                             ? neighbourOf(tree, accessibleFocus(), isDown ? FocusStep::down : FocusStep::up)
                             : endOf(tree, isDown ? FocusEnd::first : FocusEnd::last);
    if (!next.isEmpty()) return focusAccessible(next);
  }
  DataLoadingView::keyPressEvent(event);
}

void NoticesView::focusInEvent(QFocusEvent*) {
  isFirstResponder_ = true;
  accessibleFocusChanged();
  updateActive();
}

void NoticesView::focusOutEvent(QFocusEvent* event) {
  // While its window or the application is not in use the list remains the one that keys will go to.
  const bool stays =
      event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!stays) isFirstResponder_ = false;
  updateActive();
}

void NoticesView::updateActive() {
  const bool active = isFirstResponder_ && mainState_.isMain();
  if (active == isActive_) return;
  isActive_ = active;
  redrawRowOf(selectedNotice_);
}

}  // namespace tarvel
