#pragma once

namespace tarvel {

enum class TextAlignment { left, centred, right };

/// How the lines of a paragraph stand; a paragraph ends at a newline. Lengths are logical pixels.
struct ParagraphStyle {
  TextAlignment alignment = TextAlignment::left;
  double spacing = 0.0;             ///< below every paragraph that another follows
  double lineHeightMultiple = 1.0;  ///< the room beyond the font's own height comes above the line
  friend constexpr bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

// The styles that all texts of the application share.
inline constexpr ParagraphStyle kLeftStyle{};
inline constexpr ParagraphStyle kCentredStyle{TextAlignment::centred};
inline constexpr ParagraphStyle kRightStyle{TextAlignment::right};
inline constexpr ParagraphStyle kLeftSpacing6Style{TextAlignment::left, 6.0};
inline constexpr ParagraphStyle kLeftSpacing3Style{TextAlignment::left, 3.0};
inline constexpr ParagraphStyle kLeftLineHeight13Style{TextAlignment::left, 0.0, 1.3};
inline constexpr ParagraphStyle kLeftLineHeight20Style{TextAlignment::left, 0.0, 2.0};

}  // namespace tarvel
