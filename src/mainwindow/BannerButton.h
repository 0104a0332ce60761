#pragma once
#include <QAbstractButton>
#include <string_view>

namespace tarvel {

/// A button on the banner: a white symbol, on a paler field while the mouse is on it. A click doesn't take
/// the keyboard from the view that has it; the tab key reaches the button. Main thread.
class BannerButton : public QAbstractButton {
  Q_OBJECT
 public:
  /// The symbol is a name of the assets, of a constant text; `name` says to screen readers, and in the
  /// tooltip, what the button does.
  BannerButton(std::string_view symbol, const QString& name, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  std::string_view symbol_;
};

}  // namespace tarvel
