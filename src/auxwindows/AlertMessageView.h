#pragma once
#include <QWidget>

#include "foundation/InstanceCounter.h"
#include "ui/AttributedText.h"

namespace tarvel {

class AlertPanelWindowController;

/// The text of an alert, wrapped to the view's width. Its panel sizes it. Main thread.
class AlertMessageView : public QWidget, Counted<AlertMessageView> {
  Q_OBJECT
 public:
  using Counted<AlertMessageView>::liveCount;

  explicit AlertMessageView(AlertPanelWindowController& windowController, QWidget* parent = nullptr);

  AlertPanelWindowController& windowController() const { return windowController_; }
  void setText(const AttributedText& text);
  const AttributedText& text() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  AlertPanelWindowController& windowController_;
  AttributedText text_;
};

}  // namespace tarvel
