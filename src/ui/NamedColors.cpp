#include "ui/NamedColors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "platform/FatalError.h"

namespace tarvel {

namespace {

/// The values for desktops without, and with, high contrast.
struct Entry {
  NamedColor name;
  QRgb light;
  QRgb dark;
  QRgb lightHigh;
  QRgb darkHigh;
};

constexpr QRgb opaque(QRgb rgb) {
  return 0xFF000000u | rgb;
}
/// 0.55 of 255.
constexpr QRgb kPastBlendAlpha = 140u << 24;
/// 0.15 of 255.
constexpr QRgb kFaintGridAlpha = 38u << 24;
/// 0.3 of 255: these lines run over the sessions' texts.
constexpr QRgb kHighFaintGridAlpha = 77u << 24;
/// 0.25 of 255: what is past stays readable.
constexpr QRgb kHighPastBlendAlpha = 64u << 24;

constexpr std::array kTable{
    Entry{kScheduleBackground, opaque(0xFFFFFF), opaque(0x1E1F22), opaque(0xFFFFFF), opaque(0x000000)},
    Entry{kScheduleGrid, opaque(0x999999), opaque(0x999999), opaque(0x555C66), opaque(0xB8BEC7)},
    Entry{kFaintScheduleGrid, kFaintGridAlpha | 0x999999, kFaintGridAlpha | 0x999999,
          kHighFaintGridAlpha | 0x555C66, kHighFaintGridAlpha | 0xB8BEC7},
    Entry{kScheduleColumns, opaque(0x000000), opaque(0x000000), opaque(0x000000), opaque(0xFFFFFF)},
    Entry{kTodayBackground, opaque(0xF6F7F9), opaque(0x141517), opaque(0xFFFFFF), opaque(0x000000)},
    Entry{kPastBlend, kPastBlendAlpha | 0xFFFFFF, kPastBlendAlpha | 0x1E1F22, kHighPastBlendAlpha | 0xFFFFFF,
          kHighPastBlendAlpha | 0x000000},
    Entry{kContentBackground, opaque(0xFFFFFF), opaque(0x1E1F22), opaque(0xFFFFFF), opaque(0x000000)},
    Entry{kContentBackground2, opaque(0xF0F2F5), opaque(0x2A2C30), opaque(0xF2F3F5), opaque(0x121316)},
    Entry{kContentBorder, opaque(0xD5D9DF), opaque(0x3E4147), opaque(0x555C66), opaque(0xB8BEC7)},
    Entry{kInactiveSelectedContentFill, opaque(0xDDE1E7), opaque(0x3A3D43), opaque(0xC4CAD3),
          opaque(0x3A3F47)},
    Entry{kInactiveSelectedContentFrame, opaque(0xA9B0BA), opaque(0x70767F), opaque(0x4A5059),
          opaque(0xC3C9D1)},
    Entry{kControlTrack, opaque(0xDDE1E7), opaque(0x1E1F22), opaque(0xE4E7EC), opaque(0x000000)},
    Entry{kControlSurface, opaque(0xFFFFFF), opaque(0x3E4147), opaque(0xFFFFFF), opaque(0x3A3F47)},
    Entry{kLabel, opaque(0x1B1D21), opaque(0xECEEF1), opaque(0x000000), opaque(0xFFFFFF)},
    Entry{kSecondaryLabel, opaque(0x565D67), opaque(0xA9B0BA), opaque(0x2B2F36), opaque(0xDCE0E6)},
    Entry{kTertiaryLabel, opaque(0x646B75), opaque(0x9299A3), opaque(0x3A4049), opaque(0xC8CED6)},
    Entry{kSelectedContentBackground, opaque(0x1F69CC), opaque(0x3070C4), opaque(0x0B4A9E), opaque(0x1B56A8)},
    Entry{kGrid, opaque(0xD5D9DF), opaque(0x3E4147), opaque(0x555C66), opaque(0xB8BEC7)},
    Entry{kControlAccent, opaque(0x1A66C9), opaque(0x6CB0FF), opaque(0x0A4794), opaque(0x9CCBFF)},
    Entry{kKeyboardFocusIndicator, opaque(0x2F80E0), opaque(0x5B9EF0), opaque(0x0A4794), opaque(0x9CCBFF)},
    Entry{kSystemRed, opaque(0xC62828), opaque(0xFF7A70), opaque(0x960D0D), opaque(0xFFA59E)},
    Entry{kSystemYellow, opaque(0xB27D00), opaque(0xF2BE3E), opaque(0x704B00), opaque(0xFFD35C)},
    Entry{kSystemGreen, opaque(0x1A7F37), opaque(0x4CC76B), opaque(0x0A5520), opaque(0x7FE59A)},
};

constexpr auto kNames = [] {
  std::array<NamedColor, kTable.size()> names{};
  for (std::size_t i = 0; i < kTable.size(); ++i) names[i] = kTable[i].name;
  return names;
}();

constexpr std::array kAccented{kSelectedContentBackground, kControlAccent, kKeyboardFocusIndicator};
constexpr double kReadableContrast = 4.5;
/// How much a dark surface's accent is lightened, so that a tinted symbol stands out from it.
constexpr int kDarkAccentLightness = 150;

std::optional<QColor>& desktopAccent() {
  static std::optional<QColor> accent;
  return accent;
}

Contrast& desktopContrast() {
  static Contrast contrast = Contrast::standard;
  return contrast;
}

double luminance(const QColor& value) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(value.redF()) + 0.7152 * linear(value.greenF()) + 0.0722 * linear(value.blueF());
}

}  // namespace

