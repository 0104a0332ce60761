#pragma once
#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <string_view>

namespace tarvel {

/// Makes the compiled-in assets known to Qt. Once, before the first icon.
void initAssets();

/// A symbol of the assets drawn in the colour, `size` logical pixels square, sharp at the ratio of device
/// pixels to logical ones. The names are those of the files: "caution", "refresh", "gear",
/// "checkmark-circle", "exclamation-triangle", "sidebar-left", "calendar", "chevron-left", "chevron-right",
/// "close". An unknown name stops the program. Drawn once and kept.
QPixmap icon(std::string_view name, const QColor& color, double size, double devicePixelRatio);
/// The same for buttons and menus, which ask for their pixels themselves; paler while disabled.
QIcon buttonIcon(std::string_view name, const QColor& color, double size);
/// The application's own, in its colours.
QIcon applicationIcon();

}  // namespace tarvel
