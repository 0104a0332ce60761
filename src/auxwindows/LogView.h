#pragma once
#include <QPointer>
#include <vector>

#include "auxwindows/LogRow.h"
#include "foundation/InstanceCounter.h"
#include "foundation/ObserverCensus.h"
#include "ui/AccessibleView.h"
#include "ui/ScrollableView.h"

class QAbstractButton;

namespace tarvel {

/// Rows of text, one line each, in a scroll area of its own making. Only the rows that need painting are laid
/// out, so that a long log costs no more than a short one. The arrow and page keys scroll it; for those who
/// go to it by the keyboard the arrows up and down lead from row to row. Main thread.
class LogView : public ScrollableView, public AccessibleView, Counted<LogView> {
  Q_OBJECT
 public:
  using Counted<LogView>::liveCount;

  static constexpr double lineHeight = 18.0;  ///< of a row, where texts have their ordinary size
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

  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void focusAccessible(const QString& id) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void adjustSize();
  void updateClearLogButton();
  void updateScrollBarColor();
  static double rowHeight();
  double rowsHeight() const { return rowHeight() * double(messages_.size()) + kTopMargin; }
  double rowY(std::size_t row) const { return kTopMargin + double(row) * rowHeight(); }
  void focusRow(std::size_t row);
  /// Whether there was a row to go to.
  bool focusNeighbour(int key);
  void drawRow(QPainter& painter, std::size_t row) const;

  QPointer<QAbstractButton> clearLogButton_;
  std::vector<Message> messages_;
  std::size_t focusedRow_ = 0;  ///< may lie beyond the last
  Observation checkObservation_;
  bool isClosing_ = false;
};

}  // namespace tarvel
