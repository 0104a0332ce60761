#pragma once
#include <QDBusVariant>
#include <QObject>
#include <optional>

#include "ui/Appearance.h"

class QPalette;
class QVariant;

namespace tarvel {

/// The appearance of the desktop and, through the application's palette and style, of all windows that have
/// not chosen one of their own; its contrast and the size of its texts, for all windows. It follows the
/// desktop's settings portal; without one it stays with what the palette looked like at the start. One in the
/// process, made after the QApplication; main thread.
class SystemAppearance : public QObject {
  Q_OBJECT
 public:
  /// Sets style, font and palette. It waits for nothing: the portal is asked once the event loop runs, and
  /// its answer is heard whenever it comes.
  SystemAppearance();
  ~SystemAppearance() override;

  /// The one that lives now; null before and after.
  static SystemAppearance* instance();

  Appearance current() const;
  /// Holds the appearance at the value, whatever the desktop says; none lets go. For tests and tools.
  void setOverride(std::optional<Appearance> appearance);

 signals:
  /// Appearance, contrast, accent or text scale are others than before; the application's palette and fonts
  /// are already the new ones.
  void changed();

 public slots:
  /// The portal's signal.
  void portalSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void askPortal();
  void askPortalFor(const QString& group, const QString& key);
  void takeSetting(const QString& group, const QString& key, const QVariant& value);
  void takeScheme(uint scheme);
  void applyTextScale();
  void apply();

  Appearance desktop_ = Appearance::light;
  Appearance fallback_ = Appearance::light;
  std::optional<Appearance> override_;
  double wantedTextScale_ = 1.0;
};

/// The palette of standard widgets in that appearance.
QPalette paletteFor(Appearance appearance);

}  // namespace tarvel
