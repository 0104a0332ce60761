#include "mainwindow/RinkListView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/AttributedText.h"
#include "ui/RinkImage.h"

namespace tarvel {
namespace {

constexpr double kCornerRadius = 5.0;
constexpr double kLogoX = 8.0;
constexpr double kLogoTop = 6.0;
constexpr double kLogoSize = 64.0;
constexpr double kNameX = 84.0;
constexpr double kRightMargin = 8.0;
constexpr double kFocusLine = 2.0;
constexpr double kReadableContrast = 4.5;
const TextAttributes kNameAttributes{13.0, FontWeight::regular, kLabel, kLeftStyle};
const TextAttributes kSelectedNameAttributes{13.0, FontWeight::regular, white(1.0), kLeftStyle};

}  // namespace

RinkListView::RinkListView(const WindowContext& context, QWidget* parent)
    : DataLoadingView(context.services.notifications, parent),
      dataModel_(context.dataModel),
      application_(context.application),
      mainState_(*this, [this](bool) { updateActive(); }) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Rinks"));
  NotificationCenter& center = context.services.notifications;
  const auto redraw = [this](const Notification&) { setNeedsDisplay(true); };
  observations_.push_back(center.observe(kRinkListChanged, [this](const Notification&) { needsData(); }));
  observations_.push_back(center.observe(kRinkInfoChanged, [this](const Notification&) {
    setNeedsDisplay(true);
    accessibleContentChanged();
  }));
  observations_.push_back(center.observe(kRinkLogoChanged, redraw));
  observations_.push_back(center.observe(
      kCheckObservers,
      [&census = context.observerCensus](const Notification&) { census.checkObservers("RinkListView"); }));
  attachToParent();
  needsData();
}

void RinkListView::close() {
  isClosing = true;
  accessibleContentChanged();
  observations_.clear();
}

void RinkListView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  rinks_ = dataModel_.rinkList;
  setNeedsDisplay(true);
  accessibleContentChanged();
  if (listLoaded) listLoaded();
}

void RinkListView::attachToParent() {
  if (!parentWidget()) return;
  parentWidget()->installEventFilter(this);
  adjustSize();
}

bool RinkListView::event(QEvent* event) {
  if (event->type() == QEvent::ParentAboutToChange && parentWidget()) parentWidget()->removeEventFilter(this);
  if (event->type() == QEvent::ParentChange) attachToParent();
  if (event->type() == QEvent::PaletteChange) setNeedsDisplay(true);
  return DataLoadingView::event(event);
}

bool RinkListView::eventFilter(QObject* watched, QEvent* event) {
  // The room also counts as changed when it comes on show: the list that is read first fills it in this way.
  const bool changes = event->type() == QEvent::Resize || event->type() == QEvent::Show;
  if (watched == parentWidget() && changes) adjustSize();
  return DataLoadingView::eventFilter(watched, event);
}

void RinkListView::adjustSize() {
  if (!parentWidget()) return;
  const int rows = static_cast<int>(std::ceil(static_cast<double>(rinks_.size()) * kRowHeight));
  const QSize size(parentWidget()->width(), std::max(rows, parentWidget()->height()));
  if (size != this->size()) resize(size);
}

void RinkListView::draw(QPainter& painter, const Rect& dirty) {
  for (std::size_t row = 0; row < rinks_.size(); ++row) {
    const double y = static_cast<double>(row) * kRowHeight;
    if (y < dirty.maxY() && y + kRowHeight > dirty.y) drawRow(painter, *rinks_[row], y);
  }
  if (!isActive_ || selectedRink_) return;
  // No row tells that the list has the keyboard, so a frame does.
  painter.setPen(QPen(color(kKeyboardFocusIndicator, this), kFocusLine));
  painter.drawRect(QRectF(rect()).adjusted(kFocusLine / 2, kFocusLine / 2, -kFocusLine / 2, -kFocusLine / 2));
}

void RinkListView::drawRow(QPainter& painter, RinkInfo& rink, double y) const {
  const bool isSelected = &rink == selectedRink_.get();
  const Appearance appearance = appearanceOf(this);
  bool onDark = appearance == Appearance::dark;
  if (isSelected) {
    const QColor fill =
        color(isActive_ ? kSelectedContentBackground : kInactiveSelectedContentFill, appearance);
    // White letters and the logo for dark surroundings stand on every selection that bears them.
    onDark = contrastRatio(fill, Qt::white) >= kReadableContrast;
    QPainterPath path;
    path.addRoundedRect(QRectF(0.0, y, width(), kRowHeight), kCornerRadius, kCornerRadius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, fill);
  }
  if (const auto logo = onDark ? rink.darkLogoImage() : rink.logoImage()) {
    drawImage(painter, *logo, {kLogoX, y + kLogoTop, kLogoSize, kLogoSize});
  }
  const AttributedText name(rink.name, isSelected && onDark ? kSelectedNameAttributes : kNameAttributes);
  const double textWidth = width() - kNameX - kRightMargin;
  if (textWidth <= 0.0) return;
  // A name that is too long for its row ends with an ellipsis: it must not run into the neighbours'.
  const Size room{textWidth, kRowHeight};
  const double height = boundingRect(name, room, TextFit::wrapAndTruncate).height;
  tarvel::draw(painter, {kNameX, y + (kRowHeight - height) * 0.5, textWidth, height}, name,
               TextFit::wrapAndTruncate, appearance);
}

