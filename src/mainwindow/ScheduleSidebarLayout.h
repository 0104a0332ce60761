#pragma once
#include <optional>

#include "platform/Geometry.h"

namespace tarvel {

/// What the layout of the schedule's sidebar starts from: its own size, and how large its parts would like to
/// be.
struct ScheduleSidebarSizes {
  Size sidebar;
  Size logo;
  Size viewOptionControl;
  int venueCount = 0;
  double textScale = 1.0;  ///< of the texts: venues and what the session box has to hold
  double widestVenueButton = 0.0;
  Size chimeLabel;
  Size chimePopUpButton;
  Size analogClockFace;
  Size digitalClock;
  Size adjustments;
};

/// Where everything of the schedule's sidebar lies. What is the same for every rink stands at the top and at
/// the bottom; of the rest, what has no room is left out: the clock face first, then the digital clock, then
/// the description of an item. A plain value that knows no toolkit; y grows downwards from the sidebar's top.
class ScheduleSidebarLayout {
 public:
  static constexpr double kLeftMargin = 8.0;  ///< what is centred is centred in the rest
  static constexpr double kVenueHeight = 18.0;
  static constexpr double kVenueStep = 24.0;
  /// An item's description needs that much, and gets it before a clock shows.
  static constexpr double kShortestItemInfo = 100.0;

  explicit ScheduleSidebarLayout(const ScheduleSidebarSizes& sizes);

  Rect scheduleLogoView;
  Rect scheduleViewOptionControl;
  /// What can be seen of the venues' buttons, over the sidebar's whole width: all of them, unless the sidebar
  /// is so low that they scroll.
  Rect venueArea;
  /// Of every button within that area.
  double venueButtonX = 0.0;
  double venueButtonWidth = 0.0;
  /// From the sidebar's top to below the last button that shows.
  double venueSelectionBottom = 0.0;
  Rect chimeLabel;
  Rect chimePopUpButton;
  Rect scheduleAdjustmentsView;
  // None while there is no room.
  std::optional<Rect> analogClockFace;
  std::optional<Rect> digitalClockContainer;
  std::optional<Rect> itemInfoField;

  /// Of all buttons, seen or not.
  static double venuesHeight(int venueCount, double textScale = 1.0);

 private:
  Rect centred(Size size, double y) const;
  void placeVenues(const ScheduleSidebarSizes& sizes);
  void placeClocksAndItemInfo(const ScheduleSidebarSizes& sizes);

  double width_;  ///< of what things are centred in
};

}  // namespace tarvel
