#include <gtest/gtest.h>

#include "app/ClassRegistry.h"

namespace tarvel {
namespace {

TEST(SettingsForClassNameTest, OwnThenAnAncestors) {
  ClassRegistry classes;
  classes.add("Root", "");
  classes.add("Loading", "Root");
  classes.add("Main", "Loading");
  classes.add("Log", "Root");
  const struct {
    const char* what;
    std::vector<const char*> stored;
    const char* asked;
    const char* found;  // empty for none
  } cases[] = {
      {"its own", {"Loading", "Main"}, "Main", "Main"},
      {"its own, of a class that is unknown", {"Old"}, "Old", "Old"},
      {"an ancestor's", {"Loading"}, "Main", "Loading"},
      {"the first ancestor's by name", {"Loading", "Root"}, "Main", "Loading"},
      {"not a descendant's", {"Main"}, "Loading", ""},
      {"not a sibling's", {"Log"}, "Main", ""},
      {"none for an unknown class", {"Loading"}, "Stranger", ""},
      {"an unknown class is nobody's ancestor", {"Old", "Root"}, "Log", "Root"},
      {"none at all", {}, "Main", ""},
  };
  for (const auto& c : cases) {
    PropertyList::Dictionary stored;
    for (const char* name : c.stored) stored[name] = PropertyList::Dictionary{{"mark", name}};
    const auto* found = settingsForClassName(stored, classes, c.asked);
    EXPECT_EQ(found ? textAt(*found, "mark") : "", c.found) << c.what;
  }
}

}  // namespace
}  // namespace tarvel
