#include <gtest/gtest.h>

#include <QApplication>

#include "FakeWindows.h"
#include "app/ClassRegistry.h"
#include "app/Globals.h"
#include "app/MorvAppController.h"
#include "simulation/ports/SimServices.h"

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;

constexpr Rect kPlace{100, 150, 400, 300};

class TestApp : public MorvAppController {
 public:
  using MorvAppController::MorvAppController;
  void markChanged() override {}
  void showDefaultWindow() override {
    ++defaultsShown;
    if (opensDefault) open<KeepingController>("Main").showWindow();
  }
  bool isDefaultWindow(const WindowController& controller) const override {
    return controller.className() == "Main";
  }

  template <class Controller>
  Controller& open(const char* name, const Dictionary* settings = nullptr,
                   RestoreFrame restoreFrame = RestoreFrame::yes, SaveFrame saveFrame = SaveFrame::yes) {
    auto made = std::make_unique<Controller>(*this, name, saveFrame);
    made->window()->setFrame(kPlace);
    return static_cast<Controller&>(addWindowController(std::move(made), settings, restoreFrame));
  }

  int defaultsShown = 0;
  bool opensDefault = false;
};

ClassRegistry testClasses() {
  ClassRegistry classes;
  classes.add("Root", "");
  classes.add("Main", "Root");
  classes.add("Log", "Root");
  return classes;
}

/// The saved form of a window that stands at that place.
std::string frameText(const Rect& frame) {
  Window window;
  window.setFrame(frame);
  return window.stringWithSavedFrame();
}

