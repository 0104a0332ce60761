#include "mainwindow/NoticesPane.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include "mainwindow/ContentBox.h"

namespace tarvel {
namespace {

constexpr int kMargin = 8;
constexpr int kBorder = 1;

}  // namespace

NoticesPane::NoticesPane(const WindowContext& context, QWidget* parent)
    : WindowPane(context.services.notifications, context.observerCensus, parent) {
  auto* box = new ContentBox(kContentBackground, this);
  scroller_ = new QScrollArea(box);
  scroller_->setFrameShape(QFrame::NoFrame);
  scroller_->setFocusPolicy(Qt::NoFocus);
  scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  noticesView_ = new NoticesView(context);
  scroller_->setWidget(noticesView_);
  auto* boxColumn = new QVBoxLayout(box);
  boxColumn->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
  boxColumn->addWidget(scroller_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, 0, kMargin, kMargin);
  column->addWidget(box);
}

void NoticesPane::close() {
  noticesView_->close();
  WindowPane::close();
}

}  // namespace tarvel
