#include "mainwindow/InfoLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr double kMinCardWidth = 240.0;
constexpr double kMaxCardWidth = 340.0;
constexpr double kCardShare = 0.36;  // of the content's width, beside a photo
constexpr double kMaxLoneCardWidth = 480.0;

bool isThere(Size size) {
  return size.width > 0.0 && size.height > 0.0;
}

double buttonsHeight(const InfoLayout::Card& card) {
  return std::max(card.website.height, card.locate.height);
}

}  // namespace

Rect InfoLayout::box() const {
  // The title row above has a margin of its own.
  return {kMargin, 0.0, std::max(0.0, pane_.width - 2 * kMargin), std::max(0.0, pane_.height - kMargin)};
}

double InfoLayout::cardWidth() const {
  return std::floor(std::clamp(content().width * kCardShare, kMinCardWidth, kMaxCardWidth));
}

double InfoLayout::textWidth() const {
  const double width = photo_ == Photo::shown ? cardWidth() : std::min(kMaxLoneCardWidth, content().width);
  return std::max(1.0, width);
}

Rect InfoLayout::photoRect() const {
  const Rect area = content();
  const double x = area.x + cardWidth() + kPadding;
  return {x, area.y, std::max(0.0, area.maxX() - x), std::max(0.0, area.height)};
}

double InfoLayout::textHeight(const Card& card) const {
  double rest = 0.0;
  if (isThere(card.logo)) rest += card.logo.height + kGap;
  if (buttonsHeight(card) > 0.0) rest += buttonsHeight(card) + kGap;
  return std::max(1.0, content().height - rest);
}

InfoLayout::CardPlaces InfoLayout::place(const Card& card) const {
  const Rect area = content();
  const double buttons = card.website.width + card.locate.width +
                         (isThere(card.website) && isThere(card.locate) ? kButtonGap : 0.0);
  const double width = photo_ == Photo::shown
                           ? cardWidth()
                           : std::min(area.width, std::max({card.logo.width, card.text.width, buttons}));
  const double x = photo_ == Photo::shown ? area.x : std::floor(area.x + (area.width - width) / 2);
  const double textHeight = std::min(card.text.height, this->textHeight(card));
  const double height = area.height - this->textHeight(card) + textHeight;
  double y = std::max(area.y, std::floor(area.y + (area.height - height) / 2));
  CardPlaces places;
  if (isThere(card.logo)) {
    places.logo = {x, y, card.logo.width, card.logo.height};
    y += card.logo.height + kGap;
  }
  places.text = {x, y, width, textHeight};
  y += textHeight + kGap;
  double buttonX = x;
  if (isThere(card.website)) {
    places.website = {buttonX, y, card.website.width, card.website.height};
    buttonX += card.website.width + kButtonGap;
  }
  if (isThere(card.locate)) places.locate = {buttonX, y, card.locate.width, card.locate.height};
  return places;
}

}  // namespace tarvel
