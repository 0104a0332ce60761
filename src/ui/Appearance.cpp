#include "ui/Appearance.h"

#include "ui/SystemAppearance.h"
#include "ui/Window.h"

namespace tarvel {

Appearance appearanceOf(const QWidget* view) {
  for (const QWidget* widget = view; widget; widget = widget->parentWidget()) {
    const auto* window = qobject_cast<const Window*>(widget);
    if (window && window->chosenAppearance()) return *window->chosenAppearance();
  }
  const SystemAppearance* system = SystemAppearance::instance();
  return system ? system->current() : Appearance::light;
}

}  // namespace tarvel
