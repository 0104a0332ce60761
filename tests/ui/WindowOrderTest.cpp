#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "ui/Window.h"

namespace tarvel {
namespace {

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
