#include "todaywindow/KioskScreens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace tarvel {

std::vector<KioskScreen> inKioskOrder(std::vector<KioskScreen> screens) {
  std::stable_sort(screens.begin(), screens.end(),
                   [](const KioskScreen& a, const KioskScreen& b) { return a.frame.x > b.frame.x; });
  const auto main =
      std::find_if(screens.begin(), screens.end(), [](const KioskScreen& screen) { return screen.isMain; });
  if (main != screens.end()) std::rotate(main, main + 1, screens.end());
  return screens;
}

std::vector<KioskScreen> kioskScreens() {
  std::vector<KioskScreen> screens;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect place = screen->geometry();
    screens.push_back({screen->name().toStdString(),
                       {double(place.x()), double(place.y()), double(place.width()), double(place.height())},
                       screen == QGuiApplication::primaryScreen()});
  }
  return screens;
}

}  // namespace tarvel
