#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <utility>

#include "platform/qt/QtImage.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtSoundPlayer.h"

namespace tarvel {
namespace {

Bytes encoded(const QImage& picture, const char* format) {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(picture.save(&buffer, format)) << format;
  return {data.begin(), data.end()};
}

QImage patterned(int width, int height) {
  QImage picture(width, height, QImage::Format_ARGB32);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) picture.setPixel(x, y, qRgba(x * 7 % 256, y * 5 % 256, x * y % 256, 255));
  return picture;
}

TEST(QtImageDecoder, GivesThePictureOfWholeFiles) {
  QtImageDecoder decoder;
  const QImage original = patterned(60, 40);
  const auto png = decoder.decode(encoded(original, "PNG"));
  ASSERT_TRUE(png);
  EXPECT_EQ(png->pixelSize(), (Size{60, 40}));
  EXPECT_EQ(dynamic_cast<const QtImage&>(*png).picture().convertToFormat(QImage::Format_ARGB32), original);
  const auto jpeg = decoder.decode(encoded(original, "JPG"));
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(jpeg->pixelSize(), (Size{60, 40}));
}

TEST(QtImageDecoder, ScalesDownToWhatIsWanted) {
  QtImageDecoder decoder;
  const std::pair<Size, Size> cases[] = {{{100, 100}, {100, 50}},    {{400, 200}, {400, 200}},
                                         {{900, 900}, {400, 200}},   {{400, 100}, {200, 100}},
                                         {{399.5, 200}, {400, 200}}, {{1, 1}, {1, 1}},
                                         {{1e300, 1e9}, {400, 200}}};
  for (const char* format : {"PNG", "JPG"}) {
    const Bytes file = encoded(patterned(400, 200), format);
    for (const auto& [wanted, given] : cases) {
      const auto image = decoder.decodeWithin(file, wanted);
      ASSERT_TRUE(image) << format;
      EXPECT_EQ(image->pixelSize(), given) << format << " " << wanted.width;
    }
    EXPECT_FALSE(decoder.decodeWithin(ByteView(file).first(file.size() / 2), {100, 100})) << format;
  }
}

TEST(QtImageDecoder, RefusesOtherFormatsAndDamage) {
  QtImageDecoder decoder;
  const QImage picture = patterned(200, 150);
  EXPECT_FALSE(decoder.decode({}));
  for (const char* format : {"BMP", "PPM", "XPM"})
    EXPECT_FALSE(decoder.decode(encoded(picture, format))) << format;
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9'/></svg>";
  EXPECT_FALSE(decoder.decode(Bytes(svg.begin(), svg.end())));
  for (const char* format : {"PNG", "JPG"}) {
    const Bytes whole = encoded(picture, format);
    for (const double part : {0.001, 0.01, 0.1, 0.5, 0.9, 0.99}) {
      const auto length = static_cast<std::size_t>(static_cast<double>(whole.size()) * part);
      EXPECT_FALSE(decoder.decode(ByteView(whole).first(length))) << format << " cut at " << part;
    }
  }
}

TEST(QtImageDecoder, RefusesPicturesBeyondTheLimits) {
  // One bit a pixel makes small files of large pictures; decoded they take four bytes.
  QtImageDecoder decoder;
  const std::tuple<int, int, bool> cases[] = {{16'384, 1, true},    {1, 16'384, true},
                                              {16'385, 1, false},   {1, 16'385, false},
                                              {8'192, 4'096, true}, {8'192, 4'097, false}};
  for (const auto& [columns, rows, fits] : cases) {
    QImage picture(columns, rows, QImage::Format_Mono);
    picture.fill(1);
    const auto decoded = decoder.decode(encoded(picture, "PNG"));
    EXPECT_EQ(decoded != nullptr, fits) << columns << "x" << rows;
  }
}

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
