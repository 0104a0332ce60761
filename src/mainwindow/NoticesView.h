#pragma once
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "mainwindow/NoticeLayout.h"
#include "model/RinkData.h"
#include "schedule/MainStateWatch.h"
#include "ui/AccessibleView.h"
#include "ui/DataLoadingView.h"

namespace tarvel {

/// All notices of a rink, one below the other, in a scroll area. A click selects one, which gives it a frame.
/// The keys up and down select the neighbour of the selected one; all others, and those two where there is
/// none, scroll the area around it. Main thread.
class NoticesView : public DataLoadingView, public AccessibleView, Counted<NoticesView> {
  Q_OBJECT
 public:
  using Counted<NoticesView>::liveCount;

  explicit NoticesView(const WindowContext& context, QWidget* parent = nullptr);

  /// The rink to show, not owned; null while none is selected.
  void setRinkData(const std::shared_ptr<RinkData>& rinkData);
  /// Selects the notice and scrolls to it. Null, or one that isn't in the list, selects none. While the list
  /// is out of date this waits for it.
  void selectNotice(std::shared_ptr<const Notice> notice);

  const NoticeList& noticeList() const { return noticeList_; }
  const std::vector<double>& offsets() const { return layout_.offsets(); }
  const std::shared_ptr<const Notice>& selectedNotice() const { return selectedNotice_; }
  /// True for the first responder of the main window; it chooses the selection's colour.
  bool isActive() const { return isActive_; }

  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void focusAccessible(const QString& id) override;

  void loadData() override;
  /// Fits the view to the width around it, and to its rows. Not the toolkit's operation of this name.
  void adjustSize();
  /// Stops observing; final. Not the toolkit's operation of this name.
  void close();

 protected:
  void draw(QPainter& painter, const Rect& dirty) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void noticesChanged(const Notification& notification);
  void attachToParent();
  void measureRows(double width);
  void drawMessage(QPainter& painter) const;
  void drawRow(QPainter& painter, std::size_t row) const;
  std::optional<std::size_t> rowOf(const std::shared_ptr<const Notice>& notice) const;
  void redrawRowOf(const std::shared_ptr<const Notice>& notice);
  void updateActive();

  static constexpr double kNotMeasured = -1.0;

  std::weak_ptr<RinkData> rinkData_;
  NoticeList noticeList_;
  NoticeLayout layout_;
  double measuredWidth_ = kNotMeasured;  ///< that the layout is for
  std::shared_ptr<const Notice> selectedNotice_;
  std::shared_ptr<const Notice> noticeToSelect_;
  bool isFirstResponder_ = false;
  bool isActive_ = false;
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
