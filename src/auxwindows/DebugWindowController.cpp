#include "auxwindows/DebugWindowController.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <algorithm>

#include "auxwindows/FirstPlace.h"
#include "auxwindows/InstanceTable.h"
#include "auxwindows/TextButton.h"
#include "foundation/TextFormats.h"
#include "ui/Fonts.h"
#include "ui/IconButton.h"

namespace tarvel {
namespace {

constexpr const char* kLeftWidthKey = "leftWidth";
constexpr int kLeastLeftWidth = 300;
constexpr int kLeastRightWidth = 250;
constexpr int kDividerWidth = 1;
constexpr int kFirstLeftWidth = 420;  // room for the longest class name
constexpr Size kFirstSize{760.0, 560.0};
constexpr double kLeastHeight = 240.0;
constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr double kTimeStampSize = 12.0;

}  // namespace

DebugWindowController::DebugWindowController(const WindowContext& context)
    : WindowController(std::make_unique<Window>()), context_(context) {
  window()->setWindowTitle(QStringLiteral("Debug Tarvel"));
  makeViews();
  generateReport();
}

void DebugWindowController::makeViews() {
  NotificationCenter& center = context_.services.notifications;
  splitView_ = new QSplitter(window());
  splitView_->setChildrenCollapsible(false);
  splitView_->setHandleWidth(kDividerWidth);
  const auto makeLog = [&](const char* name, int leastWidth) {
    LogView* view =
        LogView::createInScrollArea(center, context_.observerCensus, QString::fromLatin1(name), splitView_);
    view->scrollArea().setMinimumWidth(leastWidth);
    splitView_->addWidget(&view->scrollArea());
    return view;
  };
  memoryLogView_ = makeLog("Live objects", kLeastLeftWidth);
  observersLogView_ = makeLog("Observers and windows", kLeastRightWidth);
  // The left view keeps its width as long as the right one has its least.
  splitView_->setStretchFactor(0, 0);
  splitView_->setStretchFactor(1, 1);
  splitView_->setSizes({kFirstLeftWidth, int(kFirstSize.width) - kFirstLeftWidth - kDividerWidth});
  splitView_->handle(1)->setAutoFillBackground(true);
  splitView_->handle(1)->setBackgroundRole(QPalette::Mid);

  auto* controls = new QHBoxLayout;
  controls->setContentsMargins(kMargin, kSpacing, kMargin, kSpacing);
  controls->setSpacing(kSpacing);
  makeControls(*controls);
  auto* column = new QVBoxLayout(window());
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(controls);
  column->addWidget(splitView_, 1);
  window()->setFrameLimits({kLeastLeftWidth + kDividerWidth + kLeastRightWidth, kLeastHeight}, {});
  placeInMiddle(*window(), kFirstSize);
}

void DebugWindowController::makeControls(QHBoxLayout& row) {
  const auto onClick = [this](QPushButton& button, void (DebugWindowController::*action)()) {
    QObject::connect(&button, &QPushButton::clicked, window(), [this, action] { (this->*action)(); });
  };
  generateButton_ = makeTextButton(QStringLiteral("Generate Report"), window());
  prevButton_ = new IconButton("chevron-left", QStringLiteral("Previous report"), window());
  nextButton_ = new IconButton("chevron-right", QStringLiteral("Next report"), window());
  onClick(*generateButton_, &DebugWindowController::generateReport);
  onClick(*prevButton_, &DebugWindowController::prev);
  onClick(*nextButton_, &DebugWindowController::next);
  timeStampField_ = new QLabel(window());
  timeStampField_->setFont(tabularDigitsFont(kTimeStampSize));
  timeStampField_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row.addWidget(generateButton_);
  row.addWidget(timeStampField_, 1);
  row.addWidget(prevButton_);
  row.addWidget(nextButton_);
  const auto onKey = [this](Qt::Key key, void (DebugWindowController::*action)()) {
    QObject::connect(new QShortcut(key, window()), &QShortcut::activated, window(),
                     [this, action] { (this->*action)(); });
  };
  onKey(Qt::Key_Left, &DebugWindowController::prev);
  onKey(Qt::Key_Right, &DebugWindowController::next);
}

std::vector<Message> DebugWindowController::infoRows() {
  std::vector<Message> rows;
  for (const ReportLine& line : context_.observerCensus.report(context_.services.notifications)) {
    const QString text = QString::fromStdString(line.text);
    rows.push_back(line.style == ReportLine::Style::heading ? headingRow(text) : dataRow(text));
  }
  rows.push_back(headingRow({}));
  rows.push_back(headingRow(QStringLiteral("Windows")));
  for (const Window* open : Window::orderedWindows()) {
    rows.push_back(dataRow(QStringLiteral("   \"%1\"").arg(open->windowTitle())));
  }
  return rows;
}

void DebugWindowController::generateReport() {
  reports_.push_back({context_.services.clock.now(), memoryRows(instanceTable()), infoRows()});
  reportIndex_ = reports_.size() - 1;
  showReport();
}

void DebugWindowController::showReport() {
  const DebugReport& report = reports_[reportIndex_];
  memoryLogView_->setMessages(report.memoryArray);
  observersLogView_->setMessages(report.infoArray);
  timeStampField_->setText(
      QString::fromStdString(dateAndTimeText(report.timeStamp, context_.services.clock.machineZone())));
  prevButton_->setEnabled(reportIndex_ > 0);
  nextButton_->setEnabled(reportIndex_ + 1 < reports_.size());
  if (QWidget* focused = window()->focusWidget()) focused->clearFocus();
}

void DebugWindowController::prev() {
  if (reportIndex_ == 0) return;
  --reportIndex_;
  showReport();
}

void DebugWindowController::next() {
  if (reportIndex_ + 1 >= reports_.size()) return;
  ++reportIndex_;
  showReport();
}

PropertyList::Dictionary DebugWindowController::windowSettings() const {
  return {{kLeftWidthKey, double(splitView_->sizes().front())}};
}

void DebugWindowController::restoreSettings(const PropertyList::Dictionary& settings, FromAnotherDocument) {
  const auto width = realAt(settings, kLeftWidthKey);
  if (!width) return;
  const int room = window()->width() - kDividerWidth;
  const double most = std::max(kLeastLeftWidth, room - kLeastRightWidth);
  const int left = static_cast<int>(std::clamp(*width, double(kLeastLeftWidth), most));
  splitView_->setSizes({left, room - left});
}

std::optional<CommandState> DebugWindowController::validateMenuItem(const Command& command) const {
  return command.action == "copyAsText:" ? std::optional(CommandState{}) : std::nullopt;
}

void DebugWindowController::performCommand(const Command&) {
  (observersLogView_->hasFocus() ? observersLogView_ : memoryLogView_)->copyAsText();
}

void DebugWindowController::windowWillClose() {
  memoryLogView_->close();
  observersLogView_->close();
  context_.application.removeWindowController(*this, SaveFrame::yes);
}

}  // namespace tarvel
