#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "AppWorld.h"
#include "app/MenuBar.h"
#include "auxwindows/InstanceTable.h"
#include "auxwindows/TarvelURLWindowController.h"

namespace tarvel {
namespace {

using Lines = std::vector<std::string>;

class MenusTest : public AppWorld {
 protected:
  static std::string frontClass() { return frontController().className(); }
  static QMenu* menu(const QString& title, Window& window = front()) {
    for (const QAction* action : MenuBar::of(window)->actions())
      if (action->text().remove('&') == title) return action->menu();
    return nullptr;
  }
  /// "on" or "off", and " x" if it is checked, as the front window's opened menu has it.
  static QString stateOf(const QString& menuTitle, const QString& title) {
    QMenu* found = menu(menuTitle);
    if (!found) return {};
    found->popup({});
    QString state;
    for (const QAction* action : found->actions()) {
      if (action->text() != title) continue;
      state = QString("%1%2").arg(action->isEnabled() ? "on" : "off", action->isChecked() ? " x" : "");
    }
    found->close();
    return state;
  }
  /// As a user does it with the mouse.
  void choose(const QString& menuTitle, const QString& title) {
    QMenu* found = menu(menuTitle);
    ASSERT_TRUE(found) << menuTitle.toStdString();
    found->popup({});
    for (QAction* action : found->actions()) {
      if (action->text() == title) {
        QTest::mouseClick(found, Qt::LeftButton, {}, found->actionGeometry(action).center());
        break;
      }
    }
    found->close();
    settle();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QApplication::setActiveWindow(&front());
    QTest::keyClick(&front(), key, modifiers);
    settle();
  }
};

TEST_F(MenusTest, EachWindowOpensOnceAndComesToTheFront) {
  app_->toggleDebugMenu();
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"Tarvel", "Server Address…", "TarvelURLWindowController"},
      {"Debug", "Debug Window", "DebugWindowController"},
      {"Debug", "Error Log Window", "LogWindowController"},
      {"Debug", "Clock", "ClockWindowController"},
      {"Window", "Main Window", "MainWindowController"},
      {"Debug", "Error Log Window", "LogWindowController"},
      {"Debug", "Debug Window", "DebugWindowController"},
      {"Window", "Main Window", "MainWindowController"},
      {"Window", "Today Window", "TodayWindowController"},
  };
  EXPECT_EQ(stateOf("Window", "Main Window"), "off") << "it is in front";
  for (const auto& [title, command, opened] : cases) {
    ASSERT_NE(MenuBar::of(front()), nullptr);
    EXPECT_EQ(stateOf(title, command), "on") << command;
    choose(title, command);
    EXPECT_EQ(frontClass(), opened) << command;
    EXPECT_EQ(windowsOf(opened), 1U) << command;
  }
  EXPECT_EQ(stateOf("Window", "Today Window"), "off");
  gDataModel->rinkList.clear();
  app_->mainWindow();
  EXPECT_EQ(stateOf("Window", "Today Window"), "off") << "there is no rink to show";
}

TEST_F(MenusTest, TheDebugMenuComesAndGoesInEveryWindow) {
  app_->tarvelURLWindow();
  for (int i = 0; i < 2; ++i) {
    for (Window* window : Window::orderedWindows()) EXPECT_EQ(menu("Debug", *window), nullptr);
    choose("Tarvel", "Show Debug Menu");
    for (Window* window : Window::orderedWindows()) {
      QMenu* debug = menu("Debug", *window);
      ASSERT_TRUE(debug);
      EXPECT_EQ(MenuBar::of(*window)->actions().back()->menu(), debug);
      Lines titles;
      for (const QAction* action : debug->actions()) titles.push_back(action->text().toStdString());
      EXPECT_EQ(titles, (Lines{"Debug Window", "Error Log Window", "Clock", "Free Memory"}));
    }
    app_->showingDebugMenu ? choose("Tarvel", "Hide Debug Menu") : void();
  }
  app_->toggleDebugMenu();
  app_->errorLogWindow();
  EXPECT_TRUE(menu("Debug")) << "a new window has it, too";
}

