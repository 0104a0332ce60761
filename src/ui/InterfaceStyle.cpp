#include "ui/InterfaceStyle.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

#include "ui/Icons.h"

namespace tarvel {

namespace {

constexpr double kCornerRadius = 6.0;
constexpr double kCheckBoxRadius = 4.0;
constexpr double kMarkWidth = 1.75;
constexpr double kDotRadius = 0.22;  // of the button's width
constexpr double kFocusWidth = 2.0;
constexpr double kFilledFocusInset = 3.0;  // of the ring, which would be lost at the edge of a fill
constexpr int kPressedDarker = 115;
constexpr int kIndicatorSize = 16;
constexpr int kScrollBarWidth = 12;
constexpr int kThumbMargin = 3;
constexpr int kShortestThumb = 32;
constexpr int kButtonPadding = 12;
constexpr int kButtonHeight = 28;
/// What the toolkit calls the button at the end of a menu bar that is too narrow for its menus.
constexpr QLatin1String kMoreMenus("qt_menubar_ext_button");
constexpr int kMoreMenusSymbol = 12;

class InterfaceStyle final : public QProxyStyle {
 public:
  InterfaceStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    switch (element) {
      case PE_PanelButtonCommand:
        return drawButton(*option, *painter);
      case PE_PanelLineEdit:
        return drawField(*option, *painter);
      case PE_FrameFocusRect:
        return drawFocusRing(*option, *painter);
      case PE_IndicatorCheckBox:
        return drawCheckBox(*option, *painter);
      case PE_IndicatorRadioButton:
        return drawRadioButton(*option, *painter);
      default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* more = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (element == CE_ToolButtonLabel && more && widget && widget->objectName() == kMoreMenus) {
      // The toolkit's own symbol is dark on any surface.
      QStyleOptionToolButton tinted = *more;
      tinted.icon = buttonIcon("chevron-right", more->palette.color(QPalette::ButtonText), kMoreMenusSymbol);
      return QProxyStyle::drawControl(element, &tinted, painter, widget);
    }
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != CE_PushButtonLabel || !button || !isFilled(*button)) {
      return QProxyStyle::drawControl(element, option, painter, widget);
    }
    QStyleOptionButton onFill = *button;
    onFill.palette.setColor(QPalette::ButtonText, onFill.palette.color(QPalette::HighlightedText));
    QProxyStyle::drawControl(element, &onFill, painter, widget);
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider) return drawScrollBar(*slider, *painter, widget);
    const auto* spinBox = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if (control == CC_SpinBox && spinBox) return drawSpinBox(*spinBox, *painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }

  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider) return scrollBarPart(*slider, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    switch (metric) {
      case PM_ScrollBarExtent:
        return kScrollBarWidth;
      case PM_ScrollBarSliderMin:
        return kShortestThumb;
      case PM_ScrollView_ScrollBarSpacing:
        return 0;
      case PM_ButtonMargin:
        return kButtonPadding;
      case PM_ButtonShiftHorizontal:
      case PM_ButtonShiftVertical:
        return 0;
      case PM_IndicatorWidth:
      case PM_IndicatorHeight:
      case PM_ExclusiveIndicatorWidth:
      case PM_ExclusiveIndicatorHeight:
        return kIndicatorSize;
      case PM_SplitterWidth:
        return 1;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton) size.setHeight(qMax(size.height(), kButtonHeight));
    return size;
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint == SH_ScrollBar_LeftClickAbsolutePosition || hint == SH_MenuBar_AltKeyNavigation) return 1;
    if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

 private:
  /// Whether the control shows in the selection's colour: pressed in for good, or the one that Return
  /// presses.
  static bool isFilled(const QStyleOption& option) {
    if (!(option.state & State_Enabled)) return false;
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return option.state & State_On || (button && (button->features & QStyleOptionButton::DefaultButton));
  }

  static void drawButton(const QStyleOption& option, QPainter& painter) {
    const QPalette& palette = option.palette;
    const bool enabled = option.state & State_Enabled;
    const bool filled = isFilled(option);
    QColor fill = palette.color(filled ? QPalette::Highlight : QPalette::Button);
    if (!enabled) fill = palette.color(QPalette::Window);
    if (option.state & State_Sunken) {
      fill = filled ? fill.darker(kPressedDarker) : palette.color(QPalette::Midlight);
    } else if (enabled && !filled && (option.state & State_MouseOver)) {
      fill = palette.color(QPalette::AlternateBase);
    }
    drawBox(option.rect, fill, filled ? fill : palette.color(QPalette::Mid), painter);
    if (!(option.state & State_HasFocus)) return;
    filled ? drawFocusRing(option, palette.color(QPalette::HighlightedText), kFilledFocusInset, painter)
           : drawFocusRing(option, painter);
  }

  /// The field of a check box or radio button, and the colour of its mark.
  static QColor drawIndicatorField(const QStyleOption& option, double radius, QPainter& painter) {
    const bool marked = option.state & (State_On | State_NoChange);
    const bool enabled = option.state & State_Enabled;
    const QPalette::ColorRole field = marked ? QPalette::Highlight : QPalette::Base;
    const QColor edge = option.palette.color(QPalette::Dark);
    drawBox(option.rect, option.palette.color(field), marked && enabled ? option.palette.color(field) : edge,
            painter, radius);
    return option.palette.color(QPalette::HighlightedText);
  }

