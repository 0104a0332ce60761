#pragma once
#include <QWidget>
#include <string>

#include "ui/AttributedText.h"

namespace tarvel {

/// A line of text at the right end of its room, of a size that its owner chooses. It repaints when the text
/// is another one and at no other tick. Main thread.
class HeadlineField : public QWidget {
  Q_OBJECT
 public:
  HeadlineField(const TextAttributes& attributes, QWidget* parent);

  void setText(const std::string& text);
  const std::string& text() const { return text_; }
  void setFontSize(double size);
  const TextAttributes& attributes() const { return attributes_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TextAttributes attributes_;
  std::string text_;
};

}  // namespace tarvel
