#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "ui/Window.h"

namespace tarvel {
namespace {

struct RecordingDelegate : WindowDelegate {
  bool windowShouldClose() override {
    ++asked;
    return mayClose;
  }
  void windowWillClose() override {
    ++closings;
    visibleAtClosing = window && window->isVisible() && Window::orderedWindows().size() == 1;
    if (window) window->close();
  }
  void windowDidResize() override { ++resizes; }
  Rect windowWillUseStandardFrame(const Rect& area) override {
    standardFor = area;
    return {window->frame().x, window->frame().y, window->frame().width, 3000};
  }
  bool windowShouldZoom(const Rect&) override { return mayZoom; }

  Window* window = nullptr;
  bool mayClose = true;
  bool mayZoom = true;
  int asked = 0;
  int closings = 0;
  int resizes = 0;
  bool visibleAtClosing = false;
  Rect standardFor;
};

class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    // What the window manager adds is known from the first window on that it has shown.
    Window first;
    first.makeKeyAndOrderFront();
    QApplication::processEvents();
    delegate_.window = &window_;
    window_.setDelegate(&delegate_);
  }
  RecordingDelegate delegate_;
  Window window_;
};

TEST_F(WindowTest, ItsFrameIsTheOneSetBeforeAndAfterItIsShown) {
  const Rect frame{120, 80, 400, 300};
  window_.setFrame(frame);
  EXPECT_EQ(window_.frame(), frame);
  window_.show();
  QApplication::processEvents();
  EXPECT_EQ(window_.frame(), frame);
  EXPECT_EQ(window_.frameGeometry().bottom() + 1, window_.screenFrame().height - 80);
  delegate_.resizes = 0;
  window_.setFrameTopLeftPoint({10, 500});
  EXPECT_EQ(window_.frame(), (Rect{10, 200, 400, 300}));
  EXPECT_EQ(delegate_.resizes, 0);
  window_.setFrame({50, 100, 333, 222});
  EXPECT_EQ(delegate_.resizes, 1);
}

TEST_F(WindowTest, SavedFramesComeBackToThePixelHoweverOften) {
  window_.setFrame({33, 44, 401, 303});
  std::string text = window_.stringWithSavedFrame();
  for (int i = 0; i < 3; ++i) {
    Window next;
    ASSERT_TRUE(next.setFrameFromString(text));
    next.show();
    QApplication::processEvents();
    EXPECT_EQ(next.frame(), window_.frame());
    EXPECT_EQ(next.stringWithSavedFrame(), text);
    text = next.stringWithSavedFrame();
  }
  EXPECT_FALSE(window_.setFrameFromString("here and there"));
  EXPECT_EQ(window_.frame(), (Rect{33, 44, 401, 303}));
}

TEST_F(WindowTest, AFullScreenWindowSavesTheFrameItReturnsTo) {
  window_.setFrame({33, 44, 401, 303});
  window_.show();
  QApplication::processEvents();
  const std::string text = window_.stringWithSavedFrame();
  window_.showFullScreen();
  QApplication::processEvents();
  EXPECT_NE(window_.frame(), (Rect{33, 44, 401, 303}));
  EXPECT_EQ(window_.stringWithSavedFrame(), text);
  const Rect full = window_.frame();
  window_.setFrame({0, 0, 200, 200});
  EXPECT_EQ(window_.frame(), full);
}

TEST_F(WindowTest, FramesKeepToTheirLimits) {
  window_.setFrameLimits({300, 200}, {600, 500});
  window_.setFrame({50, 100, 10, 10});
  EXPECT_EQ(window_.frame(), (Rect{50, -90, 300, 200})) << "the upper edge stays";
  window_.setFrame({50, 20, 700, 700});
  EXPECT_EQ(Size({window_.frame().width, window_.frame().height}), (Size{600, 500}));
  EXPECT_EQ(window_.smallestFrame(), (Size{300, 200}));
}

TEST_F(WindowTest, ZoomsToTheDelegatesFrameAndBack) {
  const Rect small{50, 100, 300, 200};
  window_.setFrame(small);
  window_.show();
  delegate_.mayZoom = false;
  window_.zoom();
  EXPECT_EQ(window_.frame(), small);
  delegate_.mayZoom = true;
  window_.zoom();
  const Rect area = window_.visibleFrame();
  EXPECT_EQ(delegate_.standardFor, area);
  EXPECT_EQ(window_.frame(), (Rect{50, area.y, 300, area.height}));
  window_.zoom();
  EXPECT_EQ(window_.frame(), small);
}