  static void drawCheckBox(const QStyleOption& option, QPainter& painter) {
    const QColor mark = drawIndicatorField(option, kCheckBoxRadius, painter);
    const QRectF box(option.rect);
    QPolygonF stroke;
    if (option.state & State_On) {
      stroke << at(box, 0.24, 0.52) << at(box, 0.43, 0.71) << at(box, 0.77, 0.31);
    } else if (option.state & State_NoChange) {
      stroke << at(box, 0.25, 0.5) << at(box, 0.75, 0.5);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(mark, kMarkWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(stroke);
    painter.restore();
  }

  static void drawRadioButton(const QStyleOption& option, QPainter& painter) {
    const QRectF box(option.rect);
    const QColor mark = drawIndicatorField(option, box.width() / 2, painter);
    if (!(option.state & State_On)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(box.center(), box.width() * kDotRadius, box.height() * kDotRadius);
    painter.restore();
  }

  static QPointF at(const QRectF& box, double x, double y) {
    return {box.x() + x * box.width(), box.y() + y * box.height()};
  }

  static void drawField(const QStyleOption& option, QPainter& painter) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (frame && frame->lineWidth <= 0) {
      painter.fillRect(option.rect, option.palette.brush(QPalette::Base));
      return;
    }
    const bool focused = (option.state & State_HasFocus) && (option.state & State_Enabled);
    const QColor edge = option.palette.color(focused ? QPalette::Highlight : QPalette::Mid);
    drawBox(option.rect, option.palette.color(QPalette::Base), edge, painter);
  }

  /// A field with two arrows on its ground.
  void drawSpinBox(const QStyleOptionSpinBox& box, QPainter& painter, const QWidget* widget) const {
    drawField(box, painter);
    const bool enabled = box.state & State_Enabled;
    const auto drawArrow = [&](SubControl part, QAbstractSpinBox::StepEnabledFlag step,
                               PrimitiveElement element) {
      QStyleOption arrow(box);
      arrow.rect = subControlRect(CC_SpinBox, &box, part, widget);
      arrow.state.setFlag(State_Enabled, enabled && (box.stepEnabled & step));
      if (box.activeSubControls == part && (box.state & State_Sunken))
        painter.fillRect(arrow.rect.adjusted(0, 1, -1, -1), box.palette.color(QPalette::Midlight));
      drawPrimitive(element, &arrow, &painter, widget);
    };
    drawArrow(SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, PE_IndicatorArrowUp);
    drawArrow(SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, PE_IndicatorArrowDown);
  }

  static void drawFocusRing(const QStyleOption& option, QPainter& painter) {
    drawFocusRing(option, option.palette.color(QPalette::Link), kFocusWidth / 2, painter);
  }
  /// For those who go about by the keyboard, as long as they do.
  static void drawFocusRing(const QStyleOption& option, const QColor& color, double inset,
                            QPainter& painter) {
    if (!(option.state & State_KeyboardFocusChange)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, kFocusWidth));
    painter.setBrush(Qt::NoBrush);
    const double radius = kCornerRadius - inset + kFocusWidth / 2;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
  }

  static void drawBox(const QRect& rect, const QColor& fill, const QColor& edge, QPainter& painter,
                      double radius = kCornerRadius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
  }

  /// A bar without arrows: the thumb alone, in a groove as long as the bar.
  static QRect scrollBarPart(const QStyleOptionSlider& bar, SubControl part) {
    const bool lying = bar.orientation == Qt::Horizontal;
    const int length = lying ? bar.rect.width() : bar.rect.height();
    const qint64 range = qint64{bar.maximum} - bar.minimum;
    int thumb = length;
    if (range > 0) thumb = static_cast<int>(qint64{length} * bar.pageStep / (range + bar.pageStep));
    thumb = qMin(length, qMax(thumb, kShortestThumb));
    const int start =
        sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - thumb, bar.upsideDown);
    int from = 0;
    int to = 0;
    switch (part) {
      case SC_ScrollBarGroove:
        to = length;
        break;
      case SC_ScrollBarSlider:
        from = start, to = start + thumb;
        break;
      case SC_ScrollBarSubPage:
        to = start;
        break;
      case SC_ScrollBarAddPage:
        from = start + thumb, to = length;
        break;
      default:
        return {};
    }
    const QRect along =
        lying ? QRect(from, 0, to - from, bar.rect.height()) : QRect(0, from, bar.rect.width(), to - from);
    return visualRect(bar.direction, bar.rect, along.translated(bar.rect.topLeft()));
  }

  static void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) {
    painter.fillRect(bar.rect,
                     widget ? widget->palette().brush(QPalette::Base) : bar.palette.brush(QPalette::Base));
    if (bar.maximum <= bar.minimum) return;
    const bool active = bar.state & State_Sunken || bar.state & State_MouseOver;
    QRectF thumb = scrollBarPart(bar, SC_ScrollBarSlider);
    thumb.adjust(kThumbMargin, kThumbMargin, -kThumbMargin, -kThumbMargin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bar.palette.color(active ? QPalette::Dark : QPalette::Mid));
    const double radius = qMin(thumb.width(), thumb.height()) / 2;
    painter.drawRoundedRect(thumb, radius, radius);
    painter.restore();
  }
};

}  // namespace

void installInterfaceStyle() {
  QApplication::setStyle(new InterfaceStyle);
}

}  // namespace tarvel
