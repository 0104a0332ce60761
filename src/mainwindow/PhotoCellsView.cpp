#include "mainwindow/PhotoCellsView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "mainwindow/PhotoPainter.h"

/// Cells, layout and input; what is drawn stands in PhotoCellsDrawing.cpp.
namespace tarvel {
namespace {

constexpr double kCaptionedMargin = 5.0;
/// A scroll bar that comes and goes with the layout must not do so for ever.
constexpr int kMostLayouts = 2;

}  // namespace

PhotoCellsView::PhotoCellsView(const WindowContext& context, PhotosViewOwner& owner, const char* name,
                               double smallMargin, std::string_view textWithoutPhoto, QWidget* parent)
    : DataLoadingView(context.services.notifications, parent),
      owner_(owner),
      smallMargin_(smallMargin),
      textWithoutPhoto_(textWithoutPhoto),
      shown_(context.services.clock),
      resolution_(screenResolution(*this)),
      mainState_(*this, [this](bool) { updateActive(); }) {
  setFocusPolicy(Qt::StrongFocus);
  shown_.setShown(isPresented());
  NotificationCenter& center = context.services.notifications;
  const auto observe = [&](NotificationName what, auto action) {
    observations_.push_back(center.observe(what, [this, action](const Notification& notification) {
      if (concernsMyRink(notification)) (this->*action)(notification);
    }));
  };
  observe(kPhotoChanged, &PhotoCellsView::photoChanged);
  observe(kPhotoImageChanged, &PhotoCellsView::photoChanged);
  for (const NotificationName what : {kPhotoCollectionChanged, kPhotoAlbumChanged}) {
    observations_.push_back(center.observe(what, [this](const Notification& notification) {
      if (concernsMyRink(notification)) needsData();
    }));
  }
  observations_.push_back(center.observe(
      kCheckObservers,
      [&census = context.observerCensus, name](const Notification&) { census.checkObservers(name); }));
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
  attachToParent();
  needsData();
}

void PhotoCellsView::close() {
  isClosing = true;
  observations_.clear();
  wakeSubscription_.reset();
  shown_.setShown(false);
  accessibleContentChanged();
}

void PhotoCellsView::setPresented(bool presented) {
  if (isClosing) return;
  shown_.setShown(presented);
  DataLoadingView::setPresented(presented);
}

bool PhotoCellsView::concernsMyRink(const Notification& notification) const {
  const auto rink = shownRink();
  return rink && notification.object.is(rink.get());
}

void PhotoCellsView::photoChanged(const Notification& notification) {
  if (isAwaitingData || isClosing || !isPresented()) return;
  const auto photoID = notification.integer(kPhotoIDKey);
  for (std::size_t cell = 0; cell < photos().size() && photoID; ++cell) {
    if (!photos()[cell] || photos()[cell]->photoID != *photoID) continue;
    const Rect& rect = layout_.rects()[cell];
    update(QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect());
  }
}

void PhotoCellsView::setCells(PhotoList photos) {
  shown_.setPhotos(std::move(photos));
  measures_.assign(shown_.photos().size(), std::nullopt);
  isLaidOut_ = false;
  adjustLayout();
  setNeedsDisplay(true);
  if (scrollToTop_) scrollTo(Animate::no, 0.0, 0.0);
  scrollToTop_ = false;
}

void PhotoCellsView::setPhotoHeight(double height) {
  if (height == photoHeight_) return;
  photoHeight_ = height;
  adjustLayout();
  setNeedsDisplay(true);
}

double PhotoCellsView::margin() const {
  return photoHeight_ > CellFlowLayout::kCaptionedFrom ? kCaptionedMargin : smallMargin_;
}

void PhotoCellsView::adjustLayout() {
  if (isAwaitingData || isClosing || layoutDepth_ == kMostLayouts) return;
  ++layoutDepth_;
  const QSize room = parentWidget() ? parentWidget()->size() : size();
  const CellFlowLayout::Metrics metrics{static_cast<double>(room.width()), photoHeight_, margin()};
  const Size resolution = screenResolution(*this);
  if (!isLaidOut_ || metrics != layout_.metrics() || resolution != resolution_) {
    resolution_ = resolution;
    layout_ = CellFlowLayout(
        metrics, photos().size(),
        [this](std::size_t cell) {
          return photos()[cell] ? photos()[cell]->fitHeight(photoHeight_, resolution_) : std::nullopt;
        },
        [this](std::size_t cell, double width) { return captionHeight(cell, width); });
    isLaidOut_ = true;
    setNeedsDisplay(true);
  }
  const QSize wanted(room.width(), static_cast<int>(std::ceil(layout_.viewHeight(room.height()))));
  if (wanted != size()) resize(wanted);
  --layoutDepth_;
}

void PhotoCellsView::attachToParent() {
  if (!parentWidget()) return;
  parentWidget()->installEventFilter(this);
  adjustLayout();
}

bool PhotoCellsView::event(QEvent* event) {
  if (event->type() == QEvent::ParentAboutToChange && parentWidget()) parentWidget()->removeEventFilter(this);
  if (event->type() == QEvent::ParentChange) attachToParent();
  if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) adjustLayout();
  if (event->type() == QEvent::PaletteChange) setNeedsDisplay(true);
  return DataLoadingView::event(event);
}