QColor color(NamedColor name, Appearance appearance) {
  const auto found =
      std::find_if(kTable.begin(), kTable.end(), [&](const Entry& entry) { return entry.name == name; });
  if (found == kTable.end()) fatalError("no colour named " + std::string(name.name));
  const bool dark = appearance == Appearance::dark;
  // These stand out from each other as they are; an accent need not.
  if (contrast() == Contrast::high) return QColor::fromRgba(dark ? found->darkHigh : found->lightHigh);
  if (desktopAccent() && std::find(kAccented.begin(), kAccented.end(), name) != kAccented.end()) {
    const bool lightened = dark && name != kSelectedContentBackground;
    return lightened ? desktopAccent()->lighter(kDarkAccentLightness) : *desktopAccent();
  }
  return QColor::fromRgba(dark ? found->dark : found->light);
}

QColor color(NamedColor name, const QWidget* view) {
  return color(name, appearanceOf(view));
}

void checkNamedColors() {
  for (const NamedColor name : {kScheduleBackground, kTodayBackground, kPastBlend, kContentBackground,
                                kContentBackground2, kContentBorder, kInactiveSelectedContentFill,
                                kInactiveSelectedContentFrame, kSelectedContentBackground, kControlTrack,
                                kControlSurface, kScheduleGrid, kFaintScheduleGrid, kScheduleColumns}) {
    color(name, Appearance::light);
  }
}

void setDesktopAccent(std::optional<QColor> accent) {
  const bool usable = accent && accent->isValid() && contrastRatio(*accent, Qt::white) >= kReadableContrast;
  desktopAccent() = usable ? accent : std::nullopt;
}

void setContrast(Contrast contrast) {
  desktopContrast() = contrast;
}

Contrast contrast() {
  return desktopContrast();
}

std::span<const NamedColor> allNamedColors() {
  return kNames;
}

QColor toQColor(const Color& value) {
  const auto part = [](double v) { return static_cast<float>(std::clamp(v, 0.0, 1.0)); };
  return QColor::fromRgbF(part(value.red), part(value.green), part(value.blue), part(value.alpha));
}

double contrastRatio(const QColor& a, const QColor& b) {
  constexpr double kGlare = 0.05;
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + kGlare) / (darker + kGlare);
}

QColor ColorSource::resolve(Appearance appearance) const {
  if (const auto* name = std::get_if<NamedColor>(&value_)) return color(*name, appearance);
  return std::get<QColor>(value_);
}

}  // namespace tarvel
