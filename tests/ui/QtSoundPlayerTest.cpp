#include "platform/qt/QtSoundPlayer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <utility>

namespace tarvel {
namespace {

constexpr int kHeaderSize = 44;             // of a file in plain PCM
constexpr double kBytesPerSecond = 88'200;  // mono, 16 bit

TEST(QtSoundPlayerTest, TheSoundsAreThereAtTheirLength) {
  for (const auto& [name, seconds] : {std::pair("Tink", 0.15), std::pair("GlassChime", 1.5)}) {
    QFile file(QStringLiteral(":/sounds/%1.wav").arg(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    EXPECT_EQ(file.size(), kHeaderSize + static_cast<qint64>(seconds * kBytesPerSecond)) << name;
  }
}

TEST(QtSoundPlayerTest, SaysNothingOnAMachineWithoutSound) {
  // Nobody listens there.
  qputenv("PULSE_SERVER", "unix:/nonexistent/pulse");
  QtSoundPlayer player;
  ASSERT_TRUE(player.hasModule());
  testing::internal::CaptureStderr();
  player.playSound(kTinkSound);
  player.playSound(kGlassChimeSound);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(QtSoundPlayerDeathTest, AMissingSoundStopsTheProgram) {
  QtSoundPlayer player;
  EXPECT_DEATH(player.playSound("Gong"), "no sound Gong");
}

}  // namespace
}  // namespace tarvel
