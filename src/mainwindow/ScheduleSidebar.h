#pragma once
#include <QWidget>

#include "mainwindow/ChimePopUpButton.h"
#include "mainwindow/DigitalClockView.h"
#include "mainwindow/ScheduleAdjustmentsView.h"
#include "mainwindow/VenueButtons.h"
#include "schedule/ScheduleViewOption.h"
#include "ui/ImageDisplayView.h"

namespace tarvel {

class AnalogClockFace;
class ContentBox;
class SegmentedControl;
class TextLabel;

/// What stands beside a rink's schedule: its logo, the form of the schedule, the venues, the chime, the
/// rink's time, what is under the mouse, and how the schedule is drawn. It shows what it is told and says
/// what the user did; its signals never follow from its own operations. Owned by the schedule's pane; main
/// thread.
class ScheduleSidebar : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kMinimumWidth = 170;
  static constexpr int kMaximumWidth = 300;
  static constexpr int kNaturalWidth = 200;

  explicit ScheduleSidebar(QWidget* parent);

  /// Called at each drawing. An empty one, before what it refers to goes, shows none.
  void setLogoProvider(ImageDisplayView::ImageProvider provider);
  /// The provider has another image; nothing but the logo is drawn anew.
  void redrawLogo() { scheduleLogoView_->update(); }
  void setOption(ScheduleViewOption option);
  /// In the order in which they are to stand.
  void setVenues(const std::vector<VenueChoice>& venues, VenueButtonKind kind);
  /// The venues after the first item, which is that nothing chimes.
  void setChimeItems(const std::vector<ChimeItem>& items);
  void selectChime(std::int64_t venueID) { chimePopUpButton_->selectChime(venueID); }
  void setClock(const ClockTexts& texts) { digitalClockContainer_->setTexts(texts); }
  const ClockTexts& clock() const { return digitalClockContainer_->texts(); }
  void setItemInfo(const std::string& text);
  /// False while the sidebar is too low for it.
  bool showsItemInfo() const;
  void setFit(bool on) { scheduleAdjustmentsView_->setFit(on); }
  void setShowTimes(bool on) { scheduleAdjustmentsView_->setShowTimes(on); }
  void showTimesVisible(bool visible) { scheduleAdjustmentsView_->showTimesVisible(visible); }
  void setTextSizeSteps(bool smaller, bool larger) {
    scheduleAdjustmentsView_->setTextSizeSteps(smaller, larger);
  }

  AnalogClockFace& analogClockFace() const { return *analogClockFace_; }
  /// From the sidebar's top to below the last venue.
  double venueSelectionBottom() const { return venueSelectionBottom_; }
  void layoutScheduleSidebar();

  QSize sizeHint() const override;

 signals:
  void viewOptionChosen(ScheduleViewOption option);
  void venueToggled(std::int64_t venueID, bool on);
  /// 0 for none.
  void chimeChosen(std::int64_t venueID);
  void fitToggled(bool on);
  void showTimesToggled(bool on);
  void decreaseTextSize();
  void increaseTextSize();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void makeChoices();
  void makeClocksAndItemInfo();
  void passSignalsOn();

  ImageDisplayView* scheduleLogoView_;
  SegmentedControl* scheduleViewOptionControl_;
  VenueButtons* venueButtons_;
  TextLabel* chimeLabel_;
  ChimePopUpButton* chimePopUpButton_;
  AnalogClockFace* analogClockFace_;
  DigitalClockView* digitalClockContainer_;
  ContentBox* itemInfoBox_;
  TextLabel* itemInfoField_;
  ScheduleAdjustmentsView* scheduleAdjustmentsView_;
  double venueSelectionBottom_ = 0.0;
};

}  // namespace tarvel
