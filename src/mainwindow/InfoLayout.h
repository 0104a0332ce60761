#pragma once
#include "platform/Geometry.h"

namespace tarvel {

/// Where the info pane has its views: a card of logo, text and buttons, and the photo at its right. The card
/// stands in the middle while there is no photo. y grows downwards.
class InfoLayout {
 public:
  enum class Photo { none, shown };

  static constexpr double kMargin = 8.0;    ///< between the pane and its box
  static constexpr double kPadding = 32.0;  ///< between the box and what stands in it, and card and photo
  static constexpr double kLogoSize = 128.0;
  static constexpr double kGap = 16.0;  ///< between logo, text and buttons
  static constexpr double kButtonGap = 8.0;

  /// Of that pane.
  InfoLayout(Size pane, Photo photo) : pane_(pane), photo_(photo) {}

  Rect box() const;
  /// The width that the text can take at the most.
  double textWidth() const;
  /// The place of the photo, also while none is shown: its size decides which version is wanted.
  Rect photoRect() const;

  /// What the card consists of; an empty size stands for what isn't there.
  struct Card {
    Size logo;
    Size text;
    Size website;
    Size locate;
  };
  struct CardPlaces {
    Rect logo;
    Rect text;
    Rect website;
    Rect locate;
  };
  CardPlaces place(const Card& card) const;
  /// How high the text can be at the most beside the rest of the card.
  double textHeight(const Card& card) const;

 private:
  Rect content() const { return box().inset(kPadding, kPadding); }
  double cardWidth() const;

  Size pane_;
  Photo photo_;
};

}  // namespace tarvel
