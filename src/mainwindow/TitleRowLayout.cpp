#include "mainwindow/TitleRowLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr double kLeftMargin = 12.0;
constexpr double kRightMargin = 8.0;
constexpr double kCalendarGap = 24.0;
constexpr double kCalendarLabelGap = 6.0;
constexpr double kPlainRightMargin = 12.0;  // without a calendar button
constexpr double kPagesGap = 8.0;
constexpr double kNowGap = 20.0;
constexpr double kPaneGap = 32.0;  // room for the refresh button
constexpr double kRefreshGap = 16.0;

/// In the middle of the bar's height.
Rect placed(const Rect& bar, double x, Size size) {
  return {x, bar.y + std::floor((bar.height - size.height) * 0.5), size.width, size.height};
}

}  // namespace

TitleRowLayout::TitleRowLayout(const TitleRowSizes& sizes) {
  const Rect& bar = sizes.bar;
  const double right = bar.maxX() - kRightMargin;
  const double left = bar.x + kLeftMargin;
  const bool onSchedule = sizes.pane == MainWindowPane::schedule;
  showRinksButton = placed(bar, left, sizes.showRinksButton);
  showCalendarLabel = placed(bar, right - sizes.showCalendarLabel.width, sizes.showCalendarLabel);
  showCalendarButton = placed(bar, showCalendarLabel.x - kCalendarLabelGap - sizes.showCalendarButton.width,
                              sizes.showCalendarButton);

  double limit = onSchedule ? showCalendarButton.x - kCalendarGap : right - kPlainRightMargin;
  if (onSchedule || sizes.pane == MainWindowPane::photos) {
    const double width = sizes.gotoNextButton.width;
    gotoNextButton = placed(bar, limit - width, sizes.gotoNextButton);
    gotoPrevButton = placed(bar, limit - 2 * width, sizes.gotoNextButton);
    limit -= 2 * width + kPagesGap;
  }
  if (onSchedule) {
    gotoNowButton = placed(bar, limit - sizes.gotoNowButton.width, sizes.gotoNowButton);
    limit = gotoNowButton->x - kNowGap;
  }

  const double paneWidth = sizes.paneControl.width;
  const double centre = left + (right - left - paneWidth) * 0.5;
  const double paneX = std::min(limit - paneWidth - kPaneGap, centre);
  paneControl = placed(bar, std::floor(paneX), sizes.paneControl);
  refreshRinkButton = placed(bar, paneX + paneWidth + kRefreshGap, sizes.refreshRinkButton);
  const double rinksEnd = left + sizes.showRinksButton.width;
  backButton =
      placed(bar, std::floor(rinksEnd + (paneX - rinksEnd - sizes.backButton.width) * 0.5), sizes.backButton);
}

}  // namespace tarvel
