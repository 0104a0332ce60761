#include "auxwindows/LogView.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/FocusRing.h"
#include "ui/Fonts.h"

namespace tarvel {
namespace {

const TextAttributes kTextAttr{12.0, FontWeight::regular, kLabel, kLeftStyle};
constexpr double kSideMargin = 16.0;
constexpr double kBottomBand = 20.0;
constexpr double kMessageHeight = 20.0;
constexpr double kMessageShare = 0.4;  // of the height, above the text of an empty log
constexpr double kMessageLowest = 150.0;

}  // namespace

LogView::LogView(NotificationCenter& notifications, ObserverCensus& census, const QString& name,
                 QWidget* parent)
    : ScrollableView(notifications, parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(name);
  checkObservation_ = notifications.observe(
      kCheckObservers, [&census](const Notification&) { census.checkObservers("LogView"); });
}

LogView* LogView::createInScrollArea(NotificationCenter& notifications, ObserverCensus& census,
                                     const QString& name, QWidget* parent) {
  auto* area = new QScrollArea(parent);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  auto* view = new LogView(notifications, census, name, nullptr);
  area->setWidget(view);
  area->viewport()->installEventFilter(view);
  view->adjustSize();
  view->updateScrollBarColor();
  return view;
}

void LogView::setClearLogButton(QAbstractButton* button) {
  clearLogButton_ = button;
  updateClearLogButton();
}

void LogView::updateClearLogButton() {
  if (clearLogButton_) clearLogButton_->setEnabled(!messages_.empty());
}

void LogView::setMessages(std::vector<Message> rows) {
  messages_ = std::move(rows);
  adjustSize();
  if (scrollsToBottom) {
    scrollTo(rowsHeight(), kBottomBand);
  } else if (const QScrollArea* area = enclosingScrollArea()) {
    area->verticalScrollBar()->setValue(0);
  }
  updateClearLogButton();
  update();
  accessibleContentChanged();
  changed = false;
}

void LogView::copyAsText() const {
  QString text;
  for (const Message& row : messages_) text += row.text + u'\n';
  QGuiApplication::clipboard()->setText(text);
}

void LogView::clearLog() {
  setMessages({});
}

void LogView::close() {
  isClosing_ = true;
  accessibleContentChanged();
  checkObservation_ = {};
}

double LogView::rowHeight() {
  return lineHeight * textScale();
}

void LogView::adjustSize() {
  const QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  const QSize room = area->viewport()->size();
  resize(room.width(), std::max(int(std::ceil(rowsHeight())), room.height()));
}

/// The bar stands on the rows' surface, which isn't that of most lists.
void LogView::updateScrollBarColor() {
  const QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  QPalette palette;
  palette.setColor(QPalette::Base, color(kContentBackground2, this));
  area->verticalScrollBar()->setPalette(palette);
}

void LogView::changeEvent(QEvent* event) {
  ScrollableView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) updateScrollBarColor();
  if (event->type() == QEvent::FontChange) adjustSize();
}

bool LogView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) adjustSize();
  return ScrollableView::eventFilter(watched, event);
}

void LogView::paintEvent(QPaintEvent* event) {
  if (isClosing_) return;
  QPainter painter(this);
  const QRect dirty = event->rect();
  painter.fillRect(dirty, color(kContentBackground2, this));
  if (messages_.empty()) {
    const double y = std::min(kMessageShare * height(), kMessageLowest);
    draw(painter, {0.0, y, double(width()), kMessageHeight}, AttributedText("Empty Log", kMessageAttributes),
         TextFit::wrap, appearanceOf(this));
    return;
  }
  const auto rowAt = [](double y) { return static_cast<std::ptrdiff_t>((y - kTopMargin) / rowHeight()); };
  const std::ptrdiff_t first = std::max<std::ptrdiff_t>(rowAt(dirty.top()), 0);
  const std::ptrdiff_t last =
      std::min(rowAt(dirty.bottom() + 1), static_cast<std::ptrdiff_t>(messages_.size()) - 1);
  for (std::ptrdiff_t row = first; row <= last; ++row) drawRow(painter, static_cast<std::size_t>(row));
  if (hasKeyboardFocus(*this) && focusedRow_ < messages_.size())
    drawFocusRing(painter, {0.0, rowY(focusedRow_), double(width()), rowHeight()}, *this);
}

