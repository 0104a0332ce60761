#pragma once
class QWidget;

namespace tarvel {

/// How a window looks: dark text on light surfaces, or the other way round.
enum class Appearance { light, dark };

/// What the view's window shows: its own choice if it has made one, else the application's. Null gives the
/// application's. Printing is always light, whatever the screen shows. Main thread.
Appearance appearanceOf(const QWidget* view);

}  // namespace tarvel
