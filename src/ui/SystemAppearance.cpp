#include "ui/SystemAppearance.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPalette>
#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <array>
#include <cmath>

#include "platform/FatalError.h"
#include "ui/Fonts.h"
#include "ui/InterfaceStyle.h"
#include "ui/NamedColors.h"
#include "ui/TextCache.h"

namespace tarvel {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kObject = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kSchemeKey = QStringLiteral("color-scheme");
const QString kAccentKey = QStringLiteral("accent-color");
const QString kContrastKey = QStringLiteral("contrast");
const QString kInterfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const QString kTextScaleKey = QStringLiteral("text-scaling-factor");

// Values of the scheme: 0 is no preference.
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;
constexpr uint kPrefersHighContrast = 1;
constexpr int kMiddleLightness = 128;

SystemAppearance* theInstance = nullptr;

/// The portal's older call wraps its answer in a variant more than the newer one and the signal.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

/// Three parts from 0 to 1; parts out of that range say that the user has chosen none.
std::optional<QColor> accentOf(const QVariant& value) {
  if (!value.canConvert<QDBusArgument>()) return std::nullopt;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != u"(ddd)") return std::nullopt;
  std::array<double, 3> parts{};
  argument.beginStructure();
  for (double& part : parts) argument >> part;
  argument.endStructure();
  for (const double part : parts) {
    if (!(part >= 0.0 && part <= 1.0)) return std::nullopt;
  }
  return toQColor({parts[0], parts[1], parts[2]});
}

/// On X11 some desktops pass their text's scale on as the screen's resolution, by which everything is larger
/// already. `ratio` may be a multiple of it, for screens of small pixels.
bool isInRatio(double scale, double ratio) {
  constexpr double kTolerance = 0.02;
  const double rest = ratio / scale;
  return scale > 1.0 && rest >= 1.0 - kTolerance && std::abs(rest - std::round(rest)) < kTolerance;
}

}  // namespace

SystemAppearance::SystemAppearance() {
  if (theInstance) fatalError("a second system appearance");
  theInstance = this;
  if (QApplication::palette().color(QPalette::Window).lightness() < kMiddleLightness)
    fallback_ = Appearance::dark;
  desktop_ = fallback_;
  installSystemFont();
  installInterfaceStyle();
  QApplication::setPalette(paletteFor(current()));
  QTimer::singleShot(0, this, &SystemAppearance::askPortal);
}

SystemAppearance::~SystemAppearance() {
  setTextScale(1.0);
  setContrast(Contrast::standard);
  theInstance = nullptr;
}

SystemAppearance* SystemAppearance::instance() {
  return theInstance;
}

Appearance SystemAppearance::current() const {
  return override_.value_or(desktop_);
}

void SystemAppearance::setOverride(std::optional<Appearance> appearance) {
  if (appearance == override_) return;
  const Appearance before = current();
  override_ = appearance;
  if (current() != before) apply();
}

void SystemAppearance::askPortal() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  qRegisterMetaType<QDBusVariant>();  // or the bus doesn't recognise the slot's last argument
  bus.connect(kService, kObject, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(portalSettingChanged(QString, QString, QDBusVariant)));
  askPortalFor(kGroup, kSchemeKey);
  askPortalFor(kGroup, kAccentKey);
  askPortalFor(kGroup, kContrastKey);
  askPortalFor(kInterfaceGroup, kTextScaleKey);
}

void SystemAppearance::askPortalFor(const QString& group, const QString& key) {
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kObject, kInterface, QStringLiteral("Read"));
  call << group << key;
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, group, key](QDBusPendingCallWatcher* answered) {
            const QDBusPendingReply<QDBusVariant> reply = *answered;
            if (reply.isValid()) takeSetting(group, key, unwrapped(QVariant::fromValue(reply.value())));
            answered->deleteLater();
          });
}

void SystemAppearance::portalSettingChanged(const QString& group, const QString& key,
                                            const QDBusVariant& value) {
  takeSetting(group, key, unwrapped(QVariant::fromValue(value)));
}

void SystemAppearance::takeSetting(const QString& group, const QString& key, const QVariant& value) {
  if (group == kInterfaceGroup && key == kTextScaleKey) {
    wantedTextScale_ = value.toDouble();
    applyTextScale();
  }
  if (group != kGroup) return;
  if (key == kSchemeKey) takeScheme(value.toUInt());
  if (key == kAccentKey) {
    setDesktopAccent(accentOf(value));
    apply();
  }
  if (key == kContrastKey) {
    const Contrast wanted = value.toUInt() == kPrefersHighContrast ? Contrast::high : Contrast::standard;
    if (wanted == contrast()) return;
    setContrast(wanted);
    apply();
  }
}

void SystemAppearance::takeScheme(uint scheme) {
  const Appearance before = current();
  desktop_ = scheme == kPrefersDark    ? Appearance::dark
             : scheme == kPrefersLight ? Appearance::light
                                       : fallback_;
  if (current() != before) apply();
}

void SystemAppearance::applyTextScale() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const bool isApplied = screen && QGuiApplication::platformName() == QLatin1String("xcb") &&
                         isInRatio(wantedTextScale_, screen->devicePixelRatio());
  const double before = textScale();
  setTextScale(isApplied ? 1.0 : wantedTextScale_);
  if (textScale() == before) return;
  // What is laid out for a size holds texts, and these are other ones now.
  for (QWidget* widget : QApplication::allWidgets()) {
    QResizeEvent resize(widget->size(), widget->size());
    QApplication::sendEvent(widget, &resize);
    widget->update();
  }
  emit changed();
}

void SystemAppearance::apply() {
  // Texts in several colours are kept with them.
  TextCache::shared().clear();
  QApplication::setPalette(paletteFor(current()));
  emit changed();
}

QPalette paletteFor(Appearance appearance) {
  const auto of = [appearance](NamedColor name) { return color(name, appearance); };
  const bool dark = appearance == Appearance::dark;
  QPalette palette;
  palette.setColor(QPalette::Window, of(kContentBackground2));
  palette.setColor(QPalette::WindowText, of(kLabel));
  palette.setColor(QPalette::Base, of(kContentBackground));
  palette.setColor(QPalette::AlternateBase, of(kContentBackground2));
  palette.setColor(QPalette::Text, of(kLabel));
  palette.setColor(QPalette::PlaceholderText, of(kTertiaryLabel));
  palette.setColor(QPalette::Button, of(kControlSurface));
  palette.setColor(QPalette::ButtonText, of(kLabel));
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, of(kContentBackground));
  palette.setColor(QPalette::ToolTipText, of(kLabel));
  palette.setColor(QPalette::Highlight, of(kSelectedContentBackground));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, of(kControlAccent));
  palette.setColor(QPalette::LinkVisited, of(kControlAccent));
  palette.setColor(QPalette::Light, dark ? of(kInactiveSelectedContentFill) : QColor(Qt::white));
  palette.setColor(QPalette::Midlight, of(kInactiveSelectedContentFill));
  palette.setColor(QPalette::Mid, of(kContentBorder));
  palette.setColor(QPalette::Dark, of(kInactiveSelectedContentFrame));
  palette.setColor(QPalette::Shadow, dark ? QColor(Qt::black) : of(kSecondaryLabel));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(QPalette::Disabled, role, of(kInactiveSelectedContentFrame));
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, of(kInactiveSelectedContentFill));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, of(kSecondaryLabel));
  return palette;
}

}  // namespace tarvel
