#include "mainwindow/VenueButtonRow.h"

#include <QButtonGroup>
#include <QPushButton>
#include <algorithm>

#include "mainwindow/ToolTips.h"

namespace tarvel {
namespace {

constexpr int kGap = 8;

}  // namespace

VenueButtonRow::VenueButtonRow(QWidget* parent) : QWidget(parent), group_(new QButtonGroup(this)) {
  setAccessibleName(QStringLiteral("Venues"));
  hide();
}

void VenueButtonRow::setVenues(const std::vector<std::shared_ptr<Venue>>& venues,
                               std::int64_t chosenVenueID) {
  for (QPushButton* button : buttons_) {
    group_->removeButton(button);
    // The choice of a venue may be what brought this about, and its button is still busy with it.
    button->hide();
    button->deleteLater();
  }
  buttons_.clear();
  for (const auto& venue : venues) {
    // An ampersand is a letter of the name and marks no key.
    QString title =
        QString::fromStdString(venue->displayName()).replace(QLatin1Char('&'), QLatin1String("&&"));
    auto* button = new QPushButton(title, this);
    button->setCheckable(true);
    button->setChecked(venue->venueID == chosenVenueID);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(plainToolTip(QString::fromStdString(venue->note)));
    const std::int64_t id = venue->venueID;
    connect(button, &QPushButton::clicked, this, [this, id] {
      if (venueChosen) venueChosen(id);
    });
    group_->addButton(button);
    button->show();
    buttons_.push_back(button);
  }
  setVisible(buttons_.size() > 1);
  placeButtons();
}

void VenueButtonRow::resizeEvent(QResizeEvent*) {
  placeButtons();
}

void VenueButtonRow::placeButtons() {
  int x = 0;
  int y = 0;
  int bottom = 0;
  for (QPushButton* button : buttons_) {
    const QSize size(std::min(button->sizeHint().width(), std::max(1, width())), button->sizeHint().height());
    if (x > 0 && x + size.width() > width()) {
      x = 0;
      y = bottom + kGap;
    }
    button->setGeometry(QRect({x, y}, size));
    x += size.width() + kGap;
    bottom = y + size.height();
  }
  setFixedHeight(bottom);
}

}  // namespace tarvel
