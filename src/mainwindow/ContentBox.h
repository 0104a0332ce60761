#pragma once
#include <QWidget>

#include "ui/NamedColors.h"

namespace tarvel {

/// A surface with rounded corners and a thin border around whatever is laid out in it.
class ContentBox : public QWidget {
  Q_OBJECT
 public:
  ContentBox(NamedColor background, QWidget* parent) : QWidget(parent), background_(background) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  NamedColor background_;
};

}  // namespace tarvel
