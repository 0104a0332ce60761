#pragma once
#include <functional>

#include "schedule/SchedulePrinting.h"

class QWidget;

namespace tarvel {

/// Asks for a printer or a file in the desktop's dialog, over the window that the view stands in, and has
/// `print` called when the user agrees and the view is still there. Returns at once. What goes wrong is told
/// in a message over the window.
void openPrintDialog(QWidget& view, std::function<Status(QPagedPaintDevice&)> print);
/// The same for a schedule of the main window.
void openPrintDialog(QWidget& view, DataModel& dataModel, const ScheduleToPrint& schedule);

}  // namespace tarvel
