#include "ui/RinkImage.h"

#include <QPainter>
#include <QPixmapCache>
#include <cmath>

#include "platform/qt/QtImage.h"
#include "ui/PixelBox.h"

namespace tarvel {

namespace {

/// Versions of one photo differ by the rounding of their sizes; what differs by more is another picture.
constexpr double kVisibleDistortion = 1.03;

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

void drawScaled(QPainter& painter, const QImage& picture, const QRectF& target) {
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
}

/// The largest rectangle of those proportions in the middle of `rect`.
Rect fitted(Size proportions, const Rect& rect) {
  const double scale = std::min(rect.width / proportions.width, rect.height / proportions.height);
  const double width = scale * proportions.width;
  const double height = scale * proportions.height;
  return {rect.x + (rect.width - width) * 0.5, rect.y + (rect.height - height) * 0.5, width, height};
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
  drawScaled(painter, decoded->picture(), {place.x, place.y, place.width, place.height});
  return place;
}

void drawImageFilling(QPainter& painter, const Image& image, const Rect& rect) {
  const auto* decoded = dynamic_cast<const QtImage*>(&image);
  if (!decoded || rect.empty()) return;
  const Size size = decoded->pixelSize();
  const double distortion = (rect.width / rect.height) / (size.width / size.height);
  const bool same = distortion < kVisibleDistortion && distortion > 1.0 / kVisibleDistortion;
  const Rect place = same ? rect : fitted(size, rect);
  drawScaled(painter, decoded->picture(),
             PixelBox(painter, {place.x, place.y, place.width, place.height}).aligned());
}

}  // namespace tarvel
