#include "ModelFixture.h"

namespace tarvel {
namespace {

class LogoTest : public ModelFixture {
 protected:
  LogoTest() {
    RinkRecord& record = site.rinks[0].record;
    record.logoFileDate = kDate;
    record.logoFileSize = static_cast<std::int64_t>(kLight.size());
    record.darkLogoFileDate = kDarkDate;
    record.darkLogoFileSize = static_cast<std::int64_t>(kDark.size());
    model.mergeRinkList(decodeRinkList(site.rinkList()));
    announced();
  }
  const Instant kDate{789'000'000.375}, kDarkDate{789'000'001.5};
  const Bytes kLight = FakeImageDecoder::file(8, 4, "light"), kDark = FakeImageDecoder::file(8, 4, "dark!");
};

TEST_F(LogoTest, ACurrentFileServesAndAnyOtherIsRequestedOnce) {
  const struct {
    const char* what;
    Bytes content;
    Instant date;
    bool serves;
  } cases[] = {
      {"current", kLight, kDate, true},
      {"another date", kLight, kDate + 1.0, false},
      {"another size", kDark.size() == kLight.size() ? Bytes{1} : Bytes(kLight.size() + 1), kDate, false},
      {"no picture", Bytes(kLight.size()), kDate, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    store("logos/7.png", c.content, c.date);
    const auto info = model.rinkInfo(7);
    info->cachedLogoImage = nullptr;
    const auto image = info->logoImage();
    EXPECT_EQ(image != nullptr, c.serves);
    EXPECT_EQ(info->logoImage(), image);
    EXPECT_EQ(taken(), c.serves ? Texts{} : Texts{"7.png"});
  }
  EXPECT_EQ(model.rinkInfo(7)->darkLogoImage(), nullptr);
  EXPECT_EQ(taken(), Texts{"7-dark.png"});
  EXPECT_EQ(model.rinkInfo(12)->logoImage(), nullptr);
  EXPECT_EQ(model.rinkInfo(12)->darkLogoImage(), nullptr);
  EXPECT_EQ(taken(), Texts{}) << "a rink without a logo";
}

TEST_F(LogoTest, ADownloadedLogoIsShownStoredAndAnnounced) {
  const auto info = model.rinkInfo(7);
  info->darkLogoImage();
  model.logos().receive(*info, LogoKind::dark, Bytes{'n', 'o'});
  EXPECT_EQ(announced(), Texts{});
  EXPECT_FALSE(exists("logos"));
  EXPECT_EQ(info->darkLogoImage(), nullptr);
  model.logos().receive(*info, LogoKind::dark, kDark);
  EXPECT_EQ(taken(), Texts{"7-dark.png"}) << "what was no picture isn't asked for again";
  ASSERT_TRUE(info->darkLogoImage());
  EXPECT_EQ(info->darkLogoImage()->pixelSize(), (Size{8.0, 4.0}));
  EXPECT_EQ(announced(), Texts{"rink logo changed"});
  EXPECT_EQ(sim.disk.snapshot().at(kFolder + "/logos/7-dark.png").content, kDark);
  EXPECT_EQ(sim.disk.info(kFolder + "/logos/7-dark.png")->modificationDate, kDarkDate);
  info->cachedDarkLogoImage = nullptr;
  EXPECT_TRUE(info->darkLogoImage()) << "current on the disk";
  EXPECT_EQ(taken(), Texts{});
}

}  // namespace
}  // namespace tarvel
