#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <functional>

#include "Painted.h"
#include "ui/BoxView.h"
#include "ui/InfoView.h"

namespace tarvel {
namespace {

using test::kUntouched;
using test::painted;

const QColor kRed(200, 0, 0);
const QColor kBlue(0, 0, 200);

struct Spot {
  int x;
  int y;
  QColor color;
};

void expectSpots(const QImage& image, const std::vector<Spot>& spots) {
  for (const Spot& spot : spots)
    EXPECT_EQ(image.pixelColor(spot.x, spot.y), spot.color) << spot.x << ", " << spot.y;
}

/// What a view that doesn't want a press leaves it to.
struct Behind : QWidget {
  void mousePressEvent(QMouseEvent*) override { ++presses; }
  int presses = 0;
};

void sendMouse(QWidget& view, QEvent::Type type, Qt::MouseButton button) {
  QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button, button, Qt::NoModifier);
  QApplication::sendEvent(&view, &event);
}

TEST(BoxView, wholeFrameLiesInsideTheBounds) {
  // The line's width, device pixels to a logical one, and the line's on the device.
  const std::tuple<double, double, int> cases[] = {{0.0, 1.0, 1}, {1.0, 1.0, 1}, {3.0, 1.0, 3},
                                                   {1.0, 2.0, 2}, {2.0, 1.5, 3}, {0.5, 2.0, 2}};
  for (const auto& [lineWidth, ratio, n] : cases) {
    SCOPED_TRACE(testing::Message() << lineWidth << " at " << ratio);
    BoxView box;
    box.resize(20, 10);
    box.setBgColor(kBlue);
    box.setFrameColor(kRed);
    box.setLineWidth(lineWidth);
    const QImage image = painted(box, ratio);
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    const int middle = image.height() / 2;
    expectSpots(image, {{0, 0, kRed},
                        {n - 1, middle, kRed},
                        {n, middle, kBlue},
                        {right - n + 1, middle, kRed},
                        {right - n, middle, kBlue},
                        {image.width() / 2, n - 1, kRed},
                        {image.width() / 2, n, kBlue},
                        {right, bottom, kRed},
                        {image.width() / 2, bottom - n + 1, kRed},
                        {image.width() / 2, bottom - n, kBlue}});
  }
}

TEST(BoxView, edgesLieWhereTheirNamesHaveAlwaysPutThem) {
  const std::tuple<const char*, BoxEdges, std::vector<Spot>> cases[] = {
      {"right",
       {.right = true},
       {{29, 0, kRed}, {29, 29, kRed}, {0, 15, kBlue}, {15, 0, kBlue}, {15, 29, kBlue}}},
      {"top", {.top = true}, {{0, 29, kRed}, {29, 29, kRed}, {15, 0, kBlue}, {29, 15, kBlue}}},
      {"bottom", {.bottom = true}, {{0, 0, kRed}, {29, 0, kRed}, {15, 29, kBlue}, {0, 15, kBlue}}},
      {"left",
       {.left = true},
       {{5, 5, kRed}, {15, 15, kRed}, {28, 28, kRed}, {0, 15, kBlue}, {25, 5, kBlue}}},
      {"none", {}, {{0, 0, kBlue}, {29, 29, kBlue}, {15, 15, kBlue}}},
  };
  for (const auto& [name, edges, spots] : cases) {
    SCOPED_TRACE(name);
    BoxView box;
    box.resize(30, 30);
    box.setBoxEdges(edges);
    box.setLineWidth(2.0);
    expectSpots(painted(box), {{0, 0, kUntouched}, {29, 29, kUntouched}, {15, 15, kUntouched}});
    box.setBgColor(kBlue);
    box.setFrameColor(kRed);
    expectSpots(painted(box), spots);
  }
}

TEST(BoxView, cornersAreOpenWhenRounded) {
  BoxView box;
  box.resize(30, 30);
  box.setBgColor(kBlue);
  EXPECT_TRUE(box.testAttribute(Qt::WA_OpaquePaintEvent));
  box.setCornerRadius(8.0);
  EXPECT_TRUE(box.isOpaque());
  EXPECT_FALSE(box.testAttribute(Qt::WA_OpaquePaintEvent)) << "something else has to paint the corners";
  expectSpots(painted(box), {{0, 0, kUntouched}, {29, 29, kUntouched}, {15, 0, kBlue}, {8, 8, kBlue}});
}

TEST(BoxView, pressesGoToTheDelegateOrToWhatIsBehind) {
  struct Delegate : BoxViewDelegate {
    void mouseDown(QMouseEvent&) override { text += 'l'; }
    void rightMouseDown(QMouseEvent&) override { text += 'r'; }
    std::string text;
  } delegate;
  Behind behind;
  auto* box = new BoxView(&behind);
  const auto press = [&](Qt::MouseButton button) { sendMouse(*box, QEvent::MouseButtonPress, button); };
  press(Qt::LeftButton);
  press(Qt::RightButton);
  EXPECT_EQ(behind.presses, 2);
  box->setDelegate(&delegate);
  press(Qt::LeftButton);
  press(Qt::RightButton);
  EXPECT_EQ(delegate.text, "lr");
  press(Qt::MiddleButton);
  EXPECT_EQ(delegate.text, "lr");
  EXPECT_EQ(behind.presses, 3);
}

TEST(BoxView, anotherColourRedrawsAndTheSameDoesNot) {
  struct Painting : BoxView {
    void paintEvent(QPaintEvent*) override { ++paintings; }
    int paintings = 0;
  } box;
  box.show();
  const auto fill = [&] { box.setBgColor(kContentBackground); };
  const auto frame = [&] { box.setFrameColor(kTertiaryLabel); };
  const auto unframe = [&] { box.setFrameColor(std::nullopt); };
  const std::pair<std::function<void()>, int> changes[] = {
      {fill, 1}, {fill, 0}, {frame, 1}, {frame, 0}, {unframe, 1}};
  for (const auto& [change, paintings] : changes) {
    QApplication::processEvents();
    box.paintings = 0;
    change();
    QApplication::processEvents();
    EXPECT_EQ(box.paintings, paintings);
  }
  EXPECT_EQ(box.focusPolicy(), Qt::NoFocus);
  box.setAllowFirstResponder(true);
  EXPECT_EQ(box.focusPolicy(), Qt::StrongFocus);
}

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
  Behind behind;
  auto* view = new InfoView(&behind);
  const auto send = [&](QEvent::Type type, Qt::MouseButton button) { sendMouse(*view, type, button); };
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
