#pragma once
#include <QColor>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "platform/Color.h"
#include "ui/Appearance.h"

class QWidget;

namespace tarvel {

/// A colour of the application's table, by its name. It is looked up where it is used, since its value
/// depends on the appearance of the window.
struct NamedColor {
  std::string_view name;
  friend constexpr bool operator==(const NamedColor&, const NamedColor&) = default;
};

// Surfaces and what stands on them.
inline constexpr NamedColor kScheduleBackground{"schedule background"};
inline constexpr NamedColor kScheduleGrid{"schedule grid"};
inline constexpr NamedColor kFaintScheduleGrid{"faint schedule grid"};
inline constexpr NamedColor kScheduleColumns{"schedule columns"};  ///< the lines between the days or venues
inline constexpr NamedColor kTodayBackground{"today background"};
inline constexpr NamedColor kPastBlend{"past blend"};  ///< translucent; laid over what is past
inline constexpr NamedColor kContentBackground{"content background"};
inline constexpr NamedColor kContentBackground2{"content background 2"};
inline constexpr NamedColor kContentBorder{"content border"};
inline constexpr NamedColor kInactiveSelectedContentFill{"inactive selected content fill"};
inline constexpr NamedColor kInactiveSelectedContentFrame{"inactive selected content frame"};
inline constexpr NamedColor kControlTrack{"control track"};  ///< what a control's movable part lies in
inline constexpr NamedColor kControlSurface{
    "control surface"};  ///< of buttons and such parts; lighter than it
// The colours of the system's own controls and texts.
inline constexpr NamedColor kLabel{"label"};
inline constexpr NamedColor kSecondaryLabel{"secondary label"};
inline constexpr NamedColor kTertiaryLabel{"tertiary label"};
inline constexpr NamedColor kSelectedContentBackground{"selected content background"};  ///< bears white text
inline constexpr NamedColor kGrid{"grid"};
inline constexpr NamedColor kControlAccent{"control accent"};
inline constexpr NamedColor kKeyboardFocusIndicator{"keyboard focus indicator"};
inline constexpr NamedColor kSystemRed{"system red"};
inline constexpr NamedColor kSystemYellow{"system yellow"};  ///< for symbols; too light for text
inline constexpr NamedColor kSystemGreen{"system green"};

/// How far apart light and dark are to be. Standard keeps texts at 4.5:1 from their surfaces, high at 7:1.
enum class Contrast { standard, high };

/// The colour's value. A name that the table lacks stops the program.
QColor color(NamedColor name, Appearance appearance);
/// The value for the window that the view stands in.
QColor color(NamedColor name, const QWidget* view);
/// Looks up every colour that the views share, so that one that is missing stops the program at its launch.
void checkNamedColors();
/// The desktop's own accent: it takes the place of the accent, selection and focus colours where white text
/// stays readable on it, and is passed over otherwise, and in high contrast. None returns to the table's.
void setDesktopAccent(std::optional<QColor> accent);
/// From here on the table gives the colours of that contrast. Whoever shows some has to draw again.
void setContrast(Contrast contrast);
Contrast contrast();
/// All names, in the order of the table.
std::span<const NamedColor> allNamedColors();

QColor toQColor(const Color& value);
/// From 1.0 for equal brightness to 21.0 for black and white; text is easily read from 4.5 on. Opaque
/// colours.
double contrastRatio(const QColor& a, const QColor& b);

/// A colour of the table or a fixed one: what texts and boxes hold.
class ColorSource {
 public:
  ColorSource(NamedColor name) : value_(name) {}
  ColorSource(QColor fixed) : value_(fixed) {}
  ColorSource(const Color& fixed) : value_(toQColor(fixed)) {}
  QColor resolve(Appearance appearance) const;
  friend bool operator==(const ColorSource&, const ColorSource&) = default;

 private:
  std::variant<NamedColor, QColor> value_;
};

}  // namespace tarvel
