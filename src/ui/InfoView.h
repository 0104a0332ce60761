#pragma once
#include <functional>
#include <optional>
#include <utility>

#include "ui/AttributedText.h"
#include "ui/BoxView.h"

namespace tarvel {

/// A box with a text in the middle of its height; what has no room is cut off with an ellipsis.
class InfoView : public BoxView, tarvel::Counted<InfoView> {
  Q_OBJECT
 public:
  using tarvel::Counted<InfoView>::liveCount;
  using DoubleClickAction = std::function<void(InfoView&)>;

  static constexpr double kSideMargin = 6.0;  ///< on both sides of the text

  explicit InfoView(QWidget* parent = nullptr);

  void setText(std::optional<AttributedText> text);
  const std::optional<AttributedText>& text() const { return text_; }
  /// Called with this view. What it refers to outlives its charge; an empty one takes it away, and double
  /// clicks are then those of any box.
  void setDoubleClickAction(DoubleClickAction action) { doubleClickAction_ = std::move(action); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  std::optional<AttributedText> text_;
  DoubleClickAction doubleClickAction_;
};

}  // namespace tarvel
