#include <gtest/gtest.h>

#include "model/FileNames.h"
#include "model/PhoneNumber.h"

namespace tarvel {
namespace {

TEST(FileNamesTest, WeekNamesAreTakenApartToTheLetter) {
  EXPECT_EQ(weekFileName(7, packedDate(2025, 3, 2)), "venue-7_week-2025-03-02.b1");
  EXPECT_EQ(rinkFolderName(12), "rink-12");
  const WeekName week{7, packedDate(2025, 3, 2)};
  for (const char* name : {"venue-7_week-2025-03-02", "venue-+7_week-+2025-3-2"})
    EXPECT_EQ(parseWeekName(name), week) << name;
  EXPECT_EQ(parseWeekName("venue-7_week-2025-99-99"), (WeekName{7, packedDate(2025, 99, 99)}))
      << "no range is checked";
  for (const char* name : {"venue-7_week-2025-03-02.b1", "venue--7_week-2025-03-02", "venue-7_week-2025-03",
                           "venue-7_week-2025-03-02_1", "venue-7_weeks-2025-03-02",
                           "venue-7x_week-2025-03-02", "venue-7_week-2025-03-+-2",
                           "venue-99999999999999999999_week-2025-03-02", "../venue-7_week-2025-03-02"}) {
    EXPECT_FALSE(parseWeekName(name)) << name;
  }
}

TEST(FileNamesTest, SchedulesNamesNeedTheirExtension) {
  EXPECT_EQ(schedulesFileName(3), "venue-3_schedules.b1");
  for (const char* name : {"venue-3_schedules.b1", "venue-+3_schedules.b1"})
    EXPECT_EQ(parseSchedulesFileName(name), 3) << name;
  for (const char* name :
       {"venue-3_schedules", "venue-3_schedules.b2", "venue-3_schedule.b1", "venue-3_x_schedules.b1",
        "room-3_schedules.b1", "/venue-3_schedules.b1", "venue-3_schedules.b1.b1", ".b1"}) {
    EXPECT_FALSE(parseSchedulesFileName(name)) << name;
  }
}

TEST(PhoneNumberTest, TextsPackAndFormatBack) {
  const struct {
    std::string text;
    std::optional<std::uint64_t> packed;
    std::string shown;
  } cases[] = {{"", 0, ""},
               {"555 1234", 0x7000000005551234, "555-1234"},
               {"(303) 555-0123", 0xA000003035550123, "(303) 555-0123"},
               {"0000000", 0x7000000000000000, "000-0000"},
               {"555123", std::nullopt, ""},
               {"1 303 555 0123", std::nullopt, ""},
               {"555.1234", std::nullopt, ""},
               {"- -", std::nullopt, ""}};
  for (const auto& c : cases) {
    EXPECT_EQ(parsePhone(c.text), c.packed) << c.text;
    EXPECT_EQ(formattedPhone(c.packed.value_or(0)), c.shown);
  }
  EXPECT_EQ(formattedPhone(0x3000000000000911), "911");
  EXPECT_EQ(formattedPhone(0xF123456789012345), "123456789012345");
}

}  // namespace
}  // namespace tarvel
