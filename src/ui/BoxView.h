#pragma once
#include <QWidget>
#include <optional>

#include "foundation/InstanceCounter.h"
#include "ui/NamedColors.h"

namespace tarvel {

/// The sides along which a box has a line. y grows downwards, and "top" is the side with the largest y: its
/// line runs along the lower edge of what is seen, that of `bottom` along the upper one. The line of `left`
/// runs across the box, from its upper left corner to its lower right one.
struct BoxEdges {
  bool left = false;
  bool right = false;
  bool top = false;
  bool bottom = false;
  friend constexpr bool operator==(const BoxEdges&, const BoxEdges&) = default;
};

/// Takes a box's mouse presses in its place. Outlives its charge of the box.
class BoxViewDelegate {
 public:
  virtual ~BoxViewDelegate() = default;
  virtual void mouseDown(QMouseEvent& event) = 0;
  virtual void rightMouseDown(QMouseEvent& event) = 0;
};

/// A background with a frame, each of which may be left out. Main thread.
class BoxView : public QWidget, Counted<BoxView> {
  Q_OBJECT
 public:
  using Counted<BoxView>::liveCount;

  explicit BoxView(QWidget* parent = nullptr);

  /// None lets what lies behind show through.
  void setBgColor(std::optional<ColorSource> color);
  const std::optional<ColorSource>& bgColor() const { return bgColor_; }
  /// Of the lines; with none there are none.
  void setFrameColor(std::optional<ColorSource> color);
  const std::optional<ColorSource>& frameColor() const { return frameColor_; }
  /// None, as at the start, gives the whole frame.
  void setBoxEdges(std::optional<BoxEdges> edges);
  const std::optional<BoxEdges>& boxEdges() const { return boxEdges_; }
  /// In logical pixels; 0 at the start. No line that is drawn is thinner than a device pixel.
  void setLineWidth(double width);
  double lineWidth() const { return lineWidth_; }
  /// Rounds the background alone, never the lines.
  void setCornerRadius(std::optional<double> radius);
  const std::optional<double>& cornerRadius() const { return cornerRadius_; }
  /// Whether the box takes the keyboard focus; false at the start.
  void setAllowFirstResponder(bool allow);
  bool allowFirstResponder() const { return focusPolicy() != Qt::NoFocus; }
  /// Not owned; null lets the presses go on to whoever stands behind the box.
  void setDelegate(BoxViewDelegate* delegate) { delegate_ = delegate; }
  BoxViewDelegate* delegate() const { return delegate_; }
  bool isOpaque() const { return bgColor_.has_value(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void noteOpacity();
  void paintBackground(QPainter& painter) const;
  void paintFrame(QPainter& painter, const QColor& color) const;
  void paintEdges(QPainter& painter, const BoxEdges& edges, const QColor& color) const;

  std::optional<ColorSource> bgColor_;
  std::optional<ColorSource> frameColor_;
  std::optional<BoxEdges> boxEdges_;
  double lineWidth_ = 0.0;
  std::optional<double> cornerRadius_;
  BoxViewDelegate* delegate_ = nullptr;
};

}  // namespace tarvel
