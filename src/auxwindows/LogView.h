#pragma once
#include <QPointer>
#include <vector>

#include "auxwindows/LogRow.h"
#include "foundation/InstanceCounter.h"
#include "foundation/ObserverCensus.h"
#include "ui/ScrollableView.h"

class QAbstractButton;

namespace tarvel {

/// Rows of text, one line each, in a scroll area of its own making. Only the rows that need painting are laid
/// out, so that a long log costs no more than a short one. The arrow and page keys scroll it. Main thread.
class LogView : public ScrollableView, Counted<LogView> {
  Q_OBJECT
 public:
  using Counted<LogView>::liveCount;

  static constexpr double lineHeight = 18.0;
  static constexpr double kTopMargin = 6.0;

  /// Centre and census outlive the view. `name` is what a screen reader calls it.
  LogView(NotificationCenter& notifications, ObserverCensus& census, const QString& name, QWidget* parent);
  /// Makes a scroll area around a new view. The area owns it.
  static LogView* createInScrollArea(NotificationCenter& notifications, ObserverCensus& census,
                                     const QString& name, QWidget* parent);
  QScrollArea& scrollArea() const { return *enclosingScrollArea(); }

  bool changed = false;          ///< the rows are not those that stand in what the view was made of
  bool scrollsToBottom = false;  ///< new rows bring the last one into sight, and not the first
  /// Enabled while there are rows; may be null.
  void setClearLogButton(QAbstractButton* button);

  void setMessages(std::vector<Message> rows);
  const std::vector<Message>& messages() const { return messages_; }
  /// Puts all rows on the clipboard as plain text, each ended by a newline.
  void copyAsText() const;
  void clearLog();
  /// From here on nothing is drawn or heard of.
  void close();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void adjustSize();
  void updateClearLogButton();
  double rowsHeight() const { return lineHeight * double(messages_.size()) + kTopMargin; }
  void drawRow(QPainter& painter, std::size_t row) const;

  QPointer<QAbstractButton> clearLogButton_;
  std::vector<Message> messages_;
  Observation checkObservation_;
  bool isClosing_ = false;
};

}  // namespace tarvel
