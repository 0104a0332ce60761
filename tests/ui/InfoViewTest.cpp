#include "ui/InfoView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include "Painted.h"

namespace tarvel {
namespace {

QRect inkOf(const QImage& image) {
  return test::inkOf(image, [](const QColor& pixel) { return pixel != test::kUntouched; });
}

TEST(InfoView, textStandsInTheMiddleOfTheHeightBetweenTheMargins) {
  InfoView view;
  view.resize(120, 101);
  const TextAttributes attributes{14.0, FontWeight::regular, QColor(Qt::black)};
  EXPECT_TRUE(inkOf(test::painted(view)).isEmpty());
  view.setText(AttributedText("HHHHHHHHHHHHHHHHHHHHHHHH", attributes));
  const QRect wide = inkOf(test::painted(view));
  EXPECT_GE(wide.left(), 6);
  EXPECT_LE(wide.right(), 113);
  EXPECT_NEAR(wide.center().y(), 50, 3);
  view.setText(AttributedText("H", attributes));
  const QRect narrow = inkOf(test::painted(view));
  EXPECT_GE(narrow.left(), 6);
  EXPECT_LE(narrow.left(), 9) << "aligned as its own style says";
  EXPECT_NEAR(narrow.center().y(), 50, 2);
  EXPECT_EQ(view.accessibleName(), "H");
  view.resize(12, 101);
  EXPECT_TRUE(inkOf(test::painted(view)).isEmpty()) << "margins alone leave no room";
}

TEST(InfoView, onlyDoubleClicksWithTheLeftButtonRunTheAction) {
  struct Behind : QWidget {
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    int presses = 0;
  } behind;
  auto* view = new InfoView(&behind);
  const auto send = [&](QEvent::Type type, Qt::MouseButton button) {
    QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button, button, Qt::NoModifier);
    QApplication::sendEvent(view, &event);
  };
  send(QEvent::MouseButtonDblClick, Qt::LeftButton);
  const int withoutAction = behind.presses;
  std::vector<InfoView*> senders;
  view->setDoubleClickAction([&](InfoView& sender) { senders.push_back(&sender); });
  send(QEvent::MouseButtonPress, Qt::LeftButton);
  EXPECT_EQ(behind.presses, withoutAction + 1) << "a single click goes on";
  EXPECT_TRUE(senders.empty());
  send(QEvent::MouseButtonDblClick, Qt::RightButton);
  EXPECT_TRUE(senders.empty());
  send(QEvent::MouseButtonDblClick, Qt::LeftButton);
  EXPECT_EQ(senders, std::vector<InfoView*>{view});
}

}  // namespace
}  // namespace tarvel
