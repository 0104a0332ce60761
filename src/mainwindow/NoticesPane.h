#pragma once
#include "mainwindow/NoticesView.h"
#include "ui/WindowPane.h"

class QScrollArea;

namespace tarvel {

/// The pane with the rink's notices: `NoticesView` in its scroll area. Main thread.
class NoticesPane : public WindowPane {
  Q_OBJECT
 public:
  explicit NoticesPane(const WindowContext& context, QWidget* parent = nullptr);

  NoticesView& noticesView() const { return *noticesView_; }
  QScrollArea& scroller() const { return *scroller_; }
  /// Closes the view as well; final. Not the toolkit's operation of this name.
  void close();

 private:
  QScrollArea* scroller_;     ///< a child
  NoticesView* noticesView_;  ///< a child
};

}  // namespace tarvel
