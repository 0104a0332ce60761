#pragma once
#include <QLabel>

#include "ui/AttributedText.h"

namespace tarvel {

/// A plain text in one look that takes its colour from the window's appearance. A text too long for its room
/// ends in an ellipsis and can be read in full in the tooltip.
class TextLabel : public QLabel {
  Q_OBJECT
 public:
  enum class Lines { one, several };

  TextLabel(const TextAttributes& attributes, Lines lines, QWidget* parent = nullptr);
  void setTextUtf8(const std::string& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return lines_ == Lines::several; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  AttributedText attributedText() const { return {text(), attributes_}; }

  TextAttributes attributes_;
  Lines lines_;
};

}  // namespace tarvel
