#include "auxwindows/StatusPopoverViewController.h"

#include <QEvent>
#include <QGridLayout>
#include <algorithm>

#include "auxwindows/DurationTexts.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/Popover.h"

namespace tarvel {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 12;
constexpr int kRowSpacing = 6;
constexpr int kColumnSpacing = 12;
constexpr double kNameSize = 13.0;
constexpr double kTextSize = 12.0;

constexpr double kFewSecondsSince = 60.0;
constexpr double kFewSecondsUntil = 300.0;

/// For texts of servers, which may look like markup.
QLabel* makePlainLabel(const QFont& font, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  return label;
}

}  // namespace

StatusPopoverViewController::StatusPopoverViewController(const WindowContext& context,
                                                         std::string_view className, int width)
    : services_(context.services),
      clockTimer_(context.clockTimer),
      observerCensus_(context.observerCensus),
      className_(className) {
  setFixedWidth(scaledForText(width));
  nameField_ = makePlainLabel(systemFont(kNameSize, FontWeight::bold), this);
  nameField_->setWordWrap(true);
  nameRow_ = new QHBoxLayout;
  nameRow_->setSpacing(kRowSpacing);
  nameRow_->addWidget(nameField_, 1);
  messagePlace_ = new QVBoxLayout;
  auto* times = new QGridLayout;
  times->setHorizontalSpacing(kColumnSpacing);
  times->setVerticalSpacing(kRowSpacing);
  times->setColumnStretch(1, 1);
  lastRefreshTimeField_ = addTimeRow(*times, 0, QStringLiteral("Last refresh"));
  nextRefreshTimeField_ = addTimeRow(*times, 1, QStringLiteral("Next refresh"));
  refreshNowButton_ = new QPushButton(QStringLiteral("Refresh Now"), this);
  refreshNowButton_->setAutoDefault(true);  // Return presses it, too
  connect(refreshNowButton_, &QPushButton::clicked, this, &StatusPopoverViewController::refreshNow);
  setFocusProxy(refreshNowButton_);
  colorCaptions();

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  column->addLayout(nameRow_);
  column->addLayout(messagePlace_);
  column->addLayout(times);
  column->addWidget(refreshNowButton_);
}

StatusPopoverViewController::~StatusPopoverViewController() {
  close();
}

QLabel* StatusPopoverViewController::addTimeRow(QGridLayout& grid, int row, const QString& caption) {
  QLabel* captionLabel = makePlainLabel(systemFont(kTextSize), this);
  captionLabel->setText(caption);
  captions_.push_back(captionLabel);
  QLabel* field = makePlainLabel(systemFont(kTextSize), this);
  field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  field->setAccessibleName(caption);
  grid.addWidget(captionLabel, row, 0);
  grid.addWidget(field, row, 1);
  return field;
}

void StatusPopoverViewController::colorCaptions() {
  QPalette captions = palette();
  captions.setColor(QPalette::WindowText, color(kSecondaryLabel, this));
  for (QLabel* label : captions_) label->setPalette(captions);
}

void StatusPopoverViewController::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) colorCaptions();
}

void StatusPopoverViewController::awakeFromNib() {
  NotificationCenter& center = services_.notifications;
  observations_.push_back(center.observe(
      kRefreshStatusChanged, [this](const Notification& notification) { statusChanged(notification); }));
  // Of any rink: the catalogue has no time of day of its own.
  observations_.push_back(
      center.observe(kCurrentTimeOfDayChanged, [this](const Notification&) { update(); }));
  observations_.push_back(center.observe(
      kCheckObservers, [this](const Notification&) { observerCensus_.checkObservers(className_); }));
  clockTimer_.addTimeDelegate(*this);
  nameField_->setText(QString::fromStdString(dataSource->refreshName()));
  setAccessibleName(nameField_->text());
  update();
}

void StatusPopoverViewController::close() {
  observations_.clear();
  clockTimer_.removeTimeDelegate(*this);
  delegate = nullptr;
}

void StatusPopoverViewController::updateTimeWithNow(Instant) {
  if (frequentUpdates_) update();
}

void StatusPopoverViewController::update() {
  updateLastRefresh();
  updateMessage();
  updateNextRefresh();
}

void StatusPopoverViewController::updateLastRefresh() {
  frequentUpdates_ = false;
  std::string text = "Never";
  if (const auto stamp = dataSource->lastRefreshTimeStamp()) {
    // A wall clock that has been set back leaves the stamp in the future.
    const double since = std::max(0.0, services_.clock.now() - *stamp);
    text = coarseDurationText(since) + " ago";
    frequentUpdates_ = since < kFewSecondsSince;
  }
  lastRefreshTimeField_->setText(QString::fromStdString(text));
}

void StatusPopoverViewController::updateNextRefresh() {
  const bool inProgress = dataSource->refreshInProgress();
  bool counting = false;
  std::string text;
  if (inProgress) {
    text = "In progress…";
    frequentUpdates_ = true;
  } else if (const double until = dataSource->secondsUntilRefresh(); until > 0.0) {
    counting = until <= kFewSecondsUntil;
    text = counting ? clockFormText(until) : coarseDurationText(until);
    if (counting) frequentUpdates_ = true;
  }
  refreshNowButton_->setEnabled(!inProgress);
  // So that the minutes don't jump with the width of the seconds.
  nextRefreshTimeField_->setFont(counting ? tabularDigitsFont(kTextSize) : systemFont(kTextSize));
  nextRefreshTimeField_->setText(QString::fromStdString(text));
}

void StatusPopoverViewController::statusChanged(const Notification& notification) {
  // Posters name themselves by the whole object, of which the protocol is a part.
  if (notification.object.identity() != dynamic_cast<const void*>(dataSource.get())) return;
  if (isFor(dataSource->errorKind())) {
    update();
    statusUpdated();
    return;
  }
  // Closing has the opener let go of this, and clears the delegate.
  RefreshDelegateProtocol* const opener = delegate;
  QWidget* const anchor = button;
  const std::shared_ptr<RefreshableProtocol> thing = dataSource;
  if (popover) popover->close();
  if (opener && anchor) opener->showPopover(thing, *anchor);
}

void StatusPopoverViewController::refreshNow() {
  if (dataSource->refreshInProgress()) return;
  services_.console.printLine("Begin refresh (user request)");
  dataSource->refreshNow();
  frequentUpdates_ = true;
}

}  // namespace tarvel
