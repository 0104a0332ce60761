#include "app/Globals.h"

namespace tarvel {

std::optional<Path> gAppSupportURL;
AppController* gAppController = nullptr;
DataModel* gDataModel = nullptr;
MessageLog* gErrorLog = nullptr;
ClockTimer* gClockTimer = nullptr;
bool gKioskMode = false;
double gMenuBarHeight = 0.0;

}  // namespace tarvel
