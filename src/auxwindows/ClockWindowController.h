#pragma once
#include <QRadioButton>

#include "auxwindows/ClockPicker.h"
#include "auxwindows/WindowContext.h"
#include "ui/WindowController.h"

namespace tarvel {

/// Runs the window that shifts the application's idea of now, so that its displays can be seen at any moment
/// of a week. What was set stays in force when the window closes. The application owns it. Main thread.
class ClockWindowController : public WindowController, Counted<ClockWindowController> {
 public:
  using Counted<ClockWindowController>::liveCount;

  static std::unique_ptr<ClockWindowController> create(const WindowContext& context);
  ~ClockWindowController() override;

  std::string className() const override { return "ClockWindowController"; }
  void showWindow() override;
  void windowWillClose() override;

  /// Goes to the pretend time that was set last, or back to the real one.
  void setPretend(bool pretend);
  bool pretendMode() const { return pretendMode_; }
  ClockPicker& datePicker() const { return *datePicker_; }
  QRadioButton& realTimeButton() const { return *realTimeButton_; }
  QRadioButton& pretendTimeButton() const { return *pretendTimeButton_; }

 private:
  explicit ClockWindowController(const WindowContext& context);
  void makeViews();
  /// The picker's date becomes now.
  void setDate();
  PretendTime& pretendTime() const { return context_.services.pretendTime; }

  WindowContext context_;
  /// A window that opens anew begins with real time chosen, also while a pretend time is in force.
  bool pretendMode_ = false;
  double pretendDateOffset_;  ///< seconds; kept while real time is in force
  // Children of the window:
  QRadioButton* realTimeButton_ = nullptr;
  QRadioButton* pretendTimeButton_ = nullptr;
  ClockPicker* datePicker_ = nullptr;
};

}  // namespace tarvel
