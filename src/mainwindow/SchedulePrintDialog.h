#pragma once
#include "schedule/SchedulePrinting.h"

class QWidget;

namespace tarvel {

/// Asks for a printer or a file in the desktop's dialog, over the window that the view stands in, and prints
/// the schedule when the user agrees. Returns at once. What goes wrong is told in a message over the window.
void openPrintDialog(QWidget& view, DataModel& dataModel, const ScheduleToPrint& schedule);

}  // namespace tarvel
