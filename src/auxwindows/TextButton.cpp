#include "auxwindows/TextButton.h"

namespace tarvel {
namespace {

constexpr int kSideRoom = 8;

}  // namespace

QPushButton* makeTextButton(const QString& title, QWidget* parent) {
  auto* button = new QPushButton(title, parent);
  button->setAutoDefault(true);
  button->setMinimumWidth(button->sizeHint().width() + 2 * kSideRoom);
  return button;
}

}  // namespace tarvel
