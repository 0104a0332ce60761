#include "ui/ImageDisplayView.h"

#include <QPainter>
#include <utility>

#include "ui/AccessibleFactory.h"
#include "ui/PixelBox.h"
#include "ui/RinkImage.h"

namespace tarvel {
namespace {

constexpr double kFrameLine = 1.0;

}  // namespace

ImageDisplayView::ImageDisplayView(QWidget* parent) : QWidget(parent) {
  setAccessibleRole(*this, QAccessible::Graphic);
}

void ImageDisplayView::setImageProvider(ImageProvider provider) {
  imageProvider_ = std::move(provider);
  update();
}

void ImageDisplayView::setFrameColor(std::optional<ColorSource> color) {
  if (color == frameColor_) return;
  frameColor_ = std::move(color);
  update();
}

void ImageDisplayView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (frameColor_) PixelBox(painter, rect()).frame(kFrameLine, frameColor_->resolve(appearanceOf(this)));
  const std::shared_ptr<const Image> image = imageProvider_ ? imageProvider_() : nullptr;
  if (image)
    drawImage(painter, *image, {0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())});
}

}  // namespace tarvel
