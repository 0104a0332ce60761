#include "mainwindow/RefreshStatusView.h"

#include <QHBoxLayout>

#include "mainwindow/RefreshTexts.h"
#include "mainwindow/ToolTips.h"

namespace tarvel {
namespace {

constexpr double kFontSize = 11.0;
constexpr int kSpacing = 8;
const QString kButtonName = QStringLiteral("Last and next refresh");

TextAttributes attributesFor(RefreshStatusView::Arrangement arrangement) {
  const bool atTheEnd = arrangement == RefreshStatusView::Arrangement::textThenButton;
  return {kFontSize, FontWeight::regular, kSecondaryLabel, atTheEnd ? kRightStyle : kLeftStyle};
}

}  // namespace

RefreshStatusView::RefreshStatusView(const Services& services, Arrangement arrangement, QWidget* parent)
    : QWidget(parent), watch_(services, [this] { updateTexts(); }) {
  const bool inRow = arrangement == Arrangement::textThenButton;
  button_ = new IconButton("refresh", kButtonName, this);
  text_ = new TextLabel(attributesFor(arrangement), inRow ? TextLabel::Lines::one : TextLabel::Lines::several,
                        this);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kSpacing);
  row->addWidget(inRow ? static_cast<QWidget*>(text_) : button_, inRow ? 1 : 0);
  row->addWidget(inRow ? static_cast<QWidget*>(button_) : text_, inRow ? 0 : 1);
  connect(button_, &QPushButton::clicked, this, [this] {
    if (clicked) clicked(*button_);
  });
}

void RefreshStatusView::updateTexts() {
  const RefreshableProtocol* thing = watch_.thing();
  text_->setTextUtf8(thing ? refreshStatusText(*thing, watch_.now()) : std::string());
  const bool failed = thing && thing->errorKind() != DownloadErrorKind::noError;
  button_->setSymbol(failed ? "caution" : "refresh", failed ? kSystemYellow : kLabel);
  QString toolTip = kButtonName;
  if (thing) toolTip += QStringLiteral("\n") + QString::fromStdString(thing->refreshName());
  if (failed) toolTip += QStringLiteral("\n\n") + QString::fromStdString(thing->errorLog()).trimmed();
  button_->setToolTip(plainToolTip(toolTip));
  // Nobody wants the tip's markup read aloud.
  button_->setAccessibleDescription(toolTip);
}

}  // namespace tarvel