TEST_F(WindowTest, TheUsersClosingAsksTheDelegateFirst) {
  const std::tuple<const char*, void (*)(Window&), bool> cases[] = {
      {"performClose", [](Window& w) { w.performClose(); }, true},
      {"the window manager's button", [](Window& w) { static_cast<QWidget&>(w).close(); }, true},
      {"close", [](Window& w) { w.close(); }, false},
  };
  for (const auto& [name, closing, asks] : cases) {
    for (const bool mayClose : {false, true}) {
      delegate_.mayClose = mayClose;
      delegate_.asked = delegate_.closings = 0;
      window_.show();
      int closed = 0;
      const auto counting = QObject::connect(&window_, &Window::closed, [&] { ++closed; });
      closing(window_);
      const bool closes = mayClose || !asks;
      EXPECT_EQ(delegate_.asked, asks ? 1 : 0) << name;
      EXPECT_EQ(delegate_.closings, closes ? 1 : 0) << name;
      EXPECT_EQ(window_.isVisible(), !closes) << name;
      EXPECT_EQ(closed, closes ? 1 : 0) << name;
      QObject::disconnect(counting);
      EXPECT_TRUE(!closes || delegate_.visibleAtClosing) << name;
    }
  }
}

class AuxiliaryWindow final : public Window {
 public:
  bool canBecomeMain() const override { return false; }
};

class WindowOrderTest : public testing::Test {
 protected:
  void watch(Window& window, const std::string& name) {
    QObject::connect(&window, &Window::becameMain, [this, name] { log_.push_back(name + " main"); });
    QObject::connect(&window, &Window::resignedMain, [this, name] { log_.push_back(name + " not main"); });
    QObject::connect(&window, &Window::becameKey, [this, name] { log_.push_back(name + " key"); });
    QObject::connect(&window, &Window::resignedKey, [this, name] { log_.push_back(name + " not key"); });
  }
  static void bringUp(Window& window) {
    window.makeKeyAndOrderFront();
    QApplication::processEvents();
  }
  std::vector<std::string> takeLog() { return std::exchange(log_, {}); }
  using Windows = std::vector<Window*>;
  using Log = std::vector<std::string>;

  std::vector<std::string> log_;
};

TEST_F(WindowOrderTest, VisibleWindowsStandInTheOrderOfTheirActivation) {
  Window a;
  Window b;
  Window c;
  EXPECT_EQ(Window::orderedWindows(), Windows{});
  bringUp(a);
  bringUp(b);
  bringUp(c);
  EXPECT_EQ(Window::orderedWindows(), (Windows{&c, &b, &a}));
  bringUp(a);
  EXPECT_EQ(Window::orderedWindows(), (Windows{&a, &c, &b}));
  b.orderFront();
  EXPECT_EQ(Window::orderedWindows(), (Windows{&b, &a, &c}));
  c.hide();
  EXPECT_EQ(Window::orderedWindows(), (Windows{&b, &a}));
  {
    Window d;
    bringUp(d);
    EXPECT_EQ(Window::orderedWindows().front(), &d);
  }
  EXPECT_EQ(Window::orderedWindows(), (Windows{&b, &a}));
}

TEST_F(WindowOrderTest, KeyAndMainPassFromWindowToWindow) {
  Window a;
  Window b;
  watch(a, "a");
  watch(b, "b");
  bringUp(a);
  EXPECT_EQ(takeLog(), (Log{"a key", "a main"}));
  EXPECT_TRUE(a.isKey() && a.isMain());
  bringUp(b);
  EXPECT_EQ(takeLog(), (Log{"a not key", "a not main", "b key", "b main"}));
  EXPECT_EQ(Window::mainWindow(), &b);
  b.close();
  QApplication::processEvents();
  EXPECT_FALSE(b.isKey() || b.isMain());
  const Log log = takeLog();
  EXPECT_EQ((Log{log.begin(), log.begin() + 2}), (Log{"b not key", "b not main"}));
}

TEST_F(WindowOrderTest, AnAuxiliaryWindowAndADialogLeaveTheMainWindowInCharge) {
  Window main;
  AuxiliaryWindow auxiliary;
  watch(main, "main");
  watch(auxiliary, "aux");
  bringUp(main);
  takeLog();
  bringUp(auxiliary);
  EXPECT_EQ(takeLog(), (Log{"main not key", "aux key"}));
  EXPECT_TRUE(main.isMain());
  bringUp(main);
  EXPECT_EQ(takeLog(), (Log{"aux not key", "main key"}));
  QDialog dialog(&main);
  dialog.show();
  dialog.activateWindow();
  QApplication::processEvents();
  EXPECT_EQ(takeLog(), (Log{"main not key"}));
  EXPECT_TRUE(main.isMain());
}

TEST_F(WindowOrderTest, AHandlerMayPassTheKeyOn) {
  Window a;
  Window b;
  bringUp(b);
  QObject::connect(&a, &Window::becameKey, &a, [&] { a.close(); });
  bringUp(a);
  EXPECT_FALSE(a.isVisible());
  EXPECT_FALSE(a.isMain());
}

}  // namespace
}  // namespace tarvel
