#include "ui/SegmentedControl.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QEvent>
#include <QPainter>
#include <QRadioButton>
#include <algorithm>
#include <cmath>

#include "ui/AccessibleFactory.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/PixelBox.h"

namespace tarvel {
namespace {

constexpr int kHeight = 28;
constexpr int kTrackInset = 3;     // of the pills, from the track's edge
constexpr int kTitlePadding = 12;  // at each side
constexpr int kShortestTitle = 12;
constexpr double kTrackRadius = 7.0;
constexpr double kPillRadius = 5.0;
constexpr double kBorder = 1.0;
constexpr double kFocusLine = 2.0;
constexpr int kDividerInset = 8;  // from the track's top and bottom
constexpr double kTitleSize = 13.0;
// How much of a pill shows under a segment that the mouse is over, or that it presses.
constexpr double kHoverPart = 0.45;
constexpr double kPressedPart = 0.8;

QFont titleFont(bool chosen) {
  return systemFont(kTitleSize, chosen ? FontWeight::medium : FontWeight::regular);
}

int titleWidth(const QString& title) {
  return static_cast<int>(std::ceil(std::max(QFontMetricsF(titleFont(true)).horizontalAdvance(title),
                                             QFontMetricsF(titleFont(false)).horizontalAdvance(title))));
}

void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& edge,
                 double line) {
  const double half = line / 2;
  painter.setPen(QPen(edge, line));
  painter.setBrush(fill);
  painter.drawRoundedRect(PixelBox(painter, rect).aligned().adjusted(half, half, -half, -half), radius,
                          radius);
}

}  // namespace

/// A radio button to a screen reader; it has nothing else of one.
class SegmentedControl::Segment : public QRadioButton {
 public:
  Segment(const QString& title, QWidget* parent) : QRadioButton(parent), title_(title) {
    setAttribute(Qt::WA_Hover);
    setAccessibleName(title);
  }
  int neededWidth() const { return titleWidth(title_) + 2 * kTitlePadding; }

 protected:
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPill(painter);
    painter.setFont(titleFont(isChecked()));
    NamedColor title = isChecked() || underMouse() ? kLabel : kSecondaryLabel;
    if (!isEnabled()) title = kInactiveSelectedContentFrame;
    painter.setPen(color(title, this));
    const int room = std::max(0, width() - 2 * kBorderRoom);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title_, Qt::ElideRight, room));
    // For those who go about by the keyboard, as long as they do.
    if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange)) return;
    drawRounded(painter, rect(), kPillRadius, Qt::transparent, color(kKeyboardFocusIndicator, this),
                kFocusLine);
  }

 private:
  static constexpr int kBorderRoom = 3;

  void paintPill(QPainter& painter) const {
    QColor fill = color(kControlSurface, this);
    if (isChecked()) {
      // A disabled choice is still told from the others, by a pill that stands out less.
      QColor edge = color(kContentBorder, this);
      if (!isEnabled()) fill.setAlphaF(static_cast<float>(kHoverPart));
      return drawRounded(painter, rect(), kPillRadius, fill, edge, kBorder);
    }
    if (!isEnabled() || !(underMouse() || isDown())) return;
    fill.setAlphaF(static_cast<float>(isDown() ? kPressedPart : kHoverPart));
    drawRounded(painter, rect(), kPillRadius, fill, Qt::transparent, 0.0);
  }

  QString title_;
};

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent), group_(new QButtonGroup(this)) {
  setAccessibleRole(*this, QAccessible::Grouping);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(group_, &QButtonGroup::idClicked, this, &SegmentedControl::clicked);
}

void SegmentedControl::setSegments(const QStringList& titles) {
  qDeleteAll(segments_);
  segments_.clear();
  selected_ = kNone;
  for (const QString& title : titles) {
    auto* segment = new Segment(title, this);
    group_->addButton(segment, segmentCount());
    segments_.push_back(segment);
    segment->show();
  }
  updateFocusPolicies();
  placeSegments();
  updateGeometry();
  update();
}

int SegmentedControl::selectedSegment() const {
  return selected_;
}

void SegmentedControl::setSelectedSegment(int index) {
  const int chosen = index >= 0 && index < segmentCount() ? index : kNone;
  if (chosen == selected_) return;
  selected_ = chosen;
  const bool hadFocus =
      std::any_of(segments_.begin(), segments_.end(), [](const Segment* s) { return s->hasFocus(); });
  // An exclusive group lets go of no choice.
  group_->setExclusive(false);
  for (int i = 0; i < segmentCount(); ++i) segments_[static_cast<std::size_t>(i)]->setChecked(i == chosen);
  group_->setExclusive(true);
  updateFocusPolicies();
  if (hadFocus && chosen != kNone)
    segments_[static_cast<std::size_t>(chosen)]->setFocus(Qt::OtherFocusReason);
  update();
}

void SegmentedControl::clicked(int index) {
  if (index == selected_) return;
  selected_ = index;
  updateFocusPolicies();
  update();
  emit segmentChosen(index);
}

/// One stop for the tab key: the chosen segment or, if there is none, the first.
void SegmentedControl::updateFocusPolicies() {
  const int stop = std::max(0, selected_);
  for (int i = 0; i < segmentCount(); ++i) {
    segments_[static_cast<std::size_t>(i)]->setFocusPolicy(i == stop ? Qt::TabFocus : Qt::NoFocus);
  }
}

QSize SegmentedControl::sizeHint() const {
  int widest = 0;
  for (const Segment* segment : segments_) widest = std::max(widest, segment->neededWidth());
  return {widest * segmentCount() + 2 * kTrackInset, scaledForText(kHeight)};
}

QSize SegmentedControl::minimumSizeHint() const {
  return {kShortestTitle * segmentCount() + 2 * kTrackInset, scaledForText(kHeight)};
}

void SegmentedControl::placeSegments() {
  const int room = width() - 2 * kTrackInset;
  for (int i = 0; i < segmentCount(); ++i) {
    const int from = room * i / segmentCount();
    const int to = room * (i + 1) / segmentCount();
    segments_[static_cast<std::size_t>(i)]->setGeometry(kTrackInset + from, kTrackInset, to - from,
                                                        height() - 2 * kTrackInset);
  }
}

void SegmentedControl::resizeEvent(QResizeEvent*) {
  placeSegments();
}

void SegmentedControl::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

void SegmentedControl::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  drawRounded(painter, rect(), kTrackRadius, color(kControlTrack, this), color(kContentBorder, this),
              kBorder);
  painter.setRenderHint(QPainter::Antialiasing, false);
  // Beside the pill a line would only double its edge.
  for (int i = 1; i < segmentCount(); ++i) {
    if (i == selected_ || i - 1 == selected_) continue;
    const QRectF divider(segments_[static_cast<std::size_t>(i)]->x(), kDividerInset, kBorder,
                         height() - 2 * kDividerInset);
    PixelBox(painter, divider).fill(color(kInactiveSelectedContentFrame, this));
  }
}

}  // namespace tarvel
