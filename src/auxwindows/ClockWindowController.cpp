#include "auxwindows/ClockWindowController.h"

#include <QVBoxLayout>

#include "auxwindows/FirstPlace.h"

namespace tarvel {
namespace {

constexpr int kMargin = 20;
constexpr int kSpacing = 12;
constexpr int kLeastWidth = 300;  // within the margins; the menu bar needs it

}  // namespace

std::unique_ptr<ClockWindowController> ClockWindowController::create(const WindowContext& context) {
  return std::unique_ptr<ClockWindowController>(new ClockWindowController(context));
}

ClockWindowController::ClockWindowController(const WindowContext& context)
    : WindowController(std::make_unique<Window>()),
      context_(context),
      pretendDateOffset_(context.services.pretendTime.offset()) {
  makeViews();
  datePicker_->setDateValue(pretendTime().now());
}

ClockWindowController::~ClockWindowController() {
  context_.clockTimer.removeClockFace(*datePicker_);
}

void ClockWindowController::makeViews() {
  window()->setWindowTitle(QStringLiteral("Clock"));
  realTimeButton_ = new QRadioButton(QStringLiteral("Real time"));
  pretendTimeButton_ = new QRadioButton(QStringLiteral("Pretend time"));
  datePicker_ = new ClockPicker;
  auto* column = new QVBoxLayout(window());
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  column->addStrut(kLeastWidth);
  column->addWidget(realTimeButton_);
  column->addWidget(pretendTimeButton_);
  column->addWidget(datePicker_);
  column->setSizeConstraint(QLayout::SetFixedSize);
  placeInMiddle(*window(), {double(column->sizeHint().width()), double(column->sizeHint().height())});
  QObject::connect(realTimeButton_, &QRadioButton::clicked, window(), [this] { setPretend(false); });
  QObject::connect(pretendTimeButton_, &QRadioButton::clicked, window(), [this] { setPretend(true); });
  QObject::connect(datePicker_, &ClockPicker::dateChosen, window(), [this] { setDate(); });
}

void ClockWindowController::showWindow() {
  datePicker_->setEnabled(pretendMode_);
  datePicker_->setDateValue(pretendTime().now());
  (pretendMode_ ? pretendTimeButton_ : realTimeButton_)->setChecked(true);
  context_.clockTimer.addClockFace(*datePicker_);
  WindowController::showWindow();
}

void ClockWindowController::setPretend(bool pretend) {
  if (pretend == pretendMode_) return;
  pretendMode_ = pretend;
  pretendTime().setOffset(pretend ? pretendDateOffset_ : 0.0);
  datePicker_->setEnabled(pretend);
  datePicker_->setDateValue(pretendTime().now());
  context_.clockTimer.tick();
}

void ClockWindowController::setDate() {
  pretendDateOffset_ = datePicker_->dateValue() - context_.services.clock.now();
  pretendTime().setOffset(pretendDateOffset_);
  context_.clockTimer.tick();
}

void ClockWindowController::windowWillClose() {
  context_.clockTimer.removeClockFace(*datePicker_);
  context_.application.removeWindowController(*this, SaveFrame::yes);
}

}  // namespace tarvel
