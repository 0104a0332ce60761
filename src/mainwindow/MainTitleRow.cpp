#include "mainwindow/MainTitleRow.h"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "auxwindows/RefreshSign.h"
#include "mainwindow/TextLabel.h"
#include "mainwindow/TitleRowLayout.h"
#include "platform/FatalError.h"
#include "ui/AccessibleFactory.h"
#include "ui/SegmentedControl.h"

namespace tarvel {
namespace {

const QString kShown = QStringLiteral("Shown");
const QString kHidden = QStringLiteral("Hidden");
constexpr int kRepeatDelay = 500;     // milliseconds
constexpr int kRepeatInterval = 300;  // milliseconds
// Narrower than its fellows, to stay clear of them in a narrow window.
constexpr int kRefreshButtonWidth = 28;
constexpr int kTextButtonHeight = 28;
constexpr int kNarrowestTextButton = 56;
constexpr int kTextButtonPadding = 14;  // at each side
const TextAttributes kCalendarLabelAttributes{12.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};

Size asSize(const QSize& size) {
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

Size textButtonSize(const QPushButton& button) {
  const int text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
  return asSize(
      {std::max(kNarrowestTextButton, text + 2 * kTextButtonPadding), scaledForText(kTextButtonHeight)});
}

void place(QWidget& view, const Rect& rect) {
  view.setGeometry(static_cast<int>(std::lround(rect.x)), static_cast<int>(std::lround(rect.y)),
                   static_cast<int>(rect.width), static_cast<int>(rect.height));
}

}  // namespace

MainTitleRow::MainTitleRow(QWidget* parent) : QWidget(parent) {
  setFixedHeight(scaledForText(kHeight));
  setAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(QStringLiteral("Window controls"));
  // In the order of the tab key, from the left.
  showRinksButton_ = new IconButton("sidebar-left", QStringLiteral("Show or hide the rinks"), this);
  backButton_ = makeTextButton(QStringLiteral("Back"), QStringLiteral("Go back"));
  paneControl_ = new SegmentedControl(this);
  paneControl_->setAccessibleName(QStringLiteral("Pane"));
  paneControl_->setSegments({QStringLiteral("Info"), QStringLiteral("Schedule"), QStringLiteral("Notices"),
                             QStringLiteral("Photos")});
  paneControl_->setSelectedSegment(static_cast<int>(pane_));
  refreshRinkButton_ = new IconButton("refresh", QStringLiteral("How current the rink is"), this);
  refreshRinkButton_->setFixedWidth(kRefreshButtonWidth);
  gotoNowButton_ = makeTextButton(QStringLiteral("Now"), QStringLiteral("Go to the present"));
  gotoPrevButton_ = makePageButton("chevron-left", QStringLiteral("Previous"));
  gotoNextButton_ = makePageButton("chevron-right", QStringLiteral("Next"));
  showCalendarButton_ = new IconButton("calendar", QStringLiteral("Show or hide the calendar"), this);
  showCalendarLabel_ = new TextLabel(kCalendarLabelAttributes, TextLabel::Lines::one, this);
  showCalendarLabel_->setTextUtf8("Calendar");
  showCalendarLabel_->installEventFilter(this);
  passSignalsOn();
}

IconButton* MainTitleRow::makePageButton(std::string_view symbol, const QString& name) {
  auto* pageButton = new IconButton(symbol, name, this);
  pageButton->setAutoRepeat(true);
  pageButton->setAutoRepeatDelay(kRepeatDelay);
  pageButton->setAutoRepeatInterval(kRepeatInterval);
  return pageButton;
}

QPushButton* MainTitleRow::makeTextButton(const QString& title, const QString& help) {
  auto* textButton = new QPushButton(title, this);
  textButton->setFocusPolicy(Qt::TabFocus);
  textButton->setToolTip(help);
  return textButton;
}

void MainTitleRow::passSignalsOn() {
  connect(showRinksButton_, &QPushButton::clicked, this, &MainTitleRow::toggleShowRinks);
  connect(backButton_, &QPushButton::clicked, this, &MainTitleRow::back);
  connect(paneControl_, &SegmentedControl::segmentChosen, this, &MainTitleRow::paneChosen);
  connect(refreshRinkButton_, &QPushButton::clicked, this,
          [this] { emit showRefreshStatus(refreshRinkButton_); });
  connect(gotoNowButton_, &QPushButton::clicked, this, &MainTitleRow::gotoNow);
  connect(gotoPrevButton_, &QPushButton::pressed, this, &MainTitleRow::prev);
  connect(gotoNextButton_, &QPushButton::pressed, this, &MainTitleRow::next);
  connect(showCalendarButton_, &QPushButton::clicked, this, &MainTitleRow::toggleShowCalendar);
}

QPushButton* MainTitleRow::button(TitleRowControl control) const {
  switch (control) {
    case TitleRowControl::back:
      return backButton_;
    case TitleRowControl::refreshRink:
      return refreshRinkButton_;
    case TitleRowControl::gotoPrev:
      return gotoPrevButton_;
    case TitleRowControl::gotoNow:
      return gotoNowButton_;
    case TitleRowControl::gotoNext:
      return gotoNextButton_;
    case TitleRowControl::showCalendar:
      return showCalendarButton_;
  }
  fatalError("no such control in the title row");
}

void MainTitleRow::setPane(MainWindowPane pane) {
  pane_ = pane;
  paneControl_->setSelectedSegment(static_cast<int>(pane));
  layoutTitleBar();
}

void MainTitleRow::setControlVisible(TitleRowControl control, bool visible) {
  button(control)->setVisible(visible);
  if (control == TitleRowControl::showCalendar) showCalendarLabel_->setVisible(visible);
}

void MainTitleRow::setControlEnabled(TitleRowControl control, bool enabled) {
  button(control)->setEnabled(enabled);
}

void MainTitleRow::setControlName(TitleRowControl control, const QString& name) {
  button(control)->setAccessibleName(name);
  button(control)->setToolTip(name);
}

void MainTitleRow::setBackTitle(const QString& title) {
  // An ampersand is a letter of the title and marks no key.
  backButton_->setText(QString(title).replace(QLatin1Char('&'), QLatin1String("&&")));
  layoutTitleBar();
}

void MainTitleRow::setRefreshIcon(bool caution) {
  showRefreshSign(*refreshRinkButton_, caution ? RefreshSign::caution : RefreshSign::refresh);
}

void MainTitleRow::setShowRinks(bool shown) {
  showRinksButton_->setSymbol("sidebar-left", shown ? kControlAccent : kLabel);
  showRinksButton_->setAccessibleDescription(shown ? kShown : kHidden);
}

void MainTitleRow::setShowCalendar(bool shown) {
  showCalendarButton_->setSymbol("calendar", shown ? kControlAccent : kLabel);
  showCalendarButton_->setAccessibleDescription(shown ? kShown : kHidden);
}

void MainTitleRow::layoutTitleBar() {
  TitleRowSizes sizes;
  sizes.bar = {0.0, 0.0, static_cast<double>(width()), static_cast<double>(scaledForText(kHeight))};
  sizes.pane = pane_;
  sizes.showRinksButton = asSize(showRinksButton_->size());
  sizes.backButton = textButtonSize(*backButton_);
  sizes.paneControl = asSize(paneControl_->sizeHint());
  sizes.refreshRinkButton = asSize(refreshRinkButton_->size());
  sizes.gotoNowButton = textButtonSize(*gotoNowButton_);
  sizes.gotoNextButton = asSize(gotoNextButton_->size());
  sizes.showCalendarButton = asSize(showCalendarButton_->size());
  sizes.showCalendarLabel = asSize(showCalendarLabel_->sizeHint());
  const TitleRowLayout layout(sizes);

  place(*showRinksButton_, layout.showRinksButton);
  place(*backButton_, layout.backButton);
  place(*paneControl_, layout.paneControl);
  place(*refreshRinkButton_, layout.refreshRinkButton);
  place(*showCalendarButton_, layout.showCalendarButton);
  place(*showCalendarLabel_, layout.showCalendarLabel);
  if (layout.gotoNowButton) place(*gotoNowButton_, *layout.gotoNowButton);
  if (layout.gotoPrevButton) place(*gotoPrevButton_, *layout.gotoPrevButton);
  if (layout.gotoNextButton) place(*gotoNextButton_, *layout.gotoNextButton);
}

QSize MainTitleRow::sizeHint() const {
  return {QWidget::sizeHint().width(), scaledForText(kHeight)};
}

void MainTitleRow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) setFixedHeight(scaledForText(kHeight));
}

void MainTitleRow::resizeEvent(QResizeEvent*) {
  layoutTitleBar();
}

bool MainTitleRow::eventFilter(QObject* watched, QEvent* event) {
  // The label belongs to its button.
  if (event->type() == QEvent::MouseButtonPress &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    showCalendarButton_->click();
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tarvel