bool PhotoCellsView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) adjustLayout();
  return DataLoadingView::eventFilter(watched, event);
}

void PhotoCellsView::scrollToCell(std::size_t cell) {
  if (isAwaitingData || cell >= layout_.rects().size()) return;
  scrollTo(layout_.rects()[cell].y, layout_.rects()[cell].height);
}

// For screen readers.

void PhotoCellsView::describe() {
  setAccessibleDescription(photos().empty() ? QString::fromStdString(messageWithoutCells()) : QString());
  accessibleContentChanged();
  accessibleSelectionChanged();
  accessibleFocusChanged();
}

QString PhotoCellsView::spokenCell(std::size_t cell) const {
  const Caption texts = caption(cell);
  QStringList parts;
  for (const std::string& text : {texts.title, texts.descr, texts.count}) {
    if (!text.empty()) parts.push_back(QString::fromStdString(text));
  }
  return parts.join(QStringLiteral(", "));
}

AccessibleNode PhotoCellsView::accessibleTree() const {
  AccessibleNode list;
  list.role = QAccessible::List;
  if (isClosing || isAwaitingData) return list;
  const auto selected = selectedCell();
  const std::size_t count = std::min(photos().size(), layout_.rects().size());
  for (std::size_t cell = 0; cell < count; ++cell) {
    const Rect& rect = layout_.rects()[cell];
    AccessibleNode node;
    node.id = QString::number(cell);
    node.name = spokenCell(cell);
    node.rect = QRectF(rect.x, rect.y, rect.width, rect.height);
    node.focusable = node.selectable = true;
    node.selected = cell == selected;
    node.action = QStringLiteral("Open");
    list.children.push_back(node);
  }
  return list;
}

QString PhotoCellsView::accessibleFocus() const {
  const auto selected = isClosing ? std::nullopt : selectedCell();
  return selected ? QString::number(*selected) : QString();
}

std::optional<std::size_t> PhotoCellsView::cellOf(const QString& id) const {
  bool isNumber = false;
  const std::size_t cell = id.toULongLong(&isNumber);
  const bool exists = isNumber && !isClosing && !isAwaitingData && cell < photos().size();
  return exists ? std::optional(cell) : std::nullopt;
}

void PhotoCellsView::pressAccessible(const QString& id) {
  if (const auto cell = cellOf(id)) openCell(*cell);
}

void PhotoCellsView::focusAccessible(const QString& id) {
  const auto cell = cellOf(id);
  if (!cell) return;
  selectCell(cell);
  scrollToCell(*cell);
}

void PhotoCellsView::mousePressEvent(QMouseEvent* event) {
  lastClicks_ = Clicks::one;
  if (event->button() != Qt::LeftButton || isAwaitingData) return;
  const QPointF place = event->position();
  cellClicked(layout_.cellAt({place.x(), place.y()}), Clicks::one, event->modifiers());
}

void PhotoCellsView::mouseDoubleClickEvent(QMouseEvent* event) {
  lastClicks_ = Clicks::two;
  if (event->button() != Qt::LeftButton || isAwaitingData) return;
  const QPointF place = event->position();
  cellClicked(layout_.cellAt({place.x(), place.y()}), Clicks::two, event->modifiers());
}

void PhotoCellsView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && !isAwaitingData) mouseReleased(event->position(), lastClicks_);
}

void PhotoCellsView::keyPressEvent(QKeyEvent* event) {
  if (!takesKey(*event)) DataLoadingView::keyPressEvent(event);
}

bool PhotoCellsView::takesKey(const QKeyEvent& event) {
  using Way = CellFlowLayout::Way;
  if (isAwaitingData) return false;
  const std::optional<std::size_t> selected = selectedCell();
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (selected) openCell(*selected);
      return selected.has_value();
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const auto next = layout_.neighbour(selected, event.key() == Qt::Key_Left ? Way::previous : Way::next);
      if (!next) return false;
      selectCell(next);
      scrollToCell(*next);
      return true;
    }
    case Qt::Key_Escape:
      return escape();
    default:
      return false;
  }
}

void PhotoCellsView::focusInEvent(QFocusEvent* event) {
  isFirstResponder_ = true;
  cameByKeys_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  accessibleFocusChanged();
  updateActive();
}

void PhotoCellsView::focusOutEvent(QFocusEvent* event) {
  // While its window or the application is not in use the view remains the one that keys will go to.
  const bool stays =
      event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!stays) isFirstResponder_ = false;
  updateActive();
}

void PhotoCellsView::updateActive() {
  const bool active = isFirstResponder_ && mainState_.isMain();
  if (active == isActive_) return;
  isActive_ = active;
  setNeedsDisplay(true);
}

}  // namespace tarvel
