#pragma once
#include <memory>

#include "auxwindows/LogView.h"
#include "auxwindows/WindowContext.h"
#include "ui/CommandTarget.h"
#include "ui/DataLoadingWindowController.h"
#include "ui/WindowObjectProtocol.h"

class QLabel;
class QPushButton;

namespace tarvel {

/// Shows one message log, and follows it. The log's file is read when the window first loads its data. Owned
/// by the application. Main thread.
class LogWindowController : public DataLoadingWindowController,
                            public WindowObjectProtocol,
                            public CommandTarget,
                            Counted<LogWindowController> {
 public:
  using Counted<LogWindowController>::liveCount;

  LogWindowController(const WindowContext& context, MessageLog& log, const QString& title);

  std::string className() const override { return "LogWindowController"; }
  const void* windowObject() const override { return log_.get(); }
  void loadData() override;
  void clearHistory() { log_->clear(); }

  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;

  void windowWillClose() override;
  Rect windowWillUseStandardFrame(const Rect& defaultFrame) override;

  LogView& logView() const { return *logView_; }
  QLabel& countField() const { return *countField_; }
  QPushButton& clearButton() const { return *clearButton_; }
  QPushButton& copyButton() const { return *copyButton_; }

 private:
  void makeViews();
  void enableButtons(bool enabled);

  WindowContext context_;
  std::shared_ptr<MessageLog> log_;
  std::vector<LogMessage> logMessages_;  ///< at the last load
  LogView* logView_ = nullptr;
  QLabel* countField_ = nullptr;
  QPushButton* clearButton_ = nullptr;
  QPushButton* copyButton_ = nullptr;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
