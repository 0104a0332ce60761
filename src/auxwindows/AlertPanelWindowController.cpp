#include "auxwindows/AlertPanelWindowController.h"

#include <QLabel>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "auxwindows/AlertPanelLayout.h"
#include "auxwindows/TextButton.h"
#include "ui/Icons.h"

namespace tarvel {
namespace {

const TextAttributes kMessageText{17.0, FontWeight::regular, kLabel, kLeftLineHeight20Style};
const TextAttributes kInfoText{14.0, FontWeight::regular, kLabel, kLeftLineHeight13Style};

constexpr Size kFirstSize{450.0, 160.0};
// From the window's edges:
constexpr int kImageLeft = 24;
constexpr int kImageTop = 20;
constexpr int kMessageLeft = 116;
constexpr int kMessageBottom = 66;
constexpr int kButtonRight = 20;
constexpr int kButtonBottom = 20;

constexpr int kImageSize = 68;
constexpr int kShrinkForBadge = 10;
constexpr int kBadgeSize = 30;
constexpr int kButtonHeight = 32;
constexpr int kButtonSpacing = 8;
constexpr int kLeastButtonWidth = 80;

}  // namespace

AlertPanelWindowController::AlertPanelWindowController(const WindowContext& context)
    : WindowController(std::make_unique<Window>(nullptr, Qt::Dialog)), application_(context.application) {
  imageView_ = new QLabel(window());
  imageView_->setScaledContents(true);
  imageView_->resize(kImageSize, kImageSize);
  badgeView_ = new AlertBadgeView(window());
  badgeView_->resize(kBadgeSize, kBadgeSize);
  badgeView_->hide();
  messageView_ = new AlertMessageView(*this, window());
  window()->setWindowTitle(QStringLiteral("Tarvel"));
  QObject::connect(new QShortcut(Qt::Key_Escape, window()), &QShortcut::activated, window(),
                   [this] { window()->performClose(); });
  window()->resize(int(kFirstSize.width), int(kFirstSize.height));
}

void AlertPanelWindowController::addButton(const std::string& title) {
  QPushButton* button = makeTextButton(QString::fromStdString(title), window());
  const int width = std::max(button->minimumWidth(), kLeastButtonWidth);
  button->resize(width, kButtonHeight);
  const int rightInset = rightInsets_.empty() ? kButtonRight : rightInsets_.back() + kButtonSpacing;
  const int tag = static_cast<int>(buttons_.size());
  QObject::connect(button, &QPushButton::clicked, window(), [this, tag] { clickButton(tag); });
  rightInsets_.push_back(rightInset + width);
  buttons_.push_back(button);
  if (tag == 0) button->setFocus();
  button->show();
  layoutViews();
}

AttributedText AlertPanelWindowController::text() const {
  AttributedText text(message, kMessageText);
  if (info.empty()) return text;
  if (!message.empty()) text.append("\n\n", kInfoText);
  text.append(info, kInfoText);
  return text;
}

void AlertPanelWindowController::present(CompletionHandler completionHandler) {
  completionHandler_ = std::move(completionHandler);
  const bool hasBadge = badge != AlertBadge::none;
  const int imageSize = hasBadge ? kImageSize - kShrinkForBadge : kImageSize;
  imageView_->setPixmap(applicationIcon().pixmap(QSize(imageSize, imageSize), window()->devicePixelRatioF()));
  imageView_->resize(imageSize, imageSize);
  badgeView_->setBadge(badge);
  badgeView_->setVisible(hasBadge);

  fitText();
  showWindow();
}

void AlertPanelWindowController::fitText() {
  const AttributedText shown = text();
  messageView_->setText(shown);
  std::optional<Size> measured;
  if (!shown.empty()) measured = boundingRect(shown, {kAlertTextLimit, 0.0}, TextFit::wrap);
  const Size messageSize = alertMessageSize(measured);
  messageView_->resize(int(std::ceil(messageSize.width)), int(std::ceil(messageSize.height)));

  std::optional<double> lastButtonLeft;
  const double oldWidth = window()->frame().width;
  if (!rightInsets_.empty()) lastButtonLeft = oldWidth - rightInsets_.back();
  const Size size = alertPanelSize(messageSize, oldWidth, lastButtonLeft);
  // The limits first: those of the size before would hold it.
  window()->setFrameLimits(size, size);
  window()->setFrame(alertPanelFrame(size, window()->screenFrame()));
  layoutViews();
}

void AlertPanelWindowController::layoutViews() {
  const int width = window()->width();
  const int height = window()->height();
  // The image keeps its lower left corner when it makes room for the badge.
  const int imageBottom = kImageTop + kImageSize;
  imageView_->move(kImageLeft, imageBottom - imageView_->height());
  badgeView_->move(kImageLeft + kImageSize - kBadgeSize, kImageTop);
  messageView_->move(kMessageLeft, height - kMessageBottom - messageView_->height());
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->move(width - rightInsets_[i], height - kButtonBottom - kButtonHeight);
  }
}

void AlertPanelWindowController::clickButton(int tag) {
  // The handler is dropped when it closes the panel, and has to live until it is done.
  const CompletionHandler handler = completionHandler_;
  if (handler) handler(tag);
}

void AlertPanelWindowController::windowWillClose() {
  completionHandler_ = nullptr;
  application_.removeWindowController(*this, SaveFrame::no);
}

}  // namespace tarvel
