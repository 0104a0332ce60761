#include "ui/ScreenAreas.h"

#include <QGuiApplication>
#include <QScreen>

namespace tarvel {

namespace {

Rect plain(const QRect& rect) {
  return {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())};
}

Rect primaryScreen() {
  const QScreen* primary = QGuiApplication::primaryScreen();
  return primary ? plain(primary->geometry()) : Rect{};
}

}  // namespace

std::vector<ScreenArea> screenAreas() {
  const QScreen* primary = QGuiApplication::primaryScreen();
  std::vector<ScreenArea> areas;
  if (primary) areas.push_back(screenAreaOf(primary));
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (screen != primary) areas.push_back(screenAreaOf(screen));
  }
  return areas;
}

ScreenArea screenAreaOf(const QScreen* screen) {
  if (!screen) screen = QGuiApplication::primaryScreen();
  if (!screen) return {};
  return {fromToolkit(screen->geometry()), fromToolkit(screen->availableGeometry())};
}

Rect fromToolkit(const QRect& rect) {
  return windowPlace(plain(rect), primaryScreen());
}

QRect toToolkit(const Rect& place) {
  const Rect rect = toolkitRect(place, primaryScreen());
  return QRectF(rect.x, rect.y, rect.width, rect.height).toRect();
}

}  // namespace tarvel
