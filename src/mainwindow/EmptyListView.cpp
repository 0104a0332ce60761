#include "mainwindow/EmptyListView.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "auxwindows/TextButton.h"
#include "mainwindow/RefreshTexts.h"

namespace tarvel {
namespace {

constexpr int kMargin = 20;
constexpr int kAboveButtons = 16;
constexpr int kBetweenButtons = 8;
const TextAttributes kAttributes{13.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

}  // namespace

EmptyListView::EmptyListView(const WindowContext& context, QWidget* parent)
    : QWidget(parent),
      dataModel_(context.dataModel),
      message_(new TextLabel(kAttributes, TextLabel::Lines::several, this)),
      tryNowButton_(makeTextButton(QStringLiteral("Try Now"), this)),
      serverAddressButton_(makeTextButton(QStringLiteral("Server Address…"), this)) {
  ApplicationProtocol& application = context.application;
  connect(tryNowButton_, &QPushButton::clicked, this, [this] { dataModel_.refreshNow(); });
  connect(serverAddressButton_, &QPushButton::clicked, this,
          [&application] { application.tarvelURLWindow(); });
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, 0, kMargin, 0);
  column->setSpacing(kBetweenButtons);
  column->addStretch();
  column->addWidget(message_);
  column->addSpacing(kAboveButtons - kBetweenButtons);
  for (QPushButton* button : {tryNowButton_, serverAddressButton_}) {
    column->addWidget(button, 0, Qt::AlignHCenter);
  }
  column->addStretch();
}

void EmptyListView::updateContent() {
  message_->setTextUtf8(emptyListText(dataModel_, dataModel_.tarvelServerURL));
  tryNowButton_->setEnabled(!dataModel_.refreshInProgress());
}

}  // namespace tarvel
