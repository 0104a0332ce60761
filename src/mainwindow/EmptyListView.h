#pragma once
#include <QWidget>

#include "auxwindows/WindowContext.h"
#include "mainwindow/TextLabel.h"

class QPushButton;

namespace tarvel {

/// What stands in place of the rinks while the catalogue has none, at a first start without a network, say:
/// how that is, which server was asked, and what can be done about it. Main thread.
class EmptyListView : public QWidget {
  Q_OBJECT
 public:
  EmptyListView(const WindowContext& context, QWidget* parent);
  /// Fills the view anew, by how the catalogue's refreshes stand.
  void updateContent();

  QString message() const { return message_->text(); }
  QPushButton& tryNowButton() const { return *tryNowButton_; }
  QPushButton& serverAddressButton() const { return *serverAddressButton_; }

 private:
  DataModel& dataModel_;
  TextLabel* message_;
  QPushButton* tryNowButton_;
  QPushButton* serverAddressButton_;
};

}  // namespace tarvel
