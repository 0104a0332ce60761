#pragma once
#include "platform/PropertyList.h"

namespace tarvel {

enum class FromAnotherDocument { no, yes };

/// A window controller whose settings outlive the window.
class WindowSettingsProtocol {
 public:
  virtual ~WindowSettingsProtocol() = default;
  /// What `restoreSettings` needs to bring the window back as it is now.
  virtual PropertyList::Dictionary windowSettings() const = 0;
  /// Takes over what the settings hold; a key that is missing, or of another type, leaves its setting as it
  /// is.
  virtual void restoreSettings(const PropertyList::Dictionary& settings,
                               FromAnotherDocument fromAnotherDocument) = 0;
  /// Puts the controller in its settings for a first-ever window.
  virtual void defaultSettings() = 0;
};

}  // namespace tarvel
