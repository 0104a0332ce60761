#include "auxwindows/AlertBadgeView.h"

#include <QPainter>
#include <optional>
#include <string_view>

#include "ui/AccessibleFactory.h"
#include "ui/Icons.h"
#include "ui/NamedColors.h"

namespace tarvel {
namespace {

constexpr double kPlateMargin = 4.0;  // of the plate around the symbol

struct Symbol {
  std::string_view icon;
  std::string_view meaning;
  NamedColor color;
};

std::optional<Symbol> symbolOf(AlertBadge badge) {
  switch (badge) {
    case AlertBadge::none:
      break;
    case AlertBadge::success:
      return Symbol{"checkmark-circle", "Success", kSystemGreen};
    case AlertBadge::warning:
      return Symbol{"exclamation-triangle", "Warning", kSystemYellow};
    case AlertBadge::error:
      return Symbol{"exclamation-triangle", "Error", kSystemRed};
  }
  return std::nullopt;
}

}  // namespace

AlertBadgeView::AlertBadgeView(QWidget* parent) : QWidget(parent) {
  setAccessibleRole(*this, QAccessible::Graphic);
}

void AlertBadgeView::setBadge(AlertBadge badge) {
  badge_ = badge;
  if (const auto symbol = symbolOf(badge)) setAccessibleName(QString::fromLatin1(symbol->meaning));
  update();
}

void AlertBadgeView::paintEvent(QPaintEvent*) {
  const auto symbol = symbolOf(badge_);
  if (!symbol) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().window());
  painter.drawEllipse(rect());
  const double size = width() - 2 * kPlateMargin;
  painter.drawPixmap(QPointF(kPlateMargin, kPlateMargin),
                     icon(symbol->icon, color(symbol->color, this), size, devicePixelRatioF()));
}

}  // namespace tarvel
