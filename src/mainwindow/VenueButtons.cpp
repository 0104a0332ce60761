#include "mainwindow/VenueButtons.h"

#include <QCheckBox>
#include <QEvent>
#include <QRadioButton>
#include <QScrollBar>
#include <algorithm>

#include "mainwindow/ScheduleSidebarLayout.h"
#include "mainwindow/ToolTips.h"
#include "ui/AccessibleFactory.h"
#include "ui/Fonts.h"

namespace tarvel {
namespace {

constexpr double kTitleSize = 12.0;
constexpr int kVenueHeight = static_cast<int>(ScheduleSidebarLayout::kVenueHeight);
constexpr int kVenueGap = static_cast<int>(ScheduleSidebarLayout::kVenueStep) - kVenueHeight;
constexpr int kScrollMargin = 4;

/// An ampersand is a letter of the name and marks no key.
QString buttonText(QString title) {
  return title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

VenueButtons::VenueButtons(QWidget* parent) : QScrollArea(parent) {
  setAccessibleRole(*this, QAccessible::Grouping);
  setAccessibleName(QStringLiteral("Venues"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidget(new QWidget);
  // The surface is that of the sidebar.
  viewport()->setAutoFillBackground(false);
  widget()->setAutoFillBackground(false);
}

void VenueButtons::setVenues(const std::vector<VenueChoice>& venues, VenueButtonKind kind) {
  if (!shows(venues, kind)) makeButtons(venues, kind);
  setStates(venues);
}

bool VenueButtons::shows(const std::vector<VenueChoice>& venues, VenueButtonKind kind) const {
  return kind == kind_ && std::equal(venues.begin(), venues.end(), venues_.begin(), venues_.end(),
                                     [](const VenueChoice& a, const VenueChoice& b) {
                                       return a.venueID == b.venueID && a.title == b.title;
                                     });
}

void VenueButtons::makeButtons(const std::vector<VenueChoice>& venues, VenueButtonKind kind) {
  for (QAbstractButton* button : buttons_) {
    // The click on a button may be what brought this about, and the button is still busy with it.
    button->hide();
    button->deleteLater();
  }
  buttons_.clear();
  neededWidths_.clear();
  kind_ = kind;
  venues_ = venues;
  // The tab key is to come here where the area stands among its neighbours, and the toolkit orders only what
  // takes the focus.
  QWidget* before = widget();
  before->setFocusPolicy(Qt::TabFocus);
  for (const VenueChoice& venue : venues) {
    QAbstractButton* button = makeButton(venue);
    QWidget::setTabOrder(before, button);
    before = button;
    buttons_.push_back(button);
    neededWidths_.push_back(button->sizeHint().width());
  }
  widget()->setFocusPolicy(Qt::NoFocus);
}

QAbstractButton* VenueButtons::makeButton(const VenueChoice& venue) {
  const QString title = QString::fromStdString(venue.title);
  QAbstractButton* button = nullptr;
  if (kind_ == VenueButtonKind::radio) {
    button = new QRadioButton(buttonText(title), widget());
  } else {
    button = new QCheckBox(buttonText(title), widget());
  }
  button->setFont(systemFont(kTitleSize));
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(title);
  button->installEventFilter(this);
  const std::int64_t id = venue.venueID;
  connect(button, &QAbstractButton::clicked, this, [this, id](bool on) { emit venueToggled(id, on); });
  button->show();
  return button;
}

void VenueButtons::setStates(const std::vector<VenueChoice>& venues) {
  // Radio buttons on guard would keep the last of them on.
  for (QAbstractButton* button : buttons_) button->setAutoExclusive(false);
  for (std::size_t i = 0; i < buttons_.size(); ++i) buttons_[i]->setChecked(venues[i].on);
  for (QAbstractButton* button : buttons_) button->setAutoExclusive(kind_ == VenueButtonKind::radio);
}

int VenueButtons::widestButton() const {
  return neededWidths_.empty() ? 0 : *std::max_element(neededWidths_.begin(), neededWidths_.end());
}

void VenueButtons::placeButtons(int x, int width) {
  const int contentHeight =
      static_cast<int>(ScheduleSidebarLayout::venuesHeight(static_cast<int>(buttons_.size()), textScale()));
  const int buttonHeight = scaledForText(kVenueHeight);
  const int barWidth = contentHeight > height() ? verticalScrollBar()->sizeHint().width() : 0;
  const int areaWidth = this->width() - barWidth;
  widget()->resize(areaWidth, contentHeight);
  const int buttonWidth = std::max(0, std::min(width, areaWidth - x));
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    QAbstractButton* button = buttons_[i];
    const QString title = button->accessibleName();
    const QFontMetrics metrics = button->fontMetrics();
    const int mark = neededWidths_[i] - metrics.horizontalAdvance(title);
    const bool cut = neededWidths_[i] > buttonWidth;
    button->setText(
        buttonText(cut ? metrics.elidedText(title, Qt::ElideRight, std::max(0, buttonWidth - mark)) : title));
    button->setToolTip(cut ? plainToolTip(title) : QString());
    button->setGeometry(x, static_cast<int>(i) * (buttonHeight + kVenueGap), buttonWidth, buttonHeight);
  }
}

void VenueButtons::noteNeededWidth(const QObject* watched) {
  const auto found = std::find(buttons_.begin(), buttons_.end(), watched);
  if (found == buttons_.end()) return;
  (*found)->setText({});  // lets go of the size it remembers
  (*found)->setText(buttonText((*found)->accessibleName()));
  neededWidths_[static_cast<std::size_t>(found - buttons_.begin())] = (*found)->sizeHint().width();
}

bool VenueButtons::eventFilter(QObject* watched, QEvent* event) {
  // Arrow keys go from one radio button to the next without the area's help.
  if (event->type() == QEvent::FocusIn)
    ensureWidgetVisible(qobject_cast<QWidget*>(watched), 0, kScrollMargin);
  if (event->type() == QEvent::FontChange) noteNeededWidth(watched);
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace tarvel
