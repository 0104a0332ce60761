#pragma once
#include <functional>
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "mainwindow/BannerButton.h"
#include "mainwindow/BannerLayout.h"
#include "mainwindow/TextLabel.h"
#include "model/RinkData.h"
#include "ui/AccessibleView.h"
#include "ui/DataLoadingView.h"

namespace tarvel {

/// Shows one of a rink's notices at a time, of those that the user hasn't dismissed, with its position and
/// arrows. A click on it, or Return while it has the keyboard, chooses it. Leaving a notice dismisses it; it
/// stays among those on show until the list is read anew. Main thread.
class NoticeBannerView : public DataLoadingView, public AccessibleView, Counted<NoticeBannerView> {
  Q_OBJECT
 public:
  using Counted<NoticeBannerView>::liveCount;

  explicit NoticeBannerView(const WindowContext& context, QWidget* parent = nullptr);

  /// The rink to show, not owned; may be null.
  void setRinkData(const std::shared_ptr<RinkData>& rinkData);
  std::shared_ptr<RinkData> rinkData() const { return rinkData_.lock(); }
  /// Goes back to the first notice and reads the list anew.
  void showFirstNotice();
  void prevNotice();
  void nextNotice();
  /// When the banner goes: the notice on show counts as seen, and the lists empty.
  void closeBanner();

  const NoticeList& noticeList() const { return noticeList_; }
  std::size_t currentIndex() const { return currentIndex_; }
  TextLabel& countField() const { return *countField_; }
  BannerButton& prevButton() const { return *prevButton_; }
  BannerButton& nextButton() const { return *nextButton_; }
  /// Called with the notice on show when the user clicks on it; may be empty.
  std::function<void(const std::shared_ptr<const Notice>&)> noticeChosen;

  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void pressAccessible(const QString& id) override;

  void loadData() override;
  /// Stops observing; final. Not the toolkit's operation of this name.
  void close();

 protected:
  void draw(QPainter& painter, const Rect& dirty) override;
  QColor backgroundColor() const override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void noticesChanged(const Notification& notification);
  void dismissCurrent();
  void goTo(std::size_t index);
  void updateCount();
  void choose();
  void drawNotice(QPainter& painter) const;

  Console& console_;
  ApplicationProtocol& application_;
  std::weak_ptr<RinkData> rinkData_;
  NoticeList noticeList_;  ///< those not dismissed when the list was read
  std::size_t currentIndex_ = 0;
  // Children:
  TextLabel* countField_;
  BannerButton* prevButton_;
  BannerButton* nextButton_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
