#include "app/ClassRegistry.h"

namespace tarvel {

void ClassRegistry::add(std::string name, std::string base) {
  bases_.emplace(std::move(name), std::move(base));
}

bool ClassRegistry::knows(std::string_view name) const {
  return bases_.contains(name);
}

bool ClassRegistry::isSubclass(std::string_view name, std::string_view ancestor) const {
  if (!knows(ancestor)) return false;
  for (auto found = bases_.find(name); found != bases_.end(); found = bases_.find(found->second)) {
    if (found->first == ancestor) return true;
  }
  return false;
}

const PropertyList::Dictionary* settingsForClassName(const PropertyList::Dictionary& windowSettings,
                                                     const ClassRegistry& classes,
                                                     const std::string& className) {
  if (const auto* own = dictionaryAt(windowSettings, className)) return own;
  if (!classes.knows(className)) return nullptr;
  for (const auto& [name, settings] : windowSettings) {
    if (classes.isSubclass(className, name)) return settings.dictionary();
  }
  return nullptr;
}

}  // namespace tarvel