void RinkListView::selectRink(const std::shared_ptr<RinkInfo>& rink) {
  if (rink == selectedRink_) return;
  selectedRink_ = rink;
  setAccessibleDescription(rink ? QString::fromStdString(rink->name) : QString());
  const auto found = std::find(rinks_.begin(), rinks_.end(), rink);
  if (rink && found != rinks_.end()) {
    scrollTo(static_cast<double>(found - rinks_.begin()) * kRowHeight, kRowHeight);
  }
  setNeedsDisplay(true);
  accessibleSelectionChanged();
  accessibleFocusChanged();
  notifications().postNotification(kSelectionChanged, this);
}

std::shared_ptr<RinkInfo> RinkListView::rinkAt(double y) const {
  const double row = std::floor(y / kRowHeight);
  const bool exists = row >= 0.0 && row < static_cast<double>(rinks_.size());
  return exists ? rinks_[static_cast<std::size_t>(row)] : nullptr;
}

void RinkListView::mousePressEvent(QMouseEvent* event) {
  if (!enabled || event->button() != Qt::LeftButton) return;
  choose(rinkAt(event->position().y()));
}

void RinkListView::choose(const std::shared_ptr<RinkInfo>& rink) {
  if (rink == selectedRink_) return;
  selectRink(rink);
  application_.markChanged();
}

// For screen readers.

AccessibleNode RinkListView::accessibleTree() const {
  AccessibleNode list;
  list.role = QAccessible::List;
  if (isClosing) return list;
  for (std::size_t index = 0; index < rinks_.size(); ++index) {
    AccessibleNode row;
    row.id = QString::number(rinks_[index]->rinkID);
    row.name = QString::fromStdString(rinks_[index]->name);
    row.rect = QRectF(0.0, static_cast<double>(index) * kRowHeight, width(), kRowHeight);
    row.focusable = row.selectable = enabled;
    row.selected = rinks_[index] == selectedRink_;
    row.action = enabled ? QStringLiteral("Show this rink") : QString();
    list.children.push_back(row);
  }
  return list;
}

QString RinkListView::accessibleFocus() const {
  return selectedRink_ ? QString::number(selectedRink_->rinkID) : QString();
}

std::shared_ptr<RinkInfo> RinkListView::rinkOf(const QString& id) const {
  const auto found = std::find_if(rinks_.begin(), rinks_.end(),
                                  [&](const auto& rink) { return QString::number(rink->rinkID) == id; });
  return found == rinks_.end() ? nullptr : *found;
}

void RinkListView::pressAccessible(const QString& id) {
  if (const auto rink = rinkOf(id); rink && enabled) choose(rink);
}

void RinkListView::focusAccessible(const QString& id) {
  // In a list of which one row is chosen the focus is with that row.
  if (const auto rink = rinkOf(id); rink && enabled) selectRink(rink);
}

void RinkListView::keyPressEvent(QKeyEvent* event) {
  if (enabled && event->key() == Qt::Key_Up) {
    selectNeighbour(Neighbour::above);
  } else if (enabled && event->key() == Qt::Key_Down) {
    selectNeighbour(Neighbour::below);
  } else {
    DataLoadingView::keyPressEvent(event);
  }
}

void RinkListView::selectNeighbour(Neighbour neighbour) {
  if (rinks_.empty()) return;
  if (!selectedRink_) {
    selectRink(neighbour == Neighbour::above ? rinks_.back() : rinks_.front());
    return;
  }
  const auto found = std::find(rinks_.begin(), rinks_.end(), selectedRink_);
  if (found == rinks_.end()) return;
  if (neighbour == Neighbour::above && found != rinks_.begin()) selectRink(*(found - 1));
  if (neighbour == Neighbour::below && found + 1 != rinks_.end()) selectRink(*(found + 1));
}

void RinkListView::focusInEvent(QFocusEvent*) {
  isFirstResponder_ = true;
  accessibleFocusChanged();
  updateActive();
}

void RinkListView::focusOutEvent(QFocusEvent* event) {
  // While its window or the application is not in use the list remains the one that keys will go to.
  const bool stays =
      event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!stays) isFirstResponder_ = false;
  updateActive();
}

void RinkListView::updateActive() {
  const bool active = isFirstResponder_ && mainState_.isMain();
  if (active == isActive_) return;
  isActive_ = active;
  setNeedsDisplay(true);
}

}  // namespace tarvel
