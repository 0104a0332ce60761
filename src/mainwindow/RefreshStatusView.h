#pragma once
#include <QWidget>

#include "mainwindow/RefreshWatch.h"
#include "mainwindow/TextLabel.h"
#include "ui/IconButton.h"

namespace tarvel {

/// How current a thing is, in a short line, beside a button that tells more.
class RefreshStatusView : public QWidget {
  Q_OBJECT
 public:
  enum class Arrangement {
    textThenButton,  ///< one line, for a row
    buttonThenText,  ///< several lines where they are needed, for a narrow column
  };

  RefreshStatusView(const Services& services, Arrangement arrangement, QWidget* parent = nullptr);
  /// See `RefreshWatch::watch`.
  void watch(const void* poster, RefreshWatch::Thing thing) { watch_.watch(poster, std::move(thing)); }
  /// The button's action: to show more of how the thing stands; may be empty.
  std::function<void(QWidget& button)> clicked;
  /// Stops observing; final. Not the toolkit's operation of this name.
  void close() { watch_.stop(); }

  IconButton& button() const { return *button_; }
  QString statusText() const { return text_->text(); }

 private:
  void updateTexts();

  RefreshWatch watch_;
  IconButton* button_;
  TextLabel* text_;
};

}  // namespace tarvel
