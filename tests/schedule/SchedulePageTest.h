#pragma once
#include <QTest>

#include "Items.h"
#include "ScheduleTestOwner.h"
#include "ScheduleWorld.h"
#include "ui/Window.h"

namespace tarvel::test {

/// Pages of a rink's schedules in a window. By the order of display the venues are 7, 9, 4; the tests give
/// them their sessions.
class SchedulePageTest : public ScheduleWorldTest {
 protected:
  static constexpr PackedDate kWednesday = packedDate(2026, 3, 18);  // today

  SchedulePageTest() {
    world.addRink(1, "Rink");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Far", 3), ScheduleWorld::venue(7, "Near", 1),
                              ScheduleWorld::venue(9, "", 2)});
  }
  WeeklySchedule& weekOf(std::int64_t venueID) { return *rink->venue(venueID)->weeklySchedule(kWeekOf); }
  QImage picture(QWidget& view) {
    settle();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  std::string infoAt(QWidget& view, int x, int y) {
    QTest::mouseMove(&view, {x, y});
    QApplication::processEvents();
    return owner.info;
  }

  std::shared_ptr<RinkData> rink;
  ScheduleTestOwner owner;
  Window window;
};

}  // namespace tarvel::test
