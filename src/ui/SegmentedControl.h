#pragma once
#include <QStringList>
#include <QWidget>
#include <vector>

class QButtonGroup;

namespace tarvel {

/// A few short choices side by side of which one is on: a track with a pill under the chosen one. The tab key
/// reaches the chosen segment and the arrow keys go to its neighbours; a click leaves the keyboard where it
/// is. Each segment is a control of its own to a screen reader; the owner names the whole by its accessible
/// name. Main thread.
class SegmentedControl : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kNone = -1;

  explicit SegmentedControl(QWidget* parent = nullptr);

  /// Plain texts, from the left. None of them is chosen then.
  void setSegments(const QStringList& titles);
  int segmentCount() const { return static_cast<int>(segments_.size()); }
  /// `kNone` while none is chosen.
  int selectedSegment() const;
  /// Says nothing to anyone. With an index that no segment has, none is chosen.
  void setSelectedSegment(int index);

  /// As large as its titles need.
  void sizeToFit() { resize(sizeHint()); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The user has chosen another segment than the one that was chosen, and it is the selected one already.
  void segmentChosen(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Segment;

  void clicked(int index);
  void placeSegments();
  void updateFocusPolicies();

  std::vector<Segment*> segments_;
  QButtonGroup* group_;
  int selected_ = kNone;
};

}  // namespace tarvel
