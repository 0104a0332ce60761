#include "app/AppController.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "FakeWindows.h"
#include "app/Globals.h"
#include "simulation/ports/SimServices.h"
#include "support/PublishedSite.h"
#include "support/RecordingSoundPlayer.h"
#include "support/RecordingWorkspace.h"

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;
using Lines = std::vector<std::string>;

constexpr const char* kStore = "/data/Tarvel";
constexpr const char* kStateFile = "/data/Tarvel/appState.plist";
constexpr const char* kTodayClass = "TodayWindowController";
constexpr const char* kLogClass = "LogWindowController";

WindowKinds fakeKinds() {
  const auto kind = [](const char* name, WindowKind::ComesBack comesBack) {
    return WindowKind{name, "WindowController",
                      [name](const WindowContext& context) {
                        return std::make_unique<KeepingController>(context.application, name, SaveFrame::yes);
                      },
                      comesBack};
  };
  return {kind(kMainWindowClass, WindowKind::ComesBack::yes), kind(kTodayClass, WindowKind::ComesBack::yes),
          kind(kLogClass, WindowKind::ComesBack::no)};
}

class AppControllerTest : public testing::Test {
 protected:
  AppControllerTest() { site_.serveOn(sim_.http); }
  ~AppControllerTest() override {
    app_.reset();
    sim_.world.runUntilIdle();
  }

  AppSetup setup() {
    return {sim_.services, workspace_, census_, sounds_, kStore, site_.server, kAppInfo, fakeKinds()};
  }
  void launch() {
    app_ = std::make_unique<AppController>(setup());
    app_->applicationWillFinishLaunching();
    app_->applicationDidFinishLaunching();
    app_->applicationDidBecomeActive();
  }
  void quit() {
    app_->applicationWillTerminate();
    app_.reset();
    sim_.world.runUntilIdle();
  }
  void storeState(const Dictionary& state) {
    ASSERT_TRUE(sim_.disk.createFolders(kStore));
    ASSERT_TRUE(StateFile(sim_.disk, kStore).write(state));
  }
  Dictionary storedState() { return StateFile(sim_.disk, kStore).read().value_or(Dictionary{}); }
  /// What the windows are marked with, front one first.
  static Lines windowMarks() {
    Lines marks;
    for (const Window* window : Window::orderedWindows()) {
      const auto* controller = dynamic_cast<KeepingController*>(window->delegate());
      marks.push_back(controller->className() + " " + textAt(controller->settings, "mark").value_or("new"));
    }
    return marks;
  }
  static Dictionary window(const char* className, const char* mark) {
    return {{"className", className}, {"mark", mark}};
  }
  /// The printed lines from that one on.
  Lines linesFrom(const std::string& first) const {
    const Lines lines = sim_.console.lines();
    return {std::find(lines.begin(), lines.end(), first), lines.end()};
  }

  SimServices sim_;
  PublishedSite site_ = PublishedSite::sample();
  RecordingWorkspace workspace_;
  ObserverCensus census_;
  RecordingSoundPlayer sounds_;
  std::unique_ptr<AppController> app_;
};

TEST_F(AppControllerTest, AFirstStart) {
  launch();
  EXPECT_EQ(sim_.console.lines().at(0), "gAppSupportURL = /data/Tarvel");
  EXPECT_EQ(sim_.console.lines().at(1), "----- Launch Tarvel 6.1.0 -----");
  EXPECT_EQ(windowMarks(), Lines{"MainWindowController new"});
  const auto* main = dynamic_cast<KeepingController*>(app_->windowControllers.front().get());
  EXPECT_EQ(main->calls, Lines{"default"});
  EXPECT_EQ(gAppController, app_.get());
  EXPECT_EQ(gDataModel, app_->dataModel());

  sim_.world.runFor(1.0);
  EXPECT_EQ(sim_.world.threadNames(), (Lines{"Main Thread", "Clock Update Thread"}));
}

TEST_F(AppControllerTest, WindowsComeBackInTheirStackingOrder) {
  storeState({{"openWindows",
               Array{window(kTodayClass, "a"), window("ForgottenController", "x"),
                     window(kMainWindowClass, "b"), window(kLogClass, "y"), window(kTodayClass, "c")}},
              {"kioskMode", true},
              {"skipBetaCycle", 5}});
  launch();
  EXPECT_EQ(windowMarks(),
            (Lines{"TodayWindowController c", "MainWindowController b", "TodayWindowController a"}));
  EXPECT_TRUE(gKioskMode);
  app_->applicationDidBecomeActive();
  EXPECT_EQ(windowMarks().size(), 3U) << "only the first activation opens them";
  app_->mainWindow();
  app_->addWindowController(std::make_unique<KeepingController>(*app_, kLogClass, SaveFrame::yes), nullptr,
                            RestoreFrame::no)
      .showWindow();
  Window::orderedWindows()[1]->setFrame({120, 140, 420, 330});
  const std::string place = Window::orderedWindows()[1]->stringWithSavedFrame();
  const Lines marks = windowMarks();
  quit();
  EXPECT_EQ(integerAt(storedState(), "skipBetaCycle"), 5);
  EXPECT_EQ(booleanAt(storedState(), "kioskMode"), true);
  EXPECT_EQ(arrayAt(storedState(), "openWindows")->size(), 3U) << "the log doesn't come back";
  launch();
  EXPECT_EQ(windowMarks(), Lines(marks.begin() + 1, marks.end()));
  EXPECT_EQ(Window::orderedWindows().front()->stringWithSavedFrame(), place);
  quit();
  gKioskMode = false;

  storeState({{"openWindows", Array{window("ForgottenController", "x")}}});
  launch();
  EXPECT_EQ(windowMarks(), Lines{"MainWindowController new"}) << "none of those kept can be opened";
  Window::orderedWindows().front()->hide();
  app_->applicationDidBecomeActive();
  EXPECT_EQ(windowMarks(), Lines{"MainWindowController new"}) << "an activation without windows";
}