void LogView::drawRow(QPainter& painter, std::size_t row) const {
  const Message& message = messages_[row];
  if (message.text.isEmpty()) return;
  const TextAttributes& attributes = message.attr ? *message.attr : kTextAttr;
  painter.setFont(attributes.font());
  painter.setPen(attributes.color.resolve(appearanceOf(this)));
  const double y = rowY(row);
  const QFontMetricsF metrics(painter.font());
  for (const LogRowPiece& piece : layoutLogRow(message.text, width() - 2 * kSideMargin, metrics)) {
    painter.drawText(QPointF(kSideMargin + piece.x, y + metrics.ascent()), piece.text);
  }
}

void LogView::keyPressEvent(QKeyEvent* event) {
  QScrollArea* area = enclosingScrollArea();
  if (!area) return event->ignore();
  if (hasKeyboardFocus(*this) && focusNeighbour(event->key())) return;
  QScrollBar& bar = *area->verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Up:
      return bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
      return bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
      return bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
      return bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Home:
      return bar.triggerAction(QAbstractSlider::SliderToMinimum);
    case Qt::Key_End:
      return bar.triggerAction(QAbstractSlider::SliderToMaximum);
    default:
      event->ignore();
  }
}

// The row that has the focus.

AccessibleNode LogView::accessibleTree() const {
  AccessibleNode list;
  list.role = QAccessible::List;
  if (isClosing_) return list;
  list.children.reserve(messages_.size());
  for (std::size_t row = 0; row < messages_.size(); ++row) {
    AccessibleNode node;
    node.id = QString::number(row);
    node.name = messages_[row].text.simplified();  // without the blanks that line columns up
    node.rect = QRectF(0.0, rowY(row), width(), rowHeight());
    node.focusable = true;
    list.children.push_back(std::move(node));
  }
  return list;
}

QString LogView::accessibleFocus() const {
  return focusedRow_ < messages_.size() ? QString::number(focusedRow_) : QString();
}

void LogView::focusAccessible(const QString& id) {
  bool isNumber = false;
  const std::size_t row = id.toULongLong(&isNumber);
  if (isNumber && row < messages_.size()) focusRow(row);
}

void LogView::focusRow(std::size_t row) {
  focusedRow_ = row;
  scrollTo(Animate::no, rowY(row), rowHeight());
  update();
  accessibleFocusChanged();
}

bool LogView::focusNeighbour(int key) {
  if (messages_.empty() || (key != Qt::Key_Up && key != Qt::Key_Down)) return false;
  const std::size_t row = std::min(focusedRow_, messages_.size() - 1);
  if (key == Qt::Key_Down && row + 1 < messages_.size()) focusRow(row + 1);
  if (key == Qt::Key_Up && row > 0) focusRow(row - 1);
  return true;
}

void LogView::focusInEvent(QFocusEvent* event) {
  ScrollableView::focusInEvent(event);
  // One who comes by the keyboard begins with the rows in sight.
  const double top = visibleBand().y;
  const bool inSight = rowY(focusedRow_) >= top && rowY(focusedRow_) < top + visibleBand().height;
  if (hasKeyboardFocus(*this) && !inSight && !messages_.empty()) {
    const auto first = static_cast<std::size_t>(std::max(0.0, std::ceil((top - kTopMargin) / rowHeight())));
    focusedRow_ = std::min(first, messages_.size() - 1);
  }
  update();
  accessibleFocusChanged();
}

void LogView::focusOutEvent(QFocusEvent* event) {
  ScrollableView::focusOutEvent(event);
  update();
}

}  // namespace tarvel
