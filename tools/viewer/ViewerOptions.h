#pragma once
#include <QPageSize>
#include <QSize>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "platform/Result.h"
#include "schedule/ItemPainter.h"
#include "schedule/ScheduleGrid.h"
#include "ui/Appearance.h"
#include "viewer/FolderHttpClient.h"

namespace tarvel::viewer {

enum class ShownView { week, day, calendar, header };

/// What the viewer is to show, and where it is to go.
struct ViewerOptions {
  std::string help;  ///< not empty when the user asked for it; nothing else counts then

  Path folder;
  std::optional<std::int64_t> rinkID;  ///< none for the first rink of the catalogue
  ShownView view = ShownView::week;
  std::vector<std::int64_t> venueIDs;  ///< empty for the rink's first, or in the form of a day all of them
  PackedDate shownDate = kNoDate;
  PackedDate today = kNoDate;  ///< at the rink
  int time = 0;                ///< minutes after the rink's midnight
  QSize size{1280, 800};       ///< logical pixels
  Appearance appearance = Appearance::light;
  double scale = 1.0;
  VerticalFit fit = VerticalFit::fit;
  double fontSize = 9.0;
  SessionTimes times = SessionTimes::hidden;
  WeekFiles weekFiles = WeekFiles::delivered;
  std::string png;  ///< empty for none; at most one of the two
  std::string pdf;
  QPageSize::PageSizeId paper = QPageSize::A4;

  /// Whether the schedule is one day of several venues, rather than one venue's week.
  bool isDaily() const;
  bool opensWindow() const { return png.empty() && pdf.empty(); }
};

/// Reads the command line, less the program's name. The error says what is wrong with which option.
Result<ViewerOptions> parseViewerOptions(std::vector<std::string> arguments);

}  // namespace tarvel::viewer
