#include "mainwindow/RinkSidebar.h"

#include <QPainter>
#include <QScrollArea>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "mainwindow/RefreshTexts.h"

namespace tarvel {
namespace {

constexpr int kBorder = 1;
constexpr int kStatusMargin = 8;
constexpr int kExplanationMargin = 20;
const TextAttributes kExplanationAttributes{13.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

}  // namespace

RinkSidebar::RinkSidebar(const WindowContext& context, QWidget* parent)
    : QWidget(parent), dataModel_(context.dataModel), watch_(context.services, [this] { updateTexts(); }) {
  setFixedWidth(kWidth);
  rinkListScroller_ = new QScrollArea(this);
  rinkListScroller_->setFrameShape(QFrame::NoFrame);
  rinkListScroller_->setFocusPolicy(Qt::NoFocus);
  rinkListScroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  rinkListView_ = new RinkListView(context);
  rinkListScroller_->setWidget(rinkListView_);
  explanation_ = new TextLabel(kExplanationAttributes, TextLabel::Lines::several, this);
  refreshStatus_ =
      new RefreshStatusView(context.services, RefreshStatusView::Arrangement::buttonThenText, this);

  explanation_->setContentsMargins(kExplanationMargin, 0, kExplanationMargin, 0);
  // One of the two has all the room.
  rinkListOrExplanation_ = new QStackedLayout;
  rinkListOrExplanation_->addWidget(rinkListScroller_);
  rinkListOrExplanation_->addWidget(explanation_);
  auto* statusRow = new QHBoxLayout;
  statusRow->setContentsMargins(kStatusMargin, kStatusMargin + kBorder, kStatusMargin, kStatusMargin);
  statusRow->addWidget(refreshStatus_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, kBorder, 0);
  column->setSpacing(0);
  column->addLayout(rinkListOrExplanation_, 1);
  column->addLayout(statusRow);

  rinkListView_->listLoaded = [this] { updateTexts(); };
  const auto catalogue = [this]() -> RefreshableProtocol* { return &dataModel_; };
  watch_.watch(&dataModel_, catalogue);
  refreshStatus_->watch(&dataModel_, catalogue);
}

void RinkSidebar::close() {
  rinkListView_->close();
  refreshStatus_->close();
  watch_.stop();
}

void RinkSidebar::updateTexts() {
  const bool empty = rinkListView_->rinks().empty();
  explanation_->setTextUtf8(empty ? emptyListText(dataModel_, dataModel_.tarvelServerURL) : std::string());
  if (empty) {
    rinkListOrExplanation_->setCurrentWidget(explanation_);
  } else if (rinkListOrExplanation_->currentWidget() != rinkListScroller_) {
    rinkListOrExplanation_->setCurrentWidget(rinkListScroller_);
    // While it was hidden, the keyboard that was meant for it went to some control beside it.
    if (rinkListView_->enabled) rinkListView_->setFocus();
  }
}

void RinkSidebar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), color(kContentBackground, this));
  const QColor border = color(kContentBorder, this);
  painter.fillRect(QRect(width() - kBorder, 0, kBorder, height()), border);
  painter.fillRect(QRect(0, refreshStatus_->y() - kStatusMargin - kBorder, width(), kBorder), border);
}

}  // namespace tarvel
