#include "ui/Icons.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>
#include <string>

#include "platform/FatalError.h"

// Qt's macro declares a function of the global namespace.
static void registerResource() {
  Q_INIT_RESOURCE(tarvel);
}

namespace tarvel {

namespace {

constexpr double kDisabledOpacity = 0.4;
constexpr double kScales[] = {1.0, 2.0, 3.0};
constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 128, 256};
constexpr int kLargestSmallIcon = 32;  ///< up to here the mark is drawn with fewer parts

QPixmap render(const QString& file, int pixels) {
  QSvgRenderer renderer(file);
  if (!renderer.isValid()) fatalError("no asset " + file.toStdString());
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(0, 0, pixels, pixels));
  return pixmap;
}

}  // namespace

void initAssets() {
  registerResource();
}

QPixmap icon(std::string_view name, const QColor& color, double size, double devicePixelRatio) {
  const auto pixels = static_cast<int>(std::lround(size * devicePixelRatio));
  const QString file =
      QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(name.data(), qsizetype(name.size())));
  const QString key =
      QStringLiteral("%1 %2 %3 %4").arg(file, color.name(QColor::HexArgb)).arg(pixels).arg(devicePixelRatio);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = render(file, pixels);
  {
    // The drawing is a mask: its shape takes the colour.
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
  }
  pixmap.setDevicePixelRatio(devicePixelRatio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

QIcon buttonIcon(std::string_view name, const QColor& color, double size) {
  QColor disabled = color;
  disabled.setAlphaF(static_cast<float>(color.alphaF() * kDisabledOpacity));
  QIcon result;
  for (const double scale : kScales) {
    result.addPixmap(icon(name, color, size, scale));
    result.addPixmap(icon(name, disabled, size, scale), QIcon::Disabled);
  }
  return result;
}

QIcon applicationIcon() {
  QIcon result;
  for (const int size : kIconSizes) {
    const bool small = size <= kLargestSmallIcon;
    result.addPixmap(
        render(small ? QStringLiteral(":/tarvel-small.svg") : QStringLiteral(":/tarvel.svg"), size));
  }
  return result;
}

}  // namespace tarvel
