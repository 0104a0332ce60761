#pragma once
#include <optional>

#include "mainwindow/MainWindowPane.h"
#include "platform/Geometry.h"

namespace tarvel {

/// What the layout of the title row starts from: the row, the pane under it, and the sizes of the controls.
struct TitleRowSizes {
  Rect bar;
  MainWindowPane pane = MainWindowPane::info;
  Size showRinksButton;
  Size backButton;
  Size paneControl;
  Size refreshRinkButton;
  Size gotoNowButton;
  Size gotoNextButton;  ///< the one before has the same
  Size showCalendarButton;
  Size showCalendarLabel;
};

/// Where the controls of the title row lie: the choice of panes in the middle, or as near to it as the
/// controls at the right let it. A plain value that knows no toolkit; y grows downwards, in the coordinates
/// that the bar is given in.
struct TitleRowLayout {
  explicit TitleRowLayout(const TitleRowSizes& sizes);

  Rect showRinksButton;
  Rect backButton;
  Rect paneControl;
  Rect refreshRinkButton;
  Rect showCalendarButton;
  Rect showCalendarLabel;
  // None on the panes that have no use for them.
  std::optional<Rect> gotoNowButton;
  std::optional<Rect> gotoPrevButton;
  std::optional<Rect> gotoNextButton;
};

}  // namespace tarvel
