#pragma once
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"

namespace tarvel {

/// The window controllers' classes by name, each with its base: what the saved settings of windows go by.
class ClassRegistry {
 public:
  /// A name is registered once; the base may be registered before or after.
  void add(std::string name, std::string base);

  bool knows(std::string_view name) const;
  /// True if `name` is `ancestor` itself or derives from it; false if either is unknown.
  bool isSubclass(std::string_view name, std::string_view ancestor) const;

 private:
  std::map<std::string, std::string, std::less<>> bases_;
};

/// The saved settings that a window of that class begins with: its own, or else those of the first class in
/// the settings, by name, that it derives from. Null if there are none, or no class has that name.
const PropertyList::Dictionary* settingsForClassName(const PropertyList::Dictionary& windowSettings,
                                                     const ClassRegistry& classes,
                                                     const std::string& className);

}  // namespace tarvel
