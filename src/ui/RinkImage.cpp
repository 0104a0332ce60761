#include "ui/RinkImage.h"

#include <QPainter>
#include <QPixmapCache>
#include <cmath>

#include "platform/qt/QtImage.h"

namespace tarvel {

namespace {

/// The picture at a size in device pixels, smoothly scaled down.
QPixmap scaled(const QImage& picture, QSize pixels) {
  const QString key =
      QStringLiteral("picture %1 %2x%3").arg(picture.cacheKey()).arg(pixels.width()).arg(pixels.height());
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = QPixmap::fromImage(picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

}  // namespace

Rect imagePlace(Size picture, const Rect& box) {
  if (picture.width <= 0.0 || picture.height <= 0.0 || box.empty()) return {};
  const double scale = std::min({box.width / picture.width, box.height / picture.height, 1.0});
  const double width = std::floor(scale * picture.width);
  const double height = std::floor(scale * picture.height);
  return {box.x + (box.width - width) * 0.5, box.y + (box.height - height) * 0.5, width, height};
}

Rect drawImage(QPainter& painter, const Image& image, const Rect& box) {
  const auto* decoded = dynamic_cast<const QtImage*>(&image);
  const Rect place = decoded ? imagePlace(decoded->pixelSize(), box) : Rect{};
  if (place.empty()) return {};
  const QImage& picture = decoded->picture();
  const QRectF target(place.x, place.y, place.width, place.height);
  const QSize pixels = painter.deviceTransform().mapRect(target).size().toSize();
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (pixels.isEmpty() || pixels.width() >= picture.width() || pixels.height() >= picture.height()) {
    painter.drawImage(target, picture);
  } else {
    const QPixmap pixmap = scaled(picture, pixels);
    painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
  }
  painter.restore();
  return place;
}

}  // namespace tarvel
