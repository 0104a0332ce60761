#pragma once
#include <QWidget>

#include "mainwindow/MainWindowPane.h"
#include "ui/IconButton.h"

namespace tarvel {

class SegmentedControl;
class TextLabel;

/// The controls of the title row that come and go with the pane.
enum class TitleRowControl { back, refreshRink, gotoPrev, gotoNow, gotoNext, showCalendar };

/// The row of controls over the window's panes: which pane shows, how current the rink is, and the way
/// through the weeks, days or photos. It shows what it is told and says what was clicked. A new pane shows no
/// other controls by itself. Owned by the window's controller; main thread.
class MainTitleRow : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kHeight = 48;

  explicit MainTitleRow(QWidget* parent);

  /// Selects its segment and places the controls for it.
  void setPane(MainWindowPane pane);
  /// The calendar's button takes its label along.
  void setControlVisible(TitleRowControl control, bool visible);
  void setControlEnabled(TitleRowControl control, bool enabled);
  /// For tooltip and screen reader, where what the control does depends on what is shown.
  void setControlName(TitleRowControl control, const QString& name);
  /// "Gallery", or whatever the user goes back to. Places the controls anew.
  void setBackTitle(const QString& title);
  /// The warning sign, or that of refreshing.
  void setRefreshIcon(bool caution);
  /// The button of what is open has the accent's colour.
  void setShowRinks(bool shown);
  void setShowCalendar(bool shown);
  void layoutTitleBar();

  QSize sizeHint() const override;

 signals:
  void toggleShowRinks();
  void paneChosen(int pane);
  void back();
  /// The button is where to show it.
  void showRefreshStatus(QWidget* button);
  /// On pressing, and again and again while held.
  void prev();
  void gotoNow();
  void next();
  void toggleShowCalendar();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  IconButton* makePageButton(std::string_view symbol, const QString& name);
  QPushButton* makeTextButton(const QString& title, const QString& help);
  void passSignalsOn();
  QPushButton* button(TitleRowControl control) const;

  MainWindowPane pane_ = MainWindowPane::info;
  IconButton* showRinksButton_;
  QPushButton* backButton_;
  SegmentedControl* paneControl_;
  IconButton* refreshRinkButton_;
  QPushButton* gotoNowButton_;
  IconButton* gotoPrevButton_;
  IconButton* gotoNextButton_;
  IconButton* showCalendarButton_;
  TextLabel* showCalendarLabel_;
};

}  // namespace tarvel
