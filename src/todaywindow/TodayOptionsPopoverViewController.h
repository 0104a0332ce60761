#pragma once
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <array>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "foundation/InstanceCounter.h"

class QFormLayout;

namespace tarvel {

class TodayWindowController;

/// The options of one Today window, as the content of a popover: what it shows, and how. Each choice takes
/// effect at once and is saved. Owned by the popover; the window outlives it or calls `close`. Main thread.
class TodayOptionsPopoverViewController : public QWidget, Counted<TodayOptionsPopoverViewController> {
  Q_OBJECT
 public:
  using Counted<TodayOptionsPopoverViewController>::liveCount;

  TodayOptionsPopoverViewController(const WindowContext& context, TodayWindowController& window);
  /// Stops observing; final. Not the toolkit's operation of this name.
  void close();

  QComboBox& rinkPopupButton() const { return *rinkPopupButton_; }
  QComboBox& venuePopupButton() const { return *venuePopupButton_; }
  QCheckBox& fitHeightCheckbox() const { return *fitHeightCheckbox_; }
  QCheckBox& chimeCheckbox() const { return *chimeCheckbox_; }
  QPushButton& scheduleDecreaseButton() const { return *scheduleDecreaseButton_; }
  QPushButton& scheduleIncreaseButton() const { return *scheduleIncreaseButton_; }
  QSlider& scaleHeightSlider() const { return *scaleHeightSlider_; }
  /// Light, dark, and as the system has it.
  QRadioButton& colorModeButton(int tag) const { return *colorModeButtons_.at(std::size_t(tag)); }

 private:
  void makeControls();
  QWidget* makeSizeButtons();
  void makeColorModeButtons(QFormLayout& form);
  void takeFromWindow();
  void connectControls();
  void rinkListChanged();
  void venuesChanged();
  void chooseRink(std::int64_t rinkID);
  void chooseVenue(std::int64_t venueID);
  void toggleFitHeight(bool fits);
  void chooseColorMode(int tag);

  WindowContext context_;
  TodayWindowController& window_;
  QComboBox* rinkPopupButton_ = nullptr;
  QComboBox* venuePopupButton_ = nullptr;
  QCheckBox* fitHeightCheckbox_ = nullptr;
  QCheckBox* chimeCheckbox_ = nullptr;
  QPushButton* scheduleDecreaseButton_ = nullptr;
  QPushButton* scheduleIncreaseButton_ = nullptr;
  QSlider* scaleHeightSlider_ = nullptr;
  std::array<QRadioButton*, 3> colorModeButtons_{};
  std::vector<Observation> observations_;
};

}  // namespace tarvel
