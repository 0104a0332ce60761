#include "auxwindows/CautionPopoverViewController.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include "ui/Fonts.h"
#include "ui/Icons.h"
#include "ui/NamedColors.h"

namespace tarvel {
namespace {

constexpr int kWidth = 340;
constexpr int kMessageHeight = 132;
constexpr int kSymbolSize = 18;
constexpr double kMessageFontSize = 11.0;
constexpr int kFieldPadding = 6;  // of the field around the log
constexpr double kFieldRadius = 6.0;

}  // namespace

CautionPopoverViewController::CautionPopoverViewController(const WindowContext& context)
    : StatusPopoverViewController(context, "CautionPopoverViewController", kWidth) {
  symbol_ = new QLabel(this);
  symbol_->setFixedSize(kSymbolSize, kSymbolSize);
  nameRow().insertWidget(0, symbol_, 0, Qt::AlignTop);

  messageView_ = new QPlainTextEdit(this);
  messageView_->setReadOnly(true);
  messageView_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  messageView_->setFont(systemFont(kMessageFontSize));
  messageView_->setFrameShape(QFrame::NoFrame);
  messageView_->document()->setDocumentMargin(0.0);
  messageView_->setFixedHeight(scaledForText(kMessageHeight));
  messageView_->setAccessibleName(QStringLiteral("Errors"));
  messagePlace().setContentsMargins(kFieldPadding, kFieldPadding, kFieldPadding, kFieldPadding);
  messagePlace().addWidget(messageView_);
  // The log comes before the button on the way of the tab key, as it does on the screen.
  setTabOrder(messageView_, &refreshNowButton());
  updateColors();
}

void CautionPopoverViewController::awakeFromNib() {
  StatusPopoverViewController::awakeFromNib();
  scrollToEnd();
}

void CautionPopoverViewController::updateMessage() {
  const QString log = QString::fromStdString(dataSource->errorLog());
  // A log that is the same as before keeps its place and what the user has selected of it.
  if (log != messageView_->toPlainText()) messageView_->setPlainText(log);
}

void CautionPopoverViewController::scrollToEnd() {
  messageView_->moveCursor(QTextCursor::End);
  QScrollBar* bar = messageView_->verticalScrollBar();
  bar->setValue(bar->maximum());
}

void CautionPopoverViewController::showEvent(QShowEvent* event) {
  StatusPopoverViewController::showEvent(event);
  // Only now has the log its size.
  scrollToEnd();
}

void CautionPopoverViewController::changeEvent(QEvent* event) {
  StatusPopoverViewController::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) updateColors();
}

void CautionPopoverViewController::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color(kContentBackground2, this));
  const QRectF log = messageView_->geometry();
  painter.drawRoundedRect(log.adjusted(-kFieldPadding, -kFieldPadding, kFieldPadding, kFieldPadding),
                          kFieldRadius, kFieldRadius);
}

void CautionPopoverViewController::updateColors() {
  QPalette log = palette();
  log.setColor(QPalette::Base, color(kContentBackground2, this));
  messageView_->setPalette(log);
  symbol_->setPixmap(icon("caution", color(kSystemYellow, this), kSymbolSize, devicePixelRatioF()));
}

}  // namespace tarvel
