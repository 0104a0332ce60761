#include <gtest/gtest.h>

#include "app/ClassRegistry.h"

namespace tarvel {
namespace {

PropertyList::Dictionary marked(const char* mark) {
  return {{"mark", mark}};
}

TEST(SettingsForClassNameTest, OwnThenAnAncestors) {
  ClassRegistry classes;
  classes.add("Root", "");
  classes.add("Loading", "Root");
  classes.add("Main", "Loading");
  classes.add("Log", "Root");
  struct Case {
    const char* what;
    std::vector<const char*> stored;
    const char* asked;
    const char* found;  // null for none
  };
  const std::vector<Case> cases = {
      {"its own", {"Loading", "Main"}, "Main", "Main"},
      {"its own, of a class that is unknown", {"Old"}, "Old", "Old"},
      {"an ancestor's", {"Loading"}, "Main", "Loading"},
      {"the first ancestor's by name", {"Loading", "Root"}, "Main", "Loading"},
      {"not a descendant's", {"Main"}, "Loading", nullptr},
      {"not a sibling's", {"Log"}, "Main", nullptr},
      {"none for an unknown class", {"Loading"}, "Stranger", nullptr},
      {"an unknown class is nobody's ancestor", {"Old", "Root"}, "Log", "Root"},
      {"none at all", {}, "Main", nullptr},
  };
  for (const Case& c : cases) {
    PropertyList::Dictionary stored;
    for (const char* name : c.stored) stored[name] = marked(name);
    const auto* found = settingsForClassName(stored, classes, c.asked);
    ASSERT_EQ(found != nullptr, c.found != nullptr) << c.what;
    if (found) {
      EXPECT_EQ(*found, marked(c.found)) << c.what;
    }
  }
}

}  // namespace
}  // namespace tarvel
