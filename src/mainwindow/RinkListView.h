#pragma once
#include <functional>
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "schedule/MainStateWatch.h"
#include "ui/AccessibleView.h"
#include "ui/DataLoadingView.h"

namespace tarvel {

/// All rinks of the catalogue, a row each with logo and name, in a scroll area. Selecting a row selects the
/// rink of the window: "selection changed" follows.
class RinkListView : public DataLoadingView, public AccessibleView, Counted<RinkListView> {
  Q_OBJECT
 public:
  using Counted<RinkListView>::liveCount;
  static constexpr double kRowHeight = 76.0;

  explicit RinkListView(const WindowContext& context, QWidget* parent = nullptr);

  const std::vector<std::shared_ptr<RinkInfo>>& rinks() const { return rinks_; }
  const std::shared_ptr<RinkInfo>& selectedRink() const { return selectedRink_; }
  /// Selects and scrolls to the rink's row; null selects none.
  void selectRink(const std::shared_ptr<RinkInfo>& rink);
  /// False while the list is closed: mouse and keys are then passed over.
  bool enabled = false;
  /// True for the first responder of the main window; it colours the selection.
  bool isActive() const { return isActive_; }
  /// Called when the list has been read anew; may be empty.
  std::function<void()> listLoaded;

  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void pressAccessible(const QString& id) override;
  void focusAccessible(const QString& id) override;

  void loadData() override;
  /// Fits the view to the room around it; not the toolkit's operation of this name. It runs when that room
  /// changes and at no other time: a list that grows shows short until then, as its users know it.
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
  enum class Neighbour { above, below };

  void drawRow(QPainter& painter, RinkInfo& rink, double y) const;
  std::shared_ptr<RinkInfo> rinkAt(double y) const;
  std::shared_ptr<RinkInfo> rinkOf(const QString& id) const;
  void choose(const std::shared_ptr<RinkInfo>& rink);
  void selectNeighbour(Neighbour neighbour);
  void attachToParent();
  void updateActive();

  DataModel& dataModel_;
  ApplicationProtocol& application_;
  std::vector<std::shared_ptr<RinkInfo>> rinks_;
  std::shared_ptr<RinkInfo> selectedRink_;
  bool isFirstResponder_ = false;
  bool isActive_ = false;
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
