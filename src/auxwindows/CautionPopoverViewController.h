#pragma once
#include <QPlainTextEdit>

#include "auxwindows/StatusPopoverViewController.h"

namespace tarvel {

/// The popover of a thing with an error: it shows the thing's error log, too, which scrolls and can be
/// selected and copied, and goes to the newest entry, its end, with each change of status.
class CautionPopoverViewController : public StatusPopoverViewController,
                                     private Counted<CautionPopoverViewController> {
  Q_OBJECT
 public:
  using Counted<CautionPopoverViewController>::liveCount;

  explicit CautionPopoverViewController(const WindowContext& context);

  void awakeFromNib() override;
  QPlainTextEdit& messageView() const { return *messageView_; }

 protected:
  bool isFor(DownloadErrorKind errorKind) const override { return errorKind != DownloadErrorKind::noError; }
  void updateMessage() override;
  void statusUpdated() override { scrollToEnd(); }
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void scrollToEnd();
  void updateColors();

  QLabel* symbol_;
  QPlainTextEdit* messageView_;
};

}  // namespace tarvel