class MorvAppControllerTest : public testing::Test {
 protected:
  ~MorvAppControllerTest() override { settle(); }
  void settle() {
    sim_.world.runUntilIdle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  SimServices sim_;
  TestApp app_{sim_.services, "/store", testClasses()};
};

TEST_F(MorvAppControllerTest, SettingsGivenAreTaken) {
  const auto& window = app_.open<KeepingController>("Main");
  EXPECT_EQ(window.calls, std::vector<std::string>{"default"}) << "none given";
  EXPECT_EQ(window.window()->frame(), kPlace);
  const Rect elsewhere{220, 180, 300, 250};
  const Dictionary settings = {{"frame", frameText(elsewhere)}, {"size", 12}};
  const auto& placed = app_.open<KeepingController>("Main", &settings);
  EXPECT_EQ(placed.calls, std::vector<std::string>{"restore"});
  EXPECT_EQ(placed.settings, (Dictionary{{"size", 12}}));
  EXPECT_EQ(placed.window()->frame(), elsewhere);
  const auto& unplaced = app_.open<KeepingController>("Main", &settings, RestoreFrame::no);
  EXPECT_EQ(unplaced.window()->frame(), kPlace);
  const auto& plain = app_.open<PlainController>("Log", &settings);
  EXPECT_EQ(plain.window()->frame(), elsewhere);
}

TEST_F(MorvAppControllerTest, ASecondWindowCascadesOffTheFrontmostAndTakesItsSettings) {
  app_.windowSettings["Main"] = Dictionary{{"size", 99}};
  auto& behind = app_.open<KeepingController>("Main");
  auto& front = app_.open<KeepingController>("Main");
  behind.showWindow();
  front.showWindow();
  behind.settings = {{"size", 1}};
  front.settings = {{"size", 2}};
  front.window()->setFrame({300, 200, 350, 250});
  const auto& second = app_.open<KeepingController>("Main");
  EXPECT_EQ(second.settings, (Dictionary{{"size", 2}}));
  const Rect sibling = front.window()->frame();
  const Rect frame = second.window()->frame();
  EXPECT_EQ((Size{frame.width, frame.height}), (Size{sibling.width, sibling.height}));
  EXPECT_GT(frame.x, sibling.x);
  EXPECT_LT(frame.maxY(), sibling.maxY());
}

TEST_F(MorvAppControllerTest, ASiblingWithoutSettingsLeavesThoseOfTheClass) {
  const Rect elsewhere{220, 180, 300, 250};
  app_.windowSettings["Log"] = Dictionary{{"frame", frameText(elsewhere)}};
  auto& first = app_.open<PlainController>("Log");
  EXPECT_EQ(first.window()->frame(), elsewhere) << "the first takes the frame of its class";
  first.showWindow();
  const Rect sibling = first.window()->frame();
  const auto& second = app_.open<PlainController>("Log");
  EXPECT_NE(second.window()->frame(), sibling) << "the second is cascaded off it";
}

TEST_F(MorvAppControllerTest, AClosedWindowLeavesItsSettings) {
  struct Case {
    const char* what;
    SaveFrame saveFrame;
    Dictionary before;
    Dictionary after;
  };
  const std::string now = frameText(kPlace);
  const std::vector<Case> cases = {
      {"with its frame", SaveFrame::yes, {{"frame", "old"}, {"size", 1}}, {{"frame", now}, {"size", 5}}},
      {"with the frame of before",
       SaveFrame::no,
       {{"frame", "old"}, {"size", 1}},
       {{"frame", "old"}, {"size", 5}}},
      {"with no frame", SaveFrame::no, {}, {{"size", 5}}},
  };
  for (const Case& c : cases) {
    app_.windowSettings.erase("Main");
    auto& window = app_.open<KeepingController>("Main", &c.before, RestoreFrame::no, c.saveFrame);
    if (!c.before.empty()) app_.windowSettings["Main"] = c.before;
    window.showWindow();
    window.settings = {{"size", 5}};
    window.window()->performClose();
    EXPECT_EQ(app_.windowSettings.at("Main"), PropertyList(c.after)) << c.what;
    EXPECT_TRUE(app_.windowControllers.empty());
  }
  auto& plain = app_.open<PlainController>("Log", nullptr, RestoreFrame::no, SaveFrame::no);
  plain.showWindow();
  plain.window()->performClose();
  EXPECT_EQ(app_.windowSettings.at("Log"), PropertyList(Dictionary{})) << "nothing to keep";
}

TEST_F(MorvAppControllerTest, TheDefaultWindowComesBackWhenAskedForAndBehindTheLastOther) {
  EXPECT_FALSE(app_.applicationShouldHandleReopen(true));
  EXPECT_EQ(app_.defaultsShown, 0);
  EXPECT_FALSE(app_.applicationShouldHandleReopen(false));
  EXPECT_EQ(std::exchange(app_.defaultsShown, 0), 1) << "started once more with no window";
  app_.opensDefault = true;
  auto& log = app_.open<PlainController>("Log");
  auto& other = app_.open<PlainController>("Log");
  log.showWindow();
  other.showWindow();
  log.window()->performClose();
  EXPECT_EQ(app_.defaultsShown, 0) << "another window is left";
  const int before = PlainController::alive;
  other.window()->performClose();
  EXPECT_EQ(PlainController::alive, before + 1) << "the closed one lives to the next turn";
  EXPECT_EQ(app_.defaultsShown, 1);
  settle();
  EXPECT_EQ(PlainController::alive, 1);
  ASSERT_EQ(app_.windowControllers.size(), 1U);
  app_.windowControllers.front()->window()->performClose();
  EXPECT_EQ(app_.defaultsShown, 1) << "the default window itself leaves none";
}

TEST_F(MorvAppControllerTest, NoWindowComesBackAtTheEnd) {
  app_.open<PlainController>("Log").showWindow();
  app_.open<PlainController>("Log").showWindow();
  app_.applicationWillTerminate();
  EXPECT_EQ(app_.defaultsShown, 0);
  EXPECT_TRUE(app_.windowControllers.empty());
}

TEST_F(MorvAppControllerTest, ClosingAllAsksEachWindow) {
  class Stubborn : public PlainController {
   public:
    using PlainController::PlainController;
    bool windowShouldClose() override { return false; }
  };
  app_.open<PlainController>("Log").showWindow();
  const auto& stubborn = app_.open<Stubborn>("Log");
  app_.open<PlainController>("Log").showWindow();
  app_.closeAllWindows();
  ASSERT_EQ(app_.windowControllers.size(), 1U);
  EXPECT_EQ(app_.windowControllers.front().get(), &stubborn);
}

TEST(SettingsForClassNameTest, OwnThenAnAncestors) {
  ClassRegistry classes;
  classes.add("Root", "");
  classes.add("Loading", "Root");
  classes.add("Main", "Loading");
  classes.add("Log", "Root");
  // mark: empty for none
  const std::tuple<const char*, std::vector<const char*>, const char*, const char*> cases[] = {
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
  for (const auto& [what, names, asked, mark] : cases) {
    PropertyList::Dictionary stored;
    for (const char* name : names) stored[name] = PropertyList::Dictionary{{"mark", name}};
    const auto* found = settingsForClassName(stored, classes, asked);
    EXPECT_EQ(found ? textAt(*found, "mark") : "", mark) << what;
  }
}

}  // namespace
}  // namespace tarvel
