#pragma once
#include <optional>

#include "platform/FileSystem.h"

namespace tarvel {

class AppController;
class ClockTimer;
class DataModel;
class MessageLog;

// The process-wide objects, owned by the `AppController`, which sets them in the order of the launch and
// clears them when it goes. Main thread. The rooms below get what they need by reference and know none of
// these.

extern std::optional<Path> gAppSupportURL;  ///< the application's folder
extern AppController* gAppController;
extern DataModel* gDataModel;  ///< null until the launch has read the state file
extern MessageLog* gErrorLog;
extern ClockTimer* gClockTimer;
extern bool gKioskMode;        ///< the next Today window takes a whole screen
extern double gMenuBarHeight;  ///< pixels

}  // namespace tarvel
