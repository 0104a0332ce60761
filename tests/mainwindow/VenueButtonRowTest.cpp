#include "mainwindow/VenueButtonRow.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "schedule/ScheduleWorld.h"

namespace tarvel {
namespace {

using test::ScheduleWorld;

TEST(VenueButtonRow, breaksIntoRowsAndHidesWithNothingToChoose) {
  ScheduleWorld world;
  world.addRink(1, "Rink");
  std::vector<VenueRecord> records;
  for (int id = 1; id <= 9; ++id) records.push_back(ScheduleWorld::venue(id, "A sheet of some name", id));
  const auto rink = world.openRink(1, records);
  QWidget parent;
  VenueButtonRow row(&parent);
  row.resize(400, 10);
  row.setVenues(rink->venues, 3);
  int rows = 0;
  int lastY = -1;
  for (const auto* button : row.findChildren<QPushButton*>()) {
    EXPECT_LE(button->geometry().right(), 400);
    EXPECT_EQ(button->isChecked(), button == row.findChildren<QPushButton*>()[2]);
    if (button->y() != lastY) ++rows;
    lastY = button->y();
  }
  EXPECT_GT(rows, 2);
  EXPECT_GT(row.height(), 2 * 28);
  EXPECT_FALSE(row.isHidden());
  row.setVenues({rink->venues[0]}, 1);
  EXPECT_TRUE(row.isHidden());
}

}  // namespace
}  // namespace tarvel
