#include "ui/WindowPane.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "Painted.h"
#include "platform/qt/QtRunLoop.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

const QColor kSurface(255, 255, 255);

struct PaneWindow : Window {
  PaneWindow(NotificationCenter& center, ObserverCensus& census, QWidget* parent = nullptr)
      : Window(parent), pane(new Pane(center, census, this)) {
    resize(200, 100);
    pane->resize(200, 100);
    pane->setBgColor(kSurface);
    first->setGeometry(20, 20, 40, 30);
    second->setGeometry(120, 20, 40, 30);
  }
  /// Keeps what it was asked to paint.
  struct Pane : WindowPane {
    using WindowPane::WindowPane;
    void paintEvent(QPaintEvent* event) override {
      asked += event->region();
      WindowPane::paintEvent(event);
    }
    QRegion asked;
  };
  bool canBecomeMain() const override { return windowModality() == Qt::NonModal; }

  Pane* pane;
  QWidget* first = new QWidget(pane);
  QWidget* second = new QWidget(pane);
};

class WindowPaneTest : public testing::Test {
 protected:
  static void activate(Window* active) {
    if (active) active->show();
    QApplication::processEvents();
    QApplication::setActiveWindow(active);
    QApplication::processEvents();
  }
  QRegion repaintedBy(const std::function<void()>& change) {
    QApplication::processEvents();
    window.pane->asked = {};
    change();
    QApplication::processEvents();
    return window.pane->asked;
  }
  bool showsRing(PaneWindow& of) { return test::painted(*of.pane).pixelColor(19, 35) != kSurface; }

  QtRunLoop loop;
  NotificationCenter center{loop};
  ObserverCensus census;
  PaneWindow window{center, census};
};

TEST_F(WindowPaneTest, ringFadesFromTheViewOutwards) {
  activate(&window);
  window.pane->setFocusView(window.first);
  const QImage image = test::painted(*window.pane);
  const QColor ring = color(kKeyboardFocusIndicator, window.pane);
  for (const auto& [distance, alpha] : {std::pair{1, 0.5}, {2, 0.35}, {3, 0.2}, {4, 0.0}}) {
    SCOPED_TRACE(distance);
    for (const QPoint& spot : {QPoint(20 - distance, 35), QPoint(59 + distance, 35),
                               QPoint(40, 20 - distance), QPoint(40, 49 + distance)}) {
      const QColor seen = image.pixelColor(spot);
      EXPECT_NEAR(seen.red(), 255 - alpha * (255 - ring.red()), 2.0);
      EXPECT_NEAR(seen.blue(), 255 - alpha * (255 - ring.blue()), 2.0);
    }
  }
}

TEST_F(WindowPaneTest, ringShowsInTheMainWindowAndItsSheets) {
  window.pane->setFocusView(window.first);
  PaneWindow sheet{center, census, &window};
  sheet.setWindowModality(Qt::WindowModal);
  sheet.pane->setFocusView(sheet.first);
  PaneWindow other{center, census};
  other.pane->setFocusView(other.first);
  EXPECT_FALSE(showsRing(window));
  activate(&window);
  EXPECT_TRUE(showsRing(window));
  activate(&sheet);
  ASSERT_FALSE(sheet.isMain());
  EXPECT_TRUE(showsRing(window));
  EXPECT_TRUE(showsRing(sheet));
  activate(&other);
  EXPECT_FALSE(showsRing(window));
  EXPECT_FALSE(showsRing(sheet));
  EXPECT_TRUE(showsRing(other));
  other.pane->hideCnt = 1;
  EXPECT_FALSE(showsRing(other));
}

TEST_F(WindowPaneTest, repaintsAroundTheOldAndTheNewView) {
  activate(&window);
  const QRect aroundFirst(15, 15, 50, 40);
  const QRect aroundSecond(115, 15, 50, 40);
  EXPECT_EQ(repaintedBy([&] { window.pane->setFocusView(window.first); }), QRegion(aroundFirst));
  EXPECT_TRUE(repaintedBy([&] { window.pane->setFocusView(window.first); }).isEmpty());
  EXPECT_EQ(repaintedBy([&] { window.pane->setFocusView(window.second); }),
            QRegion(aroundFirst).united(aroundSecond));
  EXPECT_EQ(repaintedBy([&] { QApplication::setActiveWindow(nullptr); }), QRegion(aroundSecond));
  EXPECT_EQ(repaintedBy([&] { QApplication::setActiveWindow(&window); }), QRegion(aroundSecond));
  EXPECT_EQ(repaintedBy([&] { window.pane->setFocusView(nullptr); }), QRegion(aroundSecond));
}

TEST_F(WindowPaneTest, closedPaneHearsNothing) {
  activate(&window);
  window.pane->setFocusView(window.first);
  center.deliver({kCheckObservers, {}, {}});
  ASSERT_EQ(census.lines().size(), 1U);
  EXPECT_EQ(census.lines().front().text, "   WindowPane");
  EXPECT_FALSE(repaintedBy([&] { window.pane->close(); }).isEmpty());
  EXPECT_TRUE(repaintedBy([&] { QApplication::setActiveWindow(nullptr); }).isEmpty());
  center.deliver({kCheckObservers, {}, {}});
  EXPECT_EQ(census.lines().size(), 1U);
}

TEST_F(WindowPaneTest, focusViewMayGoFirst) {
  activate(&window);
  window.pane->setFocusView(window.first);
  delete window.first;
  EXPECT_EQ(window.pane->focusView(), nullptr);
  EXPECT_FALSE(showsRing(window));
  window.pane->setFocusView(window.second);
}

}  // namespace
}  // namespace tarvel
