#pragma once
#include <QWidget>

#include "ui/NamedColors.h"

namespace tarvel {

/// A surface with rounded corners and a thin border around whatever is laid out in it.
class ContentBox : public QWidget {
  Q_OBJECT
 public:
  ContentBox(NamedColor background, QWidget* parent) : QWidget(parent), background_(background) {}

  /// From here on the border tells when that view in the box, which shows no focus of its own, has the
  /// keyboard's. The view lives as long as the box.
  void showFocusOf(QWidget& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool showsFocus() const;

  NamedColor background_;
  const QWidget* focusView_ = nullptr;
};

}  // namespace tarvel
