#include "ui/Popover.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "Painted.h"
#include "ui/NamedColors.h"
#include "ui/SystemAppearance.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr QRect kScreen(0, 0, 1000, 700);
constexpr QSize kContent(240, 120);

TEST(PopoverPlacementTest, TakesTheFirstEdgeThatHasRoomAndStaysOnTheScreen) {
  using enum PopoverEdge;
  const struct {
    const char* name;
    QRect anchor;
    PopoverEdge preferred;
    PopoverEdge edge;
    QPoint tip;  ///< of the arrow
  } cases[] = {
      {"room on the right", {100, 300, 30, 28}, right, right, {131, 313}},
      {"flips to the left", {900, 300, 30, 28}, right, left, {898, 313}},
      {"from below to above", {500, 650, 30, 28}, below, above, {514, 648}},
      {"neither side has room", {150, 100, 700, 28}, right, below, {499, 129}},
      {"near the upper border", {100, 10, 30, 28}, right, right, {131, 24}},
      {"in the corner the arrow keeps to the straight", {100, 0, 30, 10}, right, right, {131, 24}},
      {"nowhere: where the most is", {100, 50, 850, 610}, right, left, {252, 354}},
  };
  for (const auto& c : cases) {
    const PopoverPlacement placed = placePopover(c.anchor, kContent, kScreen, c.preferred);
    EXPECT_EQ(placed.edge, c.edge) << c.name;
    EXPECT_TRUE(kScreen.contains(placed.frame)) << c.name;
    EXPECT_EQ(placed.body().size(), kContent) << c.name;
    const QPoint corner = placed.frame.topLeft();
    const QPoint far = placed.frame.bottomRight();
    const QPoint tip = placed.edge == right   ? corner + QPoint(0, placed.arrowAt)
                       : placed.edge == left  ? QPoint(far.x(), corner.y() + placed.arrowAt)
                       : placed.edge == below ? corner + QPoint(placed.arrowAt, 0)
                                              : QPoint(corner.x() + placed.arrowAt, far.y());
    EXPECT_EQ(tip, c.tip) << c.name;
    EXPECT_EQ(QRectF(QPointF(), QSizeF(placed.frame.size())), placed.outline(0.0).boundingRect()) << c.name;
  }
}

class PopoverTest : public testing::Test {
 protected:
  PopoverTest() {
    window_->setFrame({100, 100, 500, 400});
    anchor_ = new QWidget(window_.get());
    anchor_->setGeometry(50, 100, 30, 28);
    window_->makeKeyAndOrderFront();
    QApplication::processEvents();
  }
  void open() {
    closings_ = 0;
    field_ = new QLineEdit;
    auto* content = new QWidget;
    (new QVBoxLayout(content))->addWidget(field_);
    popover_ = new Popover(content);
    QObject::connect(popover_, &QObject::destroyed, [this] { popover_ = nullptr; });
    popover_->closed = [this] {
      ++closings_;
      popover_->deleteLater();
    };
    popover_->showRelativeTo(*anchor_, anchor_->rect(), PopoverEdge::right);
    QApplication::processEvents();
  }
  void press(QPoint global) {
    QMouseEvent event(QEvent::MouseButtonPress, popover_->mapFromGlobal(global), global, Qt::LeftButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(popover_, &event);
  }

  std::unique_ptr<Window> window_ = std::make_unique<Window>();
  QWidget* anchor_;
  QLineEdit* field_ = nullptr;
  Popover* popover_ = nullptr;
  int closings_ = 0;
};

TEST_F(PopoverTest, ClosesOnceByWhateverEndsIt) {
  const std::pair<std::string, std::function<void()>> cases[] = {
      {"a press outside", [this] { press(popover_->frameGeometry().bottomRight() + QPoint(50, 50)); }},
      {"a press on the anchor", [this] { press(anchor_->mapToGlobal(QPoint(5, 5))); }},
      {"a press beside the arrow", [this] { press(popover_->mapToGlobal(QPoint(0, 0)) + QPoint(1, 1)); }},
      {"Escape in its field",
       [this] {
         QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
         QApplication::sendEvent(field_, &escape);
       }},
      {"the anchor hides", [this] { anchor_->hide(); }},
      {"its window closes", [this] { window_->close(); }},
      {"the opener closes it", [this] { popover_->close(); }},
  };
  for (const auto& [name, end] : cases) {
    anchor_->show();
    window_->makeKeyAndOrderFront();
    open();
    ASSERT_TRUE(popover_->isVisible()) << name;
    end();
    EXPECT_FALSE(popover_->isVisible()) << name;
    popover_->close();
    EXPECT_EQ(closings_, 1) << name;
    EXPECT_EQ(popover_->testAttribute(Qt::WA_NoMouseReplay), name == "a press on the anchor") << name;
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(popover_) << name;
  }
}

TEST_F(PopoverTest, TellsOfItsGoingWithItsWindowToo) {
  open();
  window_.reset();
  EXPECT_FALSE(popover_);
  EXPECT_EQ(closings_, 1);
}

TEST_F(PopoverTest, StaysForAPressInside) {
  open();
  press(popover_->mapToGlobal(popover_->placement().body().center()));
  EXPECT_TRUE(popover_->isVisible());
  EXPECT_EQ(popover_->focusWidget(), field_) << "its content has the keyboard";
  EXPECT_TRUE(window_->isMain());
}

TEST_F(PopoverTest, FollowsItsAnchorAndItsContent) {
  open();
  const QRect before = popover_->geometry();
  window_->move(window_->pos() + QPoint(30, 20));
  QApplication::processEvents();
  EXPECT_EQ(popover_->geometry(), before.translated(30, 20));
  field_->setMinimumSize(300, 90);
  QApplication::processEvents();
  EXPECT_GE(popover_->content().height(), 90);
  EXPECT_EQ(popover_->geometry(), popover_->placement().frame);
  EXPECT_EQ(popover_->placement().frame.top() + popover_->placement().arrowAt,
            anchor_->mapToGlobal(anchor_->rect().center()).y());
}

TEST_F(PopoverTest, TakesTheAppearanceOfItsWindow) {
  window_->setChosenAppearance(Appearance::dark);
  open();
  const QImage image = test::painted(*popover_);
  EXPECT_EQ(image.pixelColor(popover_->placement().body().topLeft() + QPoint(20, 4)),
            color(kContentBackground, Appearance::dark));
  EXPECT_EQ(image.pixelColor(QPoint(0, 0)), test::kUntouched);
  EXPECT_EQ(field_->palette().color(QPalette::Text), color(kLabel, Appearance::dark));
}

}  // namespace
}  // namespace tarvel