TEST_F(MenusTest, CommandsThatOpenNoWindow) {
  EXPECT_EQ(stateOf("Tarvel", "Kiosk Mode"), "on");
  choose("Tarvel", "Kiosk Mode");
  EXPECT_EQ(stateOf("Tarvel", "Kiosk Mode"), "on x");
  EXPECT_TRUE(gKioskMode && app_->isChanged);

  EXPECT_EQ(gDataModel->applicationWebsiteURL.empty(), stateOf("Tarvel", "Visit App Website") == "off");
  gDataModel->applicationWebsiteURL = "";
  EXPECT_EQ(stateOf("Tarvel", "Visit App Website"), "off");
  gDataModel->applicationWebsiteURL = "https://app.example/";
  EXPECT_EQ(stateOf("Tarvel", "Visit App Website"), "on");
  choose("Tarvel", "Visit App Website");
  EXPECT_EQ(workspace_.opened, Lines{"https://app.example/"});

  const std::size_t asked = sim_.http.requestCount(site_.server + "/root.b1");
  press(Qt::Key_F5, Qt::ShiftModifier);
  EXPECT_EQ(sim_.http.requestCount(site_.server + "/root.b1"), asked + 1);
  EXPECT_EQ(windowsOf("AlertPanelWindowController"), 0U);
  choose("Tarvel", "Check for App Update…");
  EXPECT_EQ(sim_.http.requestCount(site_.server + "/root.b1"), asked + 2);
  EXPECT_EQ(windowsOf("AlertPanelWindowController"), 1U);
}

TEST_F(MenusTest, KeysGoToTheWindowInFront) {
  app_->errorLogWindow();
  settle();
  ASSERT_EQ(frontClass(), "LogWindowController");
  EXPECT_EQ(stateOf("Edit", "Copy"), "off");
  EXPECT_EQ(stateOf("File", "Print…"), "off") << "no command of this window's";
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(windowsOf("LogWindowController"), 0U);
  press(Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_EQ(frontClass(), "TarvelURLWindowController");
  press(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(frontClass(), "MainWindowController");
  press(Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(windowsOf("TarvelURLWindowController"), 0U);
}

TEST_F(MenusTest, UndoOfTheServerWindow) {
  app_->tarvelURLWindow();
  settle();
  auto& server = dynamic_cast<TarvelURLWindowController&>(frontController());
  const QString before = server.urlField().text();
  QApplication::setActiveWindow(&front());
  server.urlField().selectAll();
  QTest::keyClicks(&server.urlField(), "http://typed");
  server.defaultButton().setFocus();
  server.defaultButton().click();
  EXPECT_EQ(server.serverURL(), before) << "the sample's server is the default";
  choose("Edit", "Undo Change URL");
  EXPECT_EQ(server.urlField().text(), "http://typed");
  choose("Edit", "Redo Change URL");
  EXPECT_EQ(server.urlField().text(), before);
  // The field has the keyboard and nothing of its own to undo.
  QApplication::setActiveWindow(&front());
  server.urlField().setFocus();
  for (const char* text : {"http://typed", "http://catalogue.test"}) {
    QTest::keyClick(&server.urlField(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(server.urlField().text(), text);
  }
  EXPECT_EQ(stateOf("Edit", "Undo"), "off");
}

TEST_F(MenusTest, CopyingTakesWhatTheWindowShows) {
  app_->tarvelURLWindow();
  settle();
  auto& field = dynamic_cast<TarvelURLWindowController&>(frontController()).urlField();
  field.deselect();
  EXPECT_EQ(stateOf("Edit", "Copy"), "off");
  field.selectAll();
  choose("Edit", "Copy");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), site_.server);
  app_->debugWindow();
  settle();
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("\nModel\n"));
}

TEST_F(MenusTest, AMinimisedWindowComesBackAndKeysOpenTheMenus) {
  front().showMinimized();
  app_->mainWindow();
  EXPECT_FALSE(front().isMinimized());
  press(Qt::Key_F10, Qt::NoModifier);
  ASSERT_TRUE(menu("Tarvel")->isVisible());
  menu("Tarvel")->close();
  press(Qt::Key_Alt, Qt::NoModifier);
  EXPECT_TRUE(MenuBar::of(front())->hasFocus());
  app_->showAlert("Title", "Text");
  settle();
  const QWidget* const button = front().focusWidget();
  press(Qt::Key_Alt, Qt::NoModifier);
  EXPECT_EQ(front().focusWidget(), button) << "its menus don't show";
}

TEST_F(MenusTest, NothingIsLeftOfAStormOfWindows) {
  const auto counts = [] {
    std::vector<QString> rows;
    for (const Message& row : memoryRows(instanceTable())) rows.push_back(row.text);
    return rows;
  };
  const auto storm = [this](int rounds) {
    for (int i = 0; i < rounds; ++i) {
      app_->tarvelURLWindow();
      app_->debugWindow();
      app_->errorLogWindow();
      app_->clockWindow();
      app_->todayWindow();
      app_->showAlert("Title", "Text");
      settle();
      while (frontClass() != kMainWindowClass) {
        front().performClose();
        settle();
      }
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  };
  storm(1);  // which brings a rink into use
  const std::vector<QString> before = counts();
  storm(15);
  EXPECT_EQ(counts(), before);
}

}  // namespace
}  // namespace tarvel
