#pragma once
#include <functional>
#include <string>
#include <vector>

#include "auxwindows/AlertBadge.h"
#include "auxwindows/AlertBadgeView.h"
#include "auxwindows/AlertMessageView.h"
#include "auxwindows/WindowContext.h"
#include "foundation/InstanceCounter.h"
#include "ui/WindowController.h"

class QLabel;
class QPushButton;

namespace tarvel {

/// The application's own alert: its icon, a message, a further text, and buttons that the caller adds. Its
/// maker fills it in, hands it to the application, which owns it, and presents it. Main thread.
class AlertPanelWindowController : public WindowController, Counted<AlertPanelWindowController> {
 public:
  using Counted<AlertPanelWindowController>::liveCount;
  /// Gets the place of the button among those added, from 0.
  using CompletionHandler = std::function<void(int)>;

  explicit AlertPanelWindowController(const WindowContext& context);

  AlertBadge badge = AlertBadge::none;
  std::string message;
  std::string info;

  std::string className() const override { return "AlertPanelWindowController"; }
  /// The first one added stands at the right, and the return key presses it; each further one stands at the
  /// left of the one before.
  void addButton(const std::string& title);
  /// Lays the panel out for its texts and shows it. The handler is called for each press of a button; the
  /// panel closes only if the handler closes it, or by its user without an answer, and a panel that has
  /// closed calls nobody.
  void present(CompletionHandler completionHandler);
  /// Lays the panel out anew for its texts.
  void fitText();

  void windowDidResize() override { layoutViews(); }
  void windowWillClose() override;

  const std::vector<QPushButton*>& buttons() const { return buttons_; }
  AlertMessageView& messageView() const { return *messageView_; }
  AlertBadgeView& badgeView() const { return *badgeView_; }

 private:
  void clickButton(int tag);
  AttributedText text() const;
  void layoutViews();

  ApplicationProtocol& application_;
  QLabel* imageView_;
  AlertBadgeView* badgeView_;
  AlertMessageView* messageView_;
  std::vector<QPushButton*> buttons_;
  std::vector<int> rightInsets_;  ///< of the buttons' left sides
  CompletionHandler completionHandler_;
};

}  // namespace tarvel
