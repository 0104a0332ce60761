#include "schedule/ScheduleMessage.h"

#include "ui/AttributedText.h"

namespace tarvel {
namespace {

constexpr double kMessageHeight = 24.0;
const TextAttributes kFailureAttributes{12.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

}  // namespace

void paintScheduleMessage(QPainter& painter, const std::string& message, Size size, Appearance appearance) {
  draw(painter, {0.0, (size.height - kMessageHeight) / 2, size.width, kMessageHeight},
       AttributedText(message, kMessageAttributes), TextFit::wrap, appearance);
}

void paintScheduleFailure(QPainter& painter, const std::string& message, Size size, Appearance appearance) {
  const AttributedText text(message, kFailureAttributes);
  const double height = boundingRect(text, size, TextFit::wrap).height;
  draw(painter, {0.0, (size.height - height) / 2, size.width, height}, text, TextFit::wrap, appearance);
}

}  // namespace tarvel
