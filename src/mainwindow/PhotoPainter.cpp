#include "mainwindow/PhotoPainter.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "mainwindow/CellFlowLayout.h"
#include "mainwindow/PhotoTexts.h"
#include "ui/PixelBox.h"
#include "ui/RinkImage.h"

namespace tarvel {
namespace {

constexpr double kPointsPerInch = 72.0;
constexpr double kFrameLine = 1.0;

void drawPlaceholder(QPainter& painter, const Rect& rect, const std::string& text,
                     const PhotoPlaceholder& placeholder, const QWidget& view) {
  PixelBox(painter, {rect.x, rect.y, rect.width, rect.height}).frame(kFrameLine, color(kGrid, &view));
  // Of a cell that is wider than the view the message stands in what can be seen.
  const double shownWidth = std::min(rect.width, view.width() - rect.x);
  const Size room{shownWidth - 2 * placeholder.margin, rect.height - 2 * placeholder.margin};
  if (room.width < 1.0 || room.height < 1.0) return;
  const AttributedText message(text, placeholder.message);
  const double height = boundingRect(message, room, TextFit::wrapAndTruncate).height;
  // The first line shows even where it is too high, and would then stand over the frame.
  if (height > rect.height) return;
  draw(painter, {rect.x + placeholder.margin, rect.y + (rect.height - height) * 0.5, room.width, height},
       message, TextFit::wrapAndTruncate, appearanceOf(&view));
}

}  // namespace

Size screenResolution(const QWidget& view) {
  const double dots = kPointsPerInch * view.devicePixelRatioF();
  return {dots, dots};
}

void drawPhoto(QPainter& painter, Photo* photo, const Rect& box, Size resolution,
               const PhotoPlaceholder& placeholder, const QWidget& view) {
  if (box.empty()) return;
  std::string text(photo ? missingImageText({}) : std::string(placeholder.textWithoutPhoto));
  Rect place = box;
  if (const auto chosen = photo ? photo->chooseVersion({box.width, box.height}, resolution) : std::nullopt) {
    const Rect picture = CellFlowLayout::isUsable(chosen->size) ? imagePlace(chosen->size, box) : Rect{};
    const bool hasPlace = !picture.empty();
    if (const auto image = photo->image(chosen->version)) {
      return drawImageFilling(painter, *image, hasPlace ? picture : box);
    }
    text = missingImageText(photo->downloadStatus(chosen->version));
    if (hasPlace && placeholder.frame == PhotoPlaceholder::Frame::picture) place = picture;
  }
  drawPlaceholder(painter, place, text, placeholder, view);
}

}  // namespace tarvel
