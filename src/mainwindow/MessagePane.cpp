#include "mainwindow/MessagePane.h"

#include <QVBoxLayout>

#include "ui/InfoView.h"
#include "ui/ParagraphStyles.h"

namespace tarvel {
namespace {

const TextAttributes kPaneMessageAttributes{15.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

}  // namespace

MessagePane::MessagePane(const WindowContext& context, const std::string& message, QWidget* parent)
    : WindowPane(context.services.notifications, context.observerCensus, parent) {
  auto* text = new InfoView(this);
  text->setText(AttributedText(message, kPaneMessageAttributes));
  auto* column = new QVBoxLayout(this);
  column->addWidget(text);
}

}  // namespace tarvel
