#include <QPainter>
#include <algorithm>

#include "mainwindow/PhotoCellsView.h"
#include "mainwindow/PhotoPainter.h"
#include "mainwindow/PhotoTexts.h"
#include "ui/PixelBox.h"

/// The part of `PhotoCellsView` that measures and draws.
namespace tarvel {
namespace {

constexpr double kMessageHeight = 24.0;
constexpr double kSelectionLine = 2.0;
constexpr double kCountGap = 6.0;  // between a caption and the count at its right
constexpr double kDescrGap = 1.0;  // between a title and its description

/// Without a limit to the width.
Size naturalSize(const std::string& text, const TextAttributes& attributes) {
  return text.empty() ? Size{} : boundingRect({text, attributes}, {}, TextFit::wrap);
}

double heightWithin(double width, const std::string& text, const TextAttributes& attributes, Size natural) {
  // Most captions are short, and only those that are too long for their cell have to be broken.
  if (text.empty() || natural.width <= width) return natural.height;
  return boundingRect({text, attributes}, {width, 0.0}, TextFit::wrap).height;
}

double captionWidth(double pictureWidth, double countWidth) {
  const double taken = countWidth > 0.0 ? countWidth + kCountGap : 0.0;
  return std::max(pictureWidth - taken, 1.0);
}

}  // namespace

PhotoCellsView::Measures& PhotoCellsView::measuresOf(std::size_t cell) {
  std::optional<Measures>& kept = measures_[cell];
  if (!kept) {
    const Caption texts = caption(cell);
    kept.emplace();
    kept->title = naturalSize(texts.title, kPhotoCaptionTitle);
    kept->descr = naturalSize(texts.descr, kPhotoCaptionDescr);
    kept->countWidth = naturalSize(texts.count, kPhotoCount).width;
  }
  return *kept;
}

double PhotoCellsView::captionHeight(std::size_t cell, double pictureWidth) {
  Measures& measures = measuresOf(cell);
  const double width = captionWidth(pictureWidth, measures.countWidth);
  if (measures.forWidth == width) return measures.height;
  const Caption texts = caption(cell);
  const double title = heightWithin(width, texts.title, kPhotoCaptionTitle, measures.title);
  const double descr = heightWithin(width, texts.descr, kPhotoCaptionDescr, measures.descr);
  measures.forWidth = width;
  measures.height = title + descr + (title > 0.0 && descr > 0.0 ? kDescrGap : 0.0);
  return measures.height;
}

void PhotoCellsView::draw(QPainter& painter, const Rect& dirty) {
  if (photos().empty()) return drawMessage(painter);
  const std::optional<std::size_t> selected = selectedCell();
  const auto [first, end] = layout_.rowsBetween(dirty.y, dirty.maxY());
  for (std::size_t cell = layout_.rows()[first].startIndex; cell < layout_.rows()[end].startIndex; ++cell) {
    const Rect& rect = layout_.rects()[cell];
    if (!rect.intersects(dirty)) continue;
    drawCell(painter, cell);
    if (cell != selected) continue;
    PixelBox(painter, {rect.x, rect.y, rect.width, rect.height})
        .frame(kSelectionLine,
               color(isActive_ ? kSelectedContentBackground : kInactiveSelectedContentFrame, this));
  }
  // No cell tells those who work with the keyboard that the view has it, so a frame does.
  if (isActive_ && cameByKeys_ && !selected) {
    PixelBox(painter, QRectF(rect())).frame(kSelectionLine, color(kKeyboardFocusIndicator, this));
  }
}

void PhotoCellsView::drawMessage(QPainter& painter) const {
  tarvel::draw(painter,
               {0.0, (height() - kMessageHeight) * 0.5, static_cast<double>(width()), kMessageHeight},
               {messageWithoutCells(), kMessageAttributes}, TextFit::wrap, appearanceOf(this));
}

void PhotoCellsView::drawCell(QPainter& painter, std::size_t cell) {
  PhotoPlaceholder placeholder;
  placeholder.margin = layout_.metrics().margin;
  placeholder.message = kPhotoPlaceholder;
  placeholder.textWithoutPhoto = textWithoutPhoto_;
  drawPhoto(painter, photos()[cell].get(), layout_.pictureBox(cell), resolution_, placeholder, *this);
  if (layout_.hasCaptions()) drawCaption(painter, cell);
}

void PhotoCellsView::drawCaption(QPainter& painter, std::size_t cell) {
  const Caption texts = caption(cell);
  const Rect box = layout_.pictureBox(cell);
  const Measures& measures = measuresOf(cell);
  const double width = captionWidth(box.width, measures.countWidth);
  double y = layout_.captionTop(cell);
  const auto drawAt = [&](double x, double room, const std::string& text, const TextAttributes& attributes,
                          double height) {
    tarvel::draw(painter, {x, y, room, height}, {text, attributes}, TextFit::wrap, appearanceOf(this));
  };
  // The count makes no room for itself: below a row of albums without texts it reaches into the next row.
  if (!texts.count.empty()) {
    drawAt(box.maxX() - measures.countWidth, measures.countWidth, texts.count, kPhotoCount, 0.0);
  }
  if (!texts.title.empty()) {
    const double height = heightWithin(width, texts.title, kPhotoCaptionTitle, measures.title);
    drawAt(box.x, width, texts.title, kPhotoCaptionTitle, height);
    y += height + kDescrGap;
  }
  if (!texts.descr.empty()) {
    const double height = heightWithin(width, texts.descr, kPhotoCaptionDescr, measures.descr);
    drawAt(box.x, width, texts.descr, kPhotoCaptionDescr, height);
  }
}

}  // namespace tarvel
