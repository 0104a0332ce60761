#include "mainwindow/InfoPane.h"

#include <QPushButton>

#include "NoticesWorld.h"
#include "mainwindow/RinkInfoText.h"
#include "model/MainFile.h"

namespace tarvel {
namespace {

TEST(RinkInfoText, WhatIsMissingLeavesNoGap) {
  const std::uint64_t phone = 0xA000003035550123U;
  const auto text = [](auto name, auto street, auto city, auto state, auto zip, std::uint64_t number) {
    RinkRecord rink;
    std::tie(rink.name, rink.street, rink.city, rink.state, rink.zip) =
        std::tie(name, street, city, state, zip);
    rink.phone = number;
    return rinkInfoText(rink);
  };
  EXPECT_EQ(text("Arctic", "1 Pine St", "Springfield", "CO", "80301", phone),
            "Arctic\n1 Pine St\nSpringfield, CO  80301\n\n(303) 555-0123");
  EXPECT_EQ(text("Arctic", "1 Pine St", "", "", "", 0), "Arctic\n1 Pine St");
  EXPECT_EQ(text("Arctic", "", "", "CO", "80301", 0), "Arctic\nCO  80301");
  EXPECT_EQ(text("", "1 Pine St", "Springfield", "", "80301", 0), "1 Pine St\nSpringfield  80301");
  EXPECT_EQ(text("Arctic", "", "", "", "", phone), "Arctic\n\n(303) 555-0123");
  EXPECT_EQ(text("", "", "", "", "", 0), "");
}

class InfoPaneTest : public test::NoticesWorld {
 protected:
  InfoPaneTest() {
    pane->resize(window.size());
    pane->show();
  }
  ~InfoPaneTest() override { pane->close(); }

  std::shared_ptr<RinkInfo> info = world.dataModel.rinkInfo(7);
  InfoPane* pane = new InfoPane(world.context, &window);
};

TEST_F(InfoPaneTest, ShowsTheButtonsThatTheRinkHasAUseFor) {
  EXPECT_TRUE(pane->noRinkSelectedLabel().isVisible());
  EXPECT_FALSE(pane->rinkInfoField().text() || pane->visitWebsiteButton().isVisible());
  const struct {
    const char *website, *street;
    double latitude, longitude;
    bool visit, locate;
  } cases[] = {{"", "", 0.0, 0.0, false, false},
               {"https://a.test", "", 40.0, -105.0, true, false},
               {"", "1 Pine St", 40.0, 0.0, false, false},
               {"", "1 Pine St", 0.0, -105.0, false, false},
               {"x", "1 Pine St", 40.0, -105.0, true, true}};
  for (const auto& c : cases) {
    info->websiteUrl = c.website;
    info->street = c.street;
    info->latitude = c.latitude;
    info->longitude = c.longitude;
    pane->setRink(info, rink);
    EXPECT_EQ(pane->visitWebsiteButton().isVisible(), c.visit);
    EXPECT_EQ(pane->locateOnMapButton().isVisible(), c.locate);
    EXPECT_FALSE(pane->noRinkSelectedLabel().isVisible());
    EXPECT_EQ(pane->rinkInfoField().text()->plainText().toStdString(), rinkInfoText(*info));
  }
  QTest::mouseClick(&pane->visitWebsiteButton(), Qt::LeftButton);
  QTest::mouseClick(&pane->locateOnMapButton(), Qt::LeftButton);
  EXPECT_EQ(world.workspace.opened, (std::vector<std::string>{"x", "at 40.000000 -105.000000"}));
}

TEST_F(InfoPaneTest, ShowsTheCoverPhotoWhileItsImageIsThereAndCountsAsItsViewer) {
  MainFile file;
  file.coverPhotoID = 12;
  file.coverPhotoVersions.resize(2);
  file.coverPhotoVersions[0].size = {80, 40};
  file.coverPhotoVersions[1].size = {4000, 4000};
  rink->adoptCoverPhoto(file);
  const auto photo = rink->coverPhotoCache;
  pane->setRink(info, rink);
  EXPECT_FALSE(pane->rinkInfoPhotoView().isVisible()) << "no image yet";
  photo->setImage(world.sim.images.decode(FakeImageDecoder::file(8, 4)), 2);
  pane->setRink(info, rink);
  EXPECT_TRUE(pane->rinkInfoPhotoView().isVisible());
  EXPECT_EQ(photo->viewCount, 1);
  rink->adoptCoverPhoto(file);
  pane->setRink(info, rink);
  EXPECT_EQ(photo->viewCount, 0);
  EXPECT_EQ(photo->cacheExpiration, world.sim.world.now() + 1800.0);
  EXPECT_EQ(rink->coverPhotoCache->viewCount, 1);
  EXPECT_FALSE(pane->rinkInfoPhotoView().isVisible());
  pane->close();
  EXPECT_EQ(rink->coverPhotoCache->viewCount, 0);
}

}  // namespace
}  // namespace tarvel
