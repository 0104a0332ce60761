#pragma once
#include <QImage>
#include <QPaintEvent>
#include <QWidget>

namespace tarvel::test {

/// What no view paints of itself.
inline const QColor kUntouched{255, 0, 255};

/// The view's own painting, without what lies behind it, at so many device pixels to a logical one.
inline QImage painted(QWidget& view, double devicePixelRatio = 1.0) {
  QImage image(view.size() * devicePixelRatio, QImage::Format_RGB32);
  image.setDevicePixelRatio(devicePixelRatio);
  image.fill(kUntouched);
  view.render(&image, {}, {}, QWidget::RenderFlags());
  return image;
}

/// The smallest rectangle with all pixels for which `isInk` holds.
template <class IsInk>
QRect inkOf(const QImage& image, IsInk isInk) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      if (isInk(image.pixelColor(x, y))) ink |= QRect(x, y, 1, 1);
  }
  return ink;
}

/// What a view, of which it is an event filter, repaints.
struct Repaints : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    ++count;
    region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  int count = 0;
  QRegion region;
};

}  // namespace tarvel::test
