#pragma once
#include <vector>

#include "auxwindows/LogView.h"
#include "auxwindows/WindowContext.h"
#include "ui/CommandTarget.h"
#include "ui/WindowController.h"
#include "ui/WindowSettingsProtocol.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;

namespace tarvel {

/// What was alive at a moment.
struct DebugReport {
  Instant timeStamp;
  std::vector<Message> memoryArray;  ///< live objects by class
  std::vector<Message> infoArray;    ///< observers and open windows
};

/// A developer's window that takes reports of what is alive in the process and lets one step through them, to
/// see what is never let go. Owned by the application. Main thread.
class DebugWindowController : public WindowController,
                              public WindowSettingsProtocol,
                              public CommandTarget,
                              Counted<DebugWindowController> {
 public:
  using Counted<DebugWindowController>::liveCount;

  /// With a first report.
  explicit DebugWindowController(const WindowContext& context);

  std::string className() const override { return "DebugWindowController"; }

  /// Adds a report of this moment at the end, and shows it.
  void generateReport();
  void prev();
  void next();

  PropertyList::Dictionary windowSettings() const override;
  void restoreSettings(const PropertyList::Dictionary& settings,
                       FromAnotherDocument fromAnotherDocument) override;
  void defaultSettings() override {}
  /// Copying takes the list that has the keyboard, or else the live objects.
  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;
  void windowWillClose() override;

  const std::vector<DebugReport>& reports() const { return reports_; }
  std::size_t reportIndex() const { return reportIndex_; }
  LogView& memoryLogView() const { return *memoryLogView_; }
  LogView& observersLogView() const { return *observersLogView_; }
  QLabel& timeStampField() const { return *timeStampField_; }
  QPushButton& prevButton() const { return *prevButton_; }
  QPushButton& nextButton() const { return *nextButton_; }
  QPushButton& generateButton() const { return *generateButton_; }
  QSplitter& splitView() const { return *splitView_; }

 private:
  void makeViews();
  void makeControls(QHBoxLayout& row);
  void showReport();
  std::vector<Message> infoRows();

  WindowContext context_;
  LogView* memoryLogView_ = nullptr;
  LogView* observersLogView_ = nullptr;
  QSplitter* splitView_ = nullptr;
  QLabel* timeStampField_ = nullptr;
  QPushButton* prevButton_ = nullptr;
  QPushButton* nextButton_ = nullptr;
  QPushButton* generateButton_ = nullptr;
  std::vector<DebugReport> reports_;
  std::size_t reportIndex_ = 0;
};

}  // namespace tarvel
