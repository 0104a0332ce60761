#include "app/CursorHider.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "simulation/ports/SimWorld.h"
#include "support/RecordingWorkspace.h"

namespace tarvel {
namespace {

TEST(CursorHider, HidesWhenNobodyTouchesTheMachineAndShowsAtAMove) {
  SimWorld world;
  RecordingWorkspace workspace;
  CursorHider hider(world.mainLoop(), workspace);
  QWidget view;
  view.setMouseTracking(true);
  view.show();
  int at = 0;
  const auto move = [&] { QTest::mouseMove(&view, {++at, 5}); };
  const auto blank = [] {
    const QCursor* cursor = QApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::BlankCursor;
  };
  move();
  world.runFor(60.0);
  EXPECT_FALSE(blank()) << "not asked for";

  hider.setEnableCursorHiding(CursorHiding::on);
  EXPECT_EQ(hider.secondsUntilHiding(), 10.0);
  world.runFor(0.5);
  move();
  EXPECT_EQ(hider.secondsUntilHiding(), 9.5) << "too soon after the last to set it again";
  world.runFor(1.0);
  move();
  EXPECT_EQ(hider.secondsUntilHiding(), 10.0);
  world.runFor(9.9);
  EXPECT_FALSE(blank());
  world.runFor(0.2);
  EXPECT_TRUE(blank());
  QTest::keyClick(&view, Qt::Key_A);
  EXPECT_TRUE(blank()) << "a key alone doesn't show it";
  EXPECT_EQ(hider.secondsUntilHiding(), 10.0) << "but begins the wait anew";
  const QPointF same = QPointF(QCursor::pos()) + QPointF(0.4, 0.25);
  QMouseEvent still(QEvent::MouseMove, {1.0, 1.0}, same, Qt::NoButton, Qt::NoButton, {});
  QApplication::sendEvent(view.windowHandle(), &still);
  EXPECT_TRUE(blank()) << "the toolkit's own move, of a mouse that stands still";
  move();
  EXPECT_FALSE(blank());
  world.runFor(10.1);
  workspace.wake();
  EXPECT_TRUE(blank()) << "after sleep it stays hidden until it moves";
  EXPECT_EQ(hider.secondsUntilHiding(), 10.0);
  hider.setEnableCursorHiding(CursorHiding::off);
  EXPECT_FALSE(blank());
  world.runFor(60.0);
  EXPECT_FALSE(blank());
}

}  // namespace
}  // namespace tarvel
