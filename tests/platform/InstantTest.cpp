#include "platform/Instant.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/posix/PosixFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "support/SimWorld.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

constexpr double kYear = 365.25 * 86'400;
constexpr double kFirst = 24 * kYear;  // of the fifty years from 2025 on
constexpr std::int64_t kStepsInFiftyYears = static_cast<std::int64_t>(50 * kYear * 64);

TEST(Instant, FileTimesRoundToTheNearest) {
  struct Case {
    double seconds;
    FileTime time;
  };
  const Case cases[] = {
      {0.0, {kReferenceDateSince1970, 0}},
      {0.5, {kReferenceDateSince1970, 500'000'000}},
      {-0.25, {kReferenceDateSince1970 - 1, 750'000'000}},
      {-978'307'200.0, {0, 0}},
      {1e-10, {kReferenceDateSince1970, 0}},
      {0.6e-9, {kReferenceDateSince1970, 1}},
      {-1e-10, {kReferenceDateSince1970, 0}},  // the fraction rounds up to a whole second
      {800'000'000.015625, {kReferenceDateSince1970 + 800'000'000, 15'625'000}},
  };
  for (const Case& c : cases) EXPECT_EQ(fileTimeOf({c.seconds}), c.time) << c.seconds;
  EXPECT_EQ(instantOf({kReferenceDateSince1970 - 1, 750'000'000}), Instant{-0.25});
  // Whatever a server promises, the conversion ends and its result can be compared.
  for (const double odd : {1e300, -1e300, HUGE_VAL, std::nan("")}) {
    EXPECT_GE(fileTimeOf({odd}).nanoseconds, 0) << odd;
  }
}

TEST(Instant, ComesBackBitForBit) {
  SeededRandom random(1);
  for (std::int64_t step = 0; step < kStepsInFiftyYears; step += 49'999) {
    const Instant sixtyFourth{kFirst + static_cast<double>(step) / 64};
    ASSERT_EQ(instantOf(fileTimeOf(sixtyFourth)), sixtyFourth) << step;
    const Instant any{kFirst + random.fraction() * 50 * kYear};
    ASSERT_EQ(instantOf(fileTimeOf(any)), any) << any.seconds;
  }
}

TEST(Instant, DatesOnDisksComeBackBitForBit) {
  const TempFolder folder;
  SimWorld world;
  PosixFileSystem realDisk;
  MemoryFileSystem memoryDisk(world.clock());
  const std::pair<FileSystem&, Path> disks[] = {{realDisk, folder.path() + "/file"}, {memoryDisk, "/file"}};
  for (const auto& [disk, path] : disks) {
    ASSERT_TRUE(disk.write(path, {}));
    for (std::int64_t step = 0; step < kStepsInFiftyYears; step += kStepsInFiftyYears / 500) {
      const Instant date{kFirst + static_cast<double>(step) / 64};
      ASSERT_TRUE(disk.setAttributes(path, {date, {}}));
      ASSERT_EQ(disk.info(path)->modificationDate, date) << step;
    }
  }
}

}  // namespace
}  // namespace tarvel
