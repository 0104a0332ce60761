#pragma once
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "auxwindows/RefreshDelegateProtocol.h"
#include "auxwindows/WindowContext.h"

namespace tarvel {

class Popover;

/// What the popovers of refresh and of caution share: the content of a popover that shows when a thing was
/// last refreshed and when it will be next, counts the seconds where there are few, and has a button to
/// refresh it now. It watches the thing, and when an error comes or goes it closes its popover and has the
/// delegate open the other kind at the same button.
///
/// Owned by the popover as its content. The opener sets the first four members and calls `awakeFromNib`
/// before it shows the popover, and `close` once that has closed. Main thread.
class StatusPopoverViewController : public QWidget, public TimeDelegateProtocol {
  Q_OBJECT
 public:
  ~StatusPopoverViewController() override;

  std::shared_ptr<RefreshableProtocol> dataSource;
  QWidget* button = nullptr;                    ///< the view that the popover points at, and closes with
  Popover* popover = nullptr;                   ///< the one that shows this
  RefreshDelegateProtocol* delegate = nullptr;  ///< not owned; none after `close`

  /// Registers with clock and notification centre and fills the fields.
  virtual void awakeFromNib();
  /// Stops observing and ticking; final. Not the toolkit's operation of this name.
  void close();

  void updateTimeWithNow(Instant now) override;
  /// The button's action; nothing while a refresh runs.
  void refreshNow();
  /// Whether each tick brings the texts up to date.
  bool frequentUpdates() const { return frequentUpdates_; }

  QLabel& nameField() const { return *nameField_; }
  QLabel& lastRefreshTimeField() const { return *lastRefreshTimeField_; }
  QLabel& nextRefreshTimeField() const { return *nextRefreshTimeField_; }
  QPushButton& refreshNowButton() const { return *refreshNowButton_; }

 protected:
  /// `className` is a constant text: what the list of observers calls this.
  StatusPopoverViewController(const WindowContext& context, std::string_view className, int width);

  /// The place above the times, for what only one of the popovers shows.
  QVBoxLayout& messagePlace() const { return *messagePlace_; }
  QHBoxLayout& nameRow() const { return *nameRow_; }
  /// Whether this is the popover for a thing that stands so.
  virtual bool isFor(DownloadErrorKind errorKind) const = 0;
  /// Of the texts, the last refresh before and the next after.
  virtual void updateMessage() {}
  /// The thing's status has changed and this popover is still the one for it; the texts are up to date.
  virtual void statusUpdated() {}
  void changeEvent(QEvent* event) override;

 private:
  QLabel* addTimeRow(class QGridLayout& grid, int row, const QString& caption);
  void colorCaptions();
  void update();
  void updateLastRefresh();
  void updateNextRefresh();
  void statusChanged(const Notification& notification);

  Services services_;
  ClockTimer& clockTimer_;
  ObserverCensus& observerCensus_;
  std::string_view className_;
  std::vector<Observation> observations_;
  bool frequentUpdates_ = false;
  QHBoxLayout* nameRow_;
  QLabel* nameField_;
  QVBoxLayout* messagePlace_;
  QLabel* lastRefreshTimeField_;
  QLabel* nextRefreshTimeField_;
  QPushButton* refreshNowButton_;
  std::vector<QLabel*> captions_;
};

}  // namespace tarvel
