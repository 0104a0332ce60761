#include "mainwindow/TitleRow.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvel {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 12;
constexpr int kButtonGap = 4;
constexpr int kLineGap = 2;
constexpr int kRepeatDelay = 500;     // milliseconds
constexpr int kRepeatInterval = 300;  // milliseconds
constexpr int kTextStretch = 3;
constexpr int kStatusStretch = 2;
const TextAttributes kNameAttributes{17.0, FontWeight::medium, kLabel, kLeftStyle};
const TextAttributes kDescriptionAttributes{12.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};

}  // namespace

TitleRow::TitleRow(const Services& services, QWidget* parent) : QWidget(parent) {
  showRinksButton_ = new IconButton("sidebar-left", QStringLiteral("Show or hide the rinks"), this);
  nameLabel_ = new TextLabel(kNameAttributes, TextLabel::Lines::one, this);
  descriptionLabel_ = new TextLabel(kDescriptionAttributes, TextLabel::Lines::one, this);
  refreshStatus_ = new RefreshStatusView(services, RefreshStatusView::Arrangement::textThenButton, this);
  gotoPrevButton_ = makePageButton("chevron-left", QStringLiteral("Previous week"));
  gotoNowButton_ = new QPushButton(QStringLiteral("Now"), this);
  gotoNowButton_->setFocusPolicy(Qt::TabFocus);
  gotoNowButton_->setToolTip(QStringLiteral("Go to the present week"));
  gotoNextButton_ = makePageButton("chevron-right", QStringLiteral("Next week"));

  auto* texts = new QVBoxLayout;
  texts->setSpacing(kLineGap);
  texts->addWidget(nameLabel_);
  texts->addWidget(descriptionLabel_);
  auto* pages = new QHBoxLayout;
  pages->setSpacing(kButtonGap);
  pages->addWidget(gotoPrevButton_);
  pages->addWidget(gotoNowButton_);
  pages->addWidget(gotoNextButton_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(kSpacing);
  row->addWidget(showRinksButton_);
  row->addLayout(texts, kTextStretch);
  row->addWidget(refreshStatus_, kStatusStretch);
  row->addLayout(pages);

  connect(showRinksButton_, &QPushButton::clicked, this, &TitleRow::toggleShowRinks);
  connect(gotoNowButton_, &QPushButton::clicked, this, &TitleRow::gotoNow);
  // On pressing, and again while held.
  connect(gotoPrevButton_, &QPushButton::pressed, this, &TitleRow::prev);
  connect(gotoNextButton_, &QPushButton::pressed, this, &TitleRow::next);
}

IconButton* TitleRow::makePageButton(std::string_view symbol, const QString& name) {
  auto* button = new IconButton(symbol, name, this);
  button->setAutoRepeat(true);
  button->setAutoRepeatDelay(kRepeatDelay);
  button->setAutoRepeatInterval(kRepeatInterval);
  return button;
}

void TitleRow::setControls(bool hasRink, const ScheduleControls& controls) {
  for (QWidget* control : {static_cast<QWidget*>(refreshStatus_), static_cast<QWidget*>(gotoPrevButton_),
                           static_cast<QWidget*>(gotoNowButton_), static_cast<QWidget*>(gotoNextButton_)}) {
    control->setVisible(hasRink);
  }
  gotoPrevButton_->setEnabled(controls.canGoBack);
  gotoNowButton_->setEnabled(controls.canGoToNow);
  gotoNextButton_->setEnabled(controls.canGoForward);
  descriptionLabel_->setTextUtf8(hasRink ? controls.description : std::string());
}

void TitleRow::setShowRinks(bool shown) {
  showRinksButton_->setSymbol("sidebar-left", shown ? kControlAccent : kLabel);
}

}  // namespace tarvel
