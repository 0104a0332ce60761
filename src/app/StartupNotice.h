#pragma once
#include <QByteArray>
#include <QVariantMap>
#include <QWindow>

namespace tarvel {

/// What a launcher gives along with a start, so that the desktop knows that the window which comes to the
/// front is what its user has just asked for: on X11 a startup id, on Wayland an activation token. Either may
/// be empty. A value; what shows windows on the main thread.
struct StartupNotice {
  QByteArray startupId;
  QByteArray activationToken;

  /// That of this process. To be read before the application object is made, which takes it away.
  static StartupNotice ofEnvironment();
  /// That of a call over the bus.
  static StartupNotice ofPlatformData(const QVariantMap& platformData);

  /// For the copy that runs: one line, with its end.
  QByteArray line() const;
  static StartupNotice ofLine(const QByteArray& line);

  /// To be called right before a window is brought to the front: the toolkit asks the compositor with it.
  void announce() const;
  /// To be called right after: tells an X11 desktop that the start is over, and when its user asked for it.
  void complete(const QWindow& window) const;
};

}  // namespace tarvel