using AppControllerDeathTest = AppControllerTest;

TEST_F(AppControllerDeathTest, WhatStopsTheProgramAtItsStart) {
  const auto startInconsistent = [this] {
    AppSetup wrong = setup();
    wrong.info.localizedVersion = "6.0.9";
    sim_.disk.failOperation(1, MemoryFileSystem::Repeat::forEver, {MemoryFileSystem::Operation::read, ""});
    AppController controller(wrong);
    controller.applicationWillFinishLaunching();
  };
  EXPECT_DEATH(startInconsistent(), "Fatal error.*inconsistent versions") << "before anything is read";
  storeState({{"openWindows", Array{Dictionary{{"mark", "a"}}}}});
  EXPECT_DEATH(launch(), "Fatal error") << "an open window without its class";
}

TEST_F(AppControllerTest, QuitsInOrderAndOnce) {
  launch();
  sim_.world.runFor(10.0);
  ASSERT_TRUE(sim_.disk.write(join(kStore, "old.txt"), Bytes{1}));
  gErrorLog->addMessage("something went wrong");
  const std::size_t timersBefore = sim_.world.pendingTimers();
  app_->applicationWillTerminate();
  const Lines expected = {"saveAppState", "File saved: /data/Tarvel/appState.plist",
                          "File written: /data/Tarvel/error-log.b1", "remove file: /data/Tarvel/old.txt",
                          "----- Quit Tarvel -----"};
  EXPECT_EQ(linesFrom("saveAppState"), expected);
  EXPECT_TRUE(sim_.disk.info(join(kStore, "error-log.b1")));
  EXPECT_LT(sim_.world.pendingTimers(), timersBefore);
  app_->applicationWillTerminate();
  EXPECT_EQ(linesFrom("saveAppState"), expected);
  EXPECT_FALSE(app_->windowControllers.empty()) << "the windows stay as they are";
}

TEST_F(AppControllerTest, ChangesAreSavedAMinuteLater) {
  launch();
  sim_.world.runFor(300.0);
  app_->isChanged = false;
  (void)sim_.disk.remove(kStateFile);
  app_->dataModel()->noteStateChanged();
  sim_.world.runFor(50.0);
  EXPECT_FALSE(sim_.disk.info(kStateFile));
  sim_.world.runFor(20.0);
  EXPECT_TRUE(sim_.disk.info(kStateFile));
  EXPECT_FALSE(app_->isChanged);

  ASSERT_TRUE(sim_.disk.remove(kStateFile));
  gErrorLog->addMessage("something went wrong");
  sim_.world.runFor(70.0);
  EXPECT_TRUE(sim_.disk.info(join(kStore, "error-log.b1")));
  EXPECT_FALSE(gErrorLog->logChanged);
  EXPECT_FALSE(sim_.disk.info(kStateFile)) << "the state itself hasn't changed";
}

TEST_F(AppControllerTest, ADiskThatRefusesIsToldInTheLogAlone) {
  sim_.disk.setReadOnly(true);
  launch();
  const auto messages = [] {
    Lines texts;
    for (const LogMessage& message : gErrorLog->logMessages()) texts.push_back(message.msg);
    return texts;
  };
  ASSERT_FALSE(messages().empty());
  EXPECT_TRUE(messages().front().starts_with("Can not create directory: /data/Tarvel -- "))
      << messages().front();
  EXPECT_EQ(windowMarks(), Lines{"MainWindowController new"});
  app_->saveAppState();
  EXPECT_TRUE(messages().back().starts_with("Unable to save file: /data/Tarvel/appState.plist -- "));
  quit();
  EXPECT_EQ(sim_.console.lines().back(), "----- Quit Tarvel -----");
}

TEST_F(AppControllerTest, TheLogAsLastWindowBringsBackTheMainOne) {
  launch();
  app_->addWindowController(std::make_unique<KeepingController>(*app_, kLogClass, SaveFrame::yes), nullptr,
                            RestoreFrame::yes)
      .showWindow();
  const auto closeFront = [] { Window::orderedWindows().front()->performClose(); };
  app_->mainWindow();
  closeFront();
  EXPECT_EQ(windowMarks(), Lines{"LogWindowController new"});
  closeFront();
  EXPECT_EQ(windowMarks(), Lines{"MainWindowController new"});
  closeFront();
  EXPECT_TRUE(windowMarks().empty());
}

}  // namespace
}  // namespace tarvel
