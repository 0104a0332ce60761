#include "ModelFixture.h"

namespace tarvel {
namespace {

class RinkListTest : public ModelFixture {
 protected:
  RinkListTest() {
    for (const int id : {20, 30, 40}) {
      site.rinks.push_back(site.rinks[1]);
      site.rinks.back().record.rinkID = id;
      site.rinks.back().record.name = "Rink " + std::to_string(id);
    }
    merge();
    announced();
  }
  void merge() { model.mergeRinkList(model.rinkListUpdate(site.rinkList())); }
  RinkRecord& record(std::int64_t rinkID) {
    for (PublishedRink& rink : site.rinks)
      if (rink.record.rinkID == rinkID) return rink.record;
    throw std::out_of_range("no such rink");
  }
  void expectListAsPublished() {
    ASSERT_EQ(model.rinkList.size(), site.rinks.size());
    for (std::size_t i = 0; i < site.rinks.size(); ++i)
      EXPECT_EQ(static_cast<const RinkRecord&>(*model.rinkList[i]), site.rinks[i].record);
  }
};

TEST_F(RinkListTest, AnEqualListAnnouncesNothingAndTidiesNothing) {
  store("rink-99/main.b1", {});
  store("rinks2.json", {});
  const auto before = model.rinkList;
  merge();
  EXPECT_EQ(announced(), Texts{});
  EXPECT_EQ(model.rinkList, before);
  EXPECT_TRUE(exists("rink-99") && exists("rinks2.json"));
}

TEST_F(RinkListTest, RinksComeAndGoWithoutTouchingTheOthers) {
  const auto kept = model.rinkInfo(40);
  const auto goes = model.rinkData(20);
  const auto stays = model.rinkData(30);
  store("rink-20/main.b1", {});
  store("rink-30/main.b1", {});
  announced();
  taken();
  std::erase_if(site.rinks, [](const PublishedRink& rink) { return rink.record.rinkID == 20; });
  site.rinks.insert(site.rinks.begin(), site.rinks[1]);
  record(12).rinkID = 3;
  std::swap(site.rinks[0], site.rinks[3]);  // a server that doesn't sort
  merge();
  std::swap(site.rinks[0], site.rinks[3]);
  expectListAsPublished();
  EXPECT_EQ(model.rinkInfo(40), kept);
  EXPECT_EQ(model.recentRinks, std::vector{stays});
  EXPECT_EQ(taken(), Texts{"20: invalidate"});
  sim.world.runUntilIdle();
  EXPECT_EQ(recorder.count(kRinkDataRemoved, goes.get()), 1U);
  EXPECT_EQ(announced(), (Texts{"rink data removed", "rink list changed"}));
  EXPECT_FALSE(exists("rink-20"));
  EXPECT_TRUE(exists("rink-30"));
  EXPECT_EQ(goes->refreshName(), "unknown rink") << "whoever still holds it";
}

TEST_F(RinkListTest, EveryFieldThatDiffersIsTakenOverAndAnnounced) {
  const std::function<void(RinkRecord&)> changes[] = {
      [](RinkRecord& r) { r.name = "New"; },       [](RinkRecord& r) { r.street = "x"; },
      [](RinkRecord& r) { r.city = "x"; },         [](RinkRecord& r) { r.state = "x"; },
      [](RinkRecord& r) { r.zip = "x"; },          [](RinkRecord& r) { r.phone = 1; },
      [](RinkRecord& r) { r.latitude = 1; },       [](RinkRecord& r) { r.longitude = 1; },
      [](RinkRecord& r) { r.timeZone = "UTC"; },   [](RinkRecord& r) { r.websiteUrl = "x"; },
      [](RinkRecord& r) { r.serverUrl = "x"; },    [](RinkRecord& r) { r.dataPath = "x"; },
      [](RinkRecord& r) { r.logoFileDate = {1}; }, [](RinkRecord& r) { r.darkLogoFileDate = {1}; }};
  for (const auto& change : changes) {
    const auto info = model.rinkInfo(30);
    change(record(30));
    merge();
    expectListAsPublished();
    EXPECT_EQ(model.rinkInfo(30), info) << "the same object, for those who hold it";
    sim.world.runUntilIdle();
    ASSERT_EQ(recorder.names(), (std::vector<std::string_view>{"rink info changed", "rink list changed"}));
    EXPECT_EQ(recorder.deliveries()[0].object, &model);
    EXPECT_EQ(recorder.deliveries()[0].userInfo, (UserInfo{{"rinkID", 30}}));
    EXPECT_EQ(recorder.deliveries()[1].object, &model);
    recorder.clear();
  }
}

TEST_F(RinkListTest, AChangedLogoIsForgottenAndAnnouncedIfItWasAtHand) {
  const auto image = sim.images.decode(FakeImageDecoder::file(8, 4));
  const std::tuple<bool, bool, bool, Texts> cases[] = {
      {false, true, true, {"rink info changed", "rink list changed"}},
      {true, true, false, {"rink info changed", "rink logo changed", "rink list changed"}},
      {true, false, true, {"rink info changed", "rink logo changed", "rink list changed"}},
      {true,
       true,
       true,
       {"rink info changed", "rink logo changed", "rink logo changed", "rink list changed"}}};
  for (const auto& [cached, changeLight, changeDark, posted] : cases) {
    const auto info = model.rinkInfo(30);
    info->cachedLogoImage = info->cachedDarkLogoImage = cached ? image : nullptr;
    RinkRecord& published = record(30);
    if (changeLight) published.logoFileDate = published.logoFileDate.value_or(Instant{1.0}) + 1.0;
    if (changeDark) {
      published.darkLogoFileDate = Instant{1.0};  // the file has the two together
      ++published.darkLogoFileSize;
    }
    merge();
    sim.world.runUntilIdle();
    for (const auto& delivery : recorder.deliveries()) {
      if (delivery.name != kRinkLogoChanged.text) continue;
      EXPECT_EQ(delivery.object, nullptr);
      EXPECT_EQ(delivery.userInfo, (UserInfo{{"rinkID", 30}}));
    }
    EXPECT_EQ(announced(), posted);
    EXPECT_EQ(info->cachedLogoImage != nullptr, cached && !changeLight);
    EXPECT_EQ(info->cachedDarkLogoImage != nullptr, cached && !changeDark);
  }
}

}  // namespace
}  // namespace tarvel
