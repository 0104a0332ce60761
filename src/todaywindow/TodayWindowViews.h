#pragma once
#include <QScrollArea>
#include <functional>

#include "todaywindow/HeadlineField.h"
#include "todaywindow/TodayScheduleView.h"
#include "todaywindow/TodayWindowLayout.h"
#include "ui/BoxView.h"
#include "ui/IconButton.h"
#include "ui/ImageDisplayView.h"
#include "ui/InfoView.h"

namespace tarvel {

/// The content of a Today window: a box that fills it, and on it the band of logo, names, clock and buttons,
/// and the schedule. It lays them out anew with each size; what they show is the controller's. The window
/// owns it. Main thread.
class TodayWindowViews : public BoxView {
  Q_OBJECT
 public:
  TodayWindowViews(const WindowContext& context, QWidget* window);

  ImageDisplayView& logoView() const { return *logoView_; }
  InfoView& infoView() const { return *infoView_; }
  HeadlineField& timeField() const { return *timeField_; }
  HeadlineField& dateField() const { return *dateField_; }
  TodayScheduleView& todayScheduleView() const { return *todayScheduleView_; }
  QScrollArea& todayScheduleScrollView() const { return *todayScheduleScrollView_; }
  IconButton& refreshButton() const { return *refreshButton_; }
  IconButton& gearButton() const { return *gearButton_; }
  IconButton& closeWindowButton() const { return *closeWindowButton_; }
  const TodayWindowLayout& layoutNow() const { return layout_; }

  /// The size of the logo in its own pixels. A rink without one, of an empty size, leaves its room to the
  /// names.
  void setLogoSize(const Size& size);
  /// Both empty shows nothing.
  void setNames(const std::string& rinkName, const std::string& venueName);
  /// Called when the views have become light or dark, by the desktop's choice or the window's.
  std::function<void()> appearanceChanged;

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeBand();
  /// The scroll bar's groove has the colour of the schedule beside it.
  void tintScrollBar();
  void layOut();
  void updateInfoText();

  Size logoSize_;
  std::string rinkName_;
  std::string venueName_;
  TodayWindowLayout layout_;
  ImageDisplayView* logoView_;
  InfoView* infoView_;
  HeadlineField* timeField_;
  HeadlineField* dateField_;
  IconButton* refreshButton_;
  IconButton* gearButton_;
  IconButton* closeWindowButton_;
  QScrollArea* todayScheduleScrollView_;
  TodayScheduleView* todayScheduleView_ = nullptr;  ///< the last to be made
};

}  // namespace tarvel
