#include "auxwindows/LogWindowController.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>

#include "auxwindows/FirstPlace.h"
#include "auxwindows/TextButton.h"
#include "foundation/TextFormats.h"

namespace tarvel {
namespace {

constexpr Size kFirstSize{720.0, 460.0};
constexpr Size kLeastSize{360.0, 220.0};
constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr double kTallestWindow = 100'000.0;  // the screen's height sets the limit

QString countText(std::size_t count) {
  if (count == 0) return QStringLiteral("No messages");
  if (count == 1) return QStringLiteral("1 message");
  return QStringLiteral("%1 messages").arg(count);
}

std::string rowText(const LogMessage& message, const TimeZone& zone) {
  if (message.timeStamp.seconds == 0.0) return message.msg;
  return dateAndTimeText(message.timeStamp, zone) + " " + message.msg;
}

}  // namespace

LogWindowController::LogWindowController(const WindowContext& context, MessageLog& log, const QString& title)
    : DataLoadingWindowController(std::make_unique<Window>(), context.services.notifications),
      context_(context),
      log_(log.shared_from_this()) {
  window()->setWindowTitle(title);
  makeViews();
  NotificationCenter& center = notifications();
  observations_.push_back(center.observe(kMessageLogChanged, [this](const Notification& notification) {
    if (notification.object.identity() == log_.get()) needsData();
  }));
  observations_.push_back(center.observe(kCheckObservers, [this](const Notification&) {
    context_.observerCensus.checkObservers("LogWindowController");
  }));
  enableButtons(false);
  logView_->scrollsToBottom = true;
  needsData();
}

void LogWindowController::makeViews() {
  logView_ = LogView::createInScrollArea(notifications(), context_.observerCensus, window()->windowTitle(),
                                         window());
  countField_ = new QLabel(window());
  clearButton_ = makeTextButton(QStringLiteral("Clear"), window());
  copyButton_ = makeTextButton(QStringLiteral("Copy"), window());
  logView_->setClearLogButton(clearButton_);
  QObject::connect(clearButton_, &QPushButton::clicked, window(), [this] { clearHistory(); });
  QObject::connect(copyButton_, &QPushButton::clicked, window(), [this] { logView_->copyAsText(); });

  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  buttons->setSpacing(kSpacing);
  buttons->addWidget(countField_, 1);
  buttons->addWidget(copyButton_);
  buttons->addWidget(clearButton_);
  auto* column = new QVBoxLayout(window());
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(&logView_->scrollArea(), 1);
  column->addLayout(buttons);
  window()->setFrameLimits(kLeastSize, {});
  placeInMiddle(*window(), kFirstSize);
  logView_->setFocus();
}

void LogWindowController::enableButtons(bool enabled) {
  clearButton_->setEnabled(enabled);
  copyButton_->setEnabled(enabled);
}

void LogWindowController::loadData() {
  isAwaitingData = false;
  if (isClosing) return;
  logMessages_ = log_->logMessages();
  const TimeZone zone = context_.services.clock.machineZone();
  std::vector<Message> rows;
  rows.reserve(logMessages_.size());
  for (const LogMessage& message : logMessages_) {
    rows.push_back({QString::fromStdString(rowText(message, zone)), std::nullopt});
  }
  logView_->setMessages(std::move(rows));
  countField_->setText(countText(logMessages_.size()));
  enableButtons(!logMessages_.empty());
}

std::optional<CommandState> LogWindowController::validateMenuItem(const Command& command) const {
  if (command.action == "copyAsText:") return CommandState{.enabled = !logView_->messages().empty()};
  return std::nullopt;
}

void LogWindowController::performCommand(const Command&) {
  logView_->copyAsText();
}

void LogWindowController::windowWillClose() {
  isClosing = true;
  logView_->close();
  observations_.clear();
  context_.application.removeWindowController(*this, SaveFrame::yes);
}

Rect LogWindowController::windowWillUseStandardFrame(const Rect&) {
  Rect frame = window()->frame();
  const double tallest = window()->largestFrame().height;
  const double height = tallest > 0.0 ? tallest : kTallestWindow;
  return {frame.x, frame.y, frame.width, height};
}

}  // namespace tarvel
