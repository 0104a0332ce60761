#pragma once
#include <QWidget>

#include "mainwindow/EmptyListView.h"
#include "mainwindow/RefreshStatusView.h"
#include "mainwindow/RinkListView.h"

class QScrollArea;
class QStackedLayout;

namespace tarvel {

/// The window's left side: the list of rinks, or, while there are none, what can be done about that; and
/// under it how current the catalogue is.
class RinkSidebar : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kWidth = 240;

  RinkSidebar(const WindowContext& context, QWidget* parent);
  RinkListView& rinkListView() const { return *rinkListView_; }
  RefreshStatusView& refreshStatus() const { return *refreshStatus_; }
  EmptyListView& emptyList() const { return *emptyList_; }
  /// Stops observing; final. Not the toolkit's operation of this name.
  void close();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void updateTexts();

  DataModel& dataModel_;
  QScrollArea* rinkListScroller_;
  QStackedLayout* rinkListOrEmpty_;
  RinkListView* rinkListView_;
  EmptyListView* emptyList_;
  RefreshStatusView* refreshStatus_;
  RefreshWatch watch_;
};

}  // namespace tarvel
