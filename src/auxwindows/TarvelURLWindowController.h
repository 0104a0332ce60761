#pragma once
#include <QString>
#include <QUndoStack>

#include "auxwindows/WindowContext.h"
#include "foundation/InstanceCounter.h"
#include "ui/CommandTarget.h"
#include "ui/WindowController.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvel {

/// Points the application at another server, or back at its own. Nothing is taken over before the Enter
/// button. The window has an undo of its own for whole addresses; while one is being typed, the field's own
/// comes first. Owned by the application. Main thread.
class TarvelURLWindowController : public WindowController,
                                  public CommandTarget,
                                  Counted<TarvelURLWindowController> {
 public:
  using Counted<TarvelURLWindowController>::liveCount;

  explicit TarvelURLWindowController(const WindowContext& context);
  ~TarvelURLWindowController() override;

  std::string className() const override { return "TarvelURLWindowController"; }

  /// The editing of the field has ended: takes its text over, without blanks at its ends.
  void editURLName();
  void setDefault();
  void controlTextDidChange();
  /// Ends the editing, hands the address to the data model, which refreshes at once if it is another one, and
  /// closes. A blank address keeps the window open.
  void okay();
  void cancel();

  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;
  void windowWillClose() override;

  const QString& serverURL() const { return serverURL_; }
  const QString& tmpServerURL() const { return tmpServerURL_; }
  QUndoStack& localUndoManager() { return localUndoManager_; }
  QLineEdit& urlField() const { return *urlField_; }
  QLabel& messageField() const { return *messageField_; }
  QPushButton& defaultButton() const { return *defaultButton_; }
  QPushButton& enterButton() const { return *enterButton_; }
  QPushButton& cancelButton() const { return *cancelButton_; }

 private:
  class URLChange;
  class FieldKeys;

  void makeViews();
  void connectViews();
  /// True if the address wasn't the value already; the undo manager knows the way back then.
  bool setValue(const QString& value);
  void putValue(const QString& value);
  void updateMessage();

  WindowContext context_;
  QUndoStack localUndoManager_;
  QString serverURL_;     ///< the committed value of the field
  QString tmpServerURL_;  ///< what the field holds while it is typed in
  QLineEdit* urlField_ = nullptr;
  QLabel* messageField_ = nullptr;
  QPushButton* defaultButton_ = nullptr;
  QPushButton* enterButton_ = nullptr;
  QPushButton* cancelButton_ = nullptr;
};

}  // namespace tarvel
