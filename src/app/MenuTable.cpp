#include "app/MenuTable.h"

namespace tarvel {
namespace {

const MenuItem kDivider{};

QKeySequence ctrl(int key) {
  return QKeySequence(Qt::CTRL | Qt::Key(key));
}

QList<QKeySequence> ctrlShift(int key) {
  return {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key(key))};
}

Menu applicationMenu() {
  return {"&Tarvel",
          {
              {"Check for App Update…", {"checkForAppUpdate:"}},
              {"Visit App Website", {"visitAppWebsite:"}},
              kDivider,
              {"Server Address…", {"tarvelURLWindow:"}, {ctrl(Qt::Key_Comma)}},
              {"Kiosk Mode", {"toggleKioskMode:"}},
              {"Show Debug Menu", {"toggleDebugMenu:"}},
              kDivider,
              {"Quit Tarvel", {"quitApplication:"}, {ctrl(Qt::Key_Q)}},
          }};
}

Menu fileMenu() {
  return {"&File",
          {
              {"Refresh", {"refreshNow:"}, {QKeySequence(Qt::Key_F5)}},
              {"Refresh Rink List", {"masterRefresh:"}, {QKeySequence(Qt::SHIFT | Qt::Key_F5)}},
              kDivider,
              {"Print…", {"printWindow:"}, {ctrl(Qt::Key_P)}},
              kDivider,
              {"Close", {"performClose:"}, {ctrl(Qt::Key_W)}},
              {"Close All Windows", {"closeAllWindows:"}, ctrlShift(Qt::Key_W)},
          }};
}

Menu editMenu() {
  return {"&Edit",
          {
              {"Undo", {"undo:"}, {ctrl(Qt::Key_Z)}},
              {"Redo", {"redo:"}, ctrlShift(Qt::Key_Z)},
              kDivider,
              {"Copy", {"copyAsText:"}, {ctrl(Qt::Key_C)}},
          }};
}

Menu viewMenu() {
  return {"&View",
          {
              {"Info", {"selectPane:", 0}, {ctrl(Qt::Key_1)}},
              {"Schedule", {"selectPane:", 1}, {ctrl(Qt::Key_2)}},
              {"Notices", {"selectPane:", 2}, {ctrl(Qt::Key_3)}},
              {"Photos", {"selectPane:", 3}, {ctrl(Qt::Key_4)}},
              kDivider,
              {"Rink List", {"toggleShowRinks:"}, ctrlShift(Qt::Key_R)},
              {"Calendar", {"toggleShowCalendar:"}, ctrlShift(Qt::Key_C)},
              kDivider,
              {"Previous", {"prev:"}, {ctrl(Qt::Key_Left)}},
              {"Now", {"gotoNow:"}, {ctrl(Qt::Key_T)}},
              {"Next", {"next:"}, {ctrl(Qt::Key_Right)}},
              kDivider,
              {"Larger Text", {"increaseTextSize:"}, {ctrl(Qt::Key_Plus), ctrl(Qt::Key_Equal)}},
              {"Smaller Text", {"decreaseTextSize:"}, {ctrl(Qt::Key_Minus)}},
              kDivider,
              {"Visit Rink Website", {"visitWebsite:"}},
              {"Show Rink on Map", {"locateOnMap:"}},
          }};
}

Menu windowMenu() {
  return {"&Window",
          {
              {"Main Window", {"mainWindow:"}, ctrlShift(Qt::Key_M)},
              {"Today Window", {"todayWindow:"}, ctrlShift(Qt::Key_T)},
              kDivider,
              {"Zoom", {"performZoom:"}},
          }};
}

}  // namespace

std::span<const Menu> menuTable() {
  static const std::vector<Menu> table{applicationMenu(), fileMenu(), editMenu(), viewMenu(), windowMenu()};
  return table;
}

const Menu& debugMenu() {
  static const Menu menu{"&Debug",
                         {
                             {"Debug Window", {"debugWindow:"}},
                             {"Error Log Window", {"errorLogWindow:"}},
                             {"Clock", {"clockWindow:"}},
                             {"Free Memory", {"freeMemory:"}},
                         }};
  return menu;
}

}  // namespace tarvel
