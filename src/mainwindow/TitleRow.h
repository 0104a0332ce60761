#pragma once
#include <QWidget>

#include "mainwindow/IconButton.h"
#include "mainwindow/RefreshStatusView.h"
#include "mainwindow/SchedulePane.h"
#include "mainwindow/TextLabel.h"

namespace tarvel {

/// The row of controls over the window's pane: the rink's name and the week, how current the rink is, and the
/// way through the weeks. It says what was clicked; its window's controller acts.
class TitleRow : public QWidget {
  Q_OBJECT
 public:
  TitleRow(const Services& services, QWidget* parent);

  void setRinkName(const std::string& name) { nameLabel_->setTextUtf8(name); }
  /// Without a rink there is nothing to refresh or to turn.
  void setControls(bool hasRink, const ScheduleControls& controls);
  void setShowRinks(bool shown);
  RefreshStatusView& refreshStatus() const { return *refreshStatus_; }
  /// For keys: the same as a click.
  void clickPrevious() { gotoPrevButton_->click(); }
  void clickNext() { gotoNextButton_->click(); }
  QString descriptionText() const { return descriptionLabel_->text(); }

 signals:
  void toggleShowRinks();
  void prev();
  void gotoNow();
  void next();

 private:
  IconButton* makePageButton(std::string_view symbol, const QString& name);

  IconButton* showRinksButton_;
  TextLabel* nameLabel_;
  TextLabel* descriptionLabel_;
  RefreshStatusView* refreshStatus_;
  IconButton* gotoPrevButton_;
  QPushButton* gotoNowButton_;
  IconButton* gotoNextButton_;
};

}  // namespace tarvel
