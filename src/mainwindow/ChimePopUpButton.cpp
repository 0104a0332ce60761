#include "mainwindow/ChimePopUpButton.h"

#include <QStyleOption>
#include <QStylePainter>
#include <QWheelEvent>

#include "ui/Fonts.h"

namespace tarvel {
namespace {

constexpr double kTitleSize = 12.0;
constexpr int kTitleMargin = 2;
constexpr qlonglong kNoVenue = 0;

}  // namespace

ChimePopUpButton::ChimePopUpButton(QWidget* parent) : QComboBox(parent) {
  setFont(systemFont(kTitleSize));
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(QStringLiteral("Chime"));
  setToolTip(QStringLiteral("Sound a chime when the session at this venue changes"));
  setSizeAdjustPolicy(QComboBox::AdjustToContents);
  addItem(QStringLiteral("None"), kNoVenue);
  connect(this, &QComboBox::activated, this,
          [this](int index) { emit chimeChosen(itemData(index).toLongLong()); });
}

void ChimePopUpButton::setChimeItems(const std::vector<ChimeItem>& items) {
  const int wanted = static_cast<int>(items.size()) + 1;
  for (int i = 1; i < wanted; ++i) {
    const ChimeItem& item = items[static_cast<std::size_t>(i - 1)];
    const QString title = QString::fromStdString(item.title);
    if (i == count()) addItem(title);
    setItemText(i, title);
    setItemData(i, static_cast<qlonglong>(item.venueID));
  }
  while (count() > wanted) removeItem(count() - 1);
}

void ChimePopUpButton::selectChime(std::int64_t venueID) {
  const int index = findData(static_cast<qlonglong>(venueID));
  if (index >= 0) setCurrentIndex(index);
}

void ChimePopUpButton::paintEvent(QPaintEvent*) {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  option.currentText =
      fontMetrics().elidedText(option.currentText, Qt::ElideRight, room.width() - 2 * kTitleMargin);
  QStylePainter painter(this);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ChimePopUpButton::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace tarvel
