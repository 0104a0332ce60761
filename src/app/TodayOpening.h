#pragma once

namespace tarvel {

class DataModel;
class MainWindowController;
class TodayWindowController;

/// Gives a Today window that is being opened its rink and venue: those that the main window shows, if there
/// is one, and otherwise, if the window has no rink yet, the catalogue's first. `main` may be null.
void giveRink(TodayWindowController& today, const MainWindowController* main, DataModel& dataModel);

}  // namespace tarvel
