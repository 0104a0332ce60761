#include "ModelFixture.h"
#include "model/ShownPhotos.h"
#include "support/PublishedPhotos.h"

namespace tarvel {
namespace {

const Instant kDate{794'000'000.25};
constexpr Size kStandard{72.0, 72.0}, kDouble{144.0, 144.0};

std::vector<ImageVersion> versions(const std::vector<double>& heights) {
  std::vector<ImageVersion> list;
  for (const double height : heights) list.push_back({{height * 2, height}, 12, kDate});
  return list;
}

TEST(PhotoCollectionFileTest, FieldByFieldAndInOrder) {
  const PublishedPhotos published{kDate, {{9, versions({50})}, {-3, {}}}, {{2, {9, 9, 4}}, {1, {}}}};
  const PhotoCollectionFile file = decodePhotoCollectionFile(published.file());
  EXPECT_EQ(file.fileDate, kDate);
  ASSERT_EQ(file.photos.size(), 2U);
  EXPECT_EQ(file.photos[0]->photoID, -3) << "put in order";
  EXPECT_EQ(file.photos[1]->title, "Photo 9");
  EXPECT_EQ(file.photos[1]->versions, versions({50}));
  ASSERT_EQ(file.albums.size(), 2U);
  EXPECT_EQ(file.albums[0]->albumID, 2) << "as they are to show";
  EXPECT_EQ(file.albums[0]->photoIDs, PhotoIDs({9, 9, 4}));
  EXPECT_EQ(file.albums[0]->descr, "About it");
}

TEST(PhotoTest, TheVersionIsTheSmallestThatIsLargeEnough) {
  const struct {
    std::vector<double> heights;
    Size box, resolution;
    std::int64_t version;
    double fitted;  // height of the version that the box's height asks for
  } cases[] = {
      {{100, 200, 400}, {200, 100}, kStandard, 1, 100}, {{100, 200, 400}, {200, 100}, kDouble, 2, 200},
      {{100, 200, 400}, {201, 100}, kStandard, 2, 100}, {{100, 200, 400}, {10, 401}, kStandard, 3, 400},
      {{50, 60, 70}, {100, 100}, kDouble, 3, 70},       {{100}, {1, 1}, kStandard, 1, 100},
  };
  for (const auto& c : cases) {
    Photo photo;
    photo.versions = versions(c.heights);
    EXPECT_EQ(photo.chooseVersion(c.box, c.resolution)->version, c.version) << c.box.width;
    EXPECT_EQ(photo.fitHeight(c.box.height, c.resolution)->height, c.fitted) << c.box.height;
  }
  EXPECT_FALSE(Photo().chooseVersion({1, 1}, kStandard));
  EXPECT_FALSE(Photo().fitHeight(1, kStandard));
}

class PhotosTest : public ModelFixture {
 protected:
  PhotosTest() {
    model.mergeRinkList(decodeRinkList(site.rinkList()));
    rink = model.rinkData(7);
    rink->photosFileDate = kDate;
    store(
        "rink-7/photoCollection.b1",
        PublishedPhotos{kDate, {{5, versions({50, 100, 200})}, {8, versions({50})}}, {{1, {8, 6, 5}}}}.file(),
        kDate);
    photo = rink->photo(5);
    announced();
    taken();
  }
  std::shared_ptr<const Image> someImage() { return sim.images.decode(FakeImageDecoder::file(2, 1)); }
  void storePhoto(const std::string& name, const Bytes& content) {
    store("rink-7/Photos/" + name, content, kDate);
    photo->versions[0].fileSize = static_cast<std::int64_t>(content.size());
  }

  std::shared_ptr<RinkData> rink;
  std::shared_ptr<Photo> photo;
};

TEST_F(PhotosTest, TheFirstLookReadsTheCollection) {
  EXPECT_TRUE(photo);
  EXPECT_FALSE(rink->photo(6));
  EXPECT_EQ(rink->album(1)->photoIDs, PhotoIDs({8, 6, 5}));
  EXPECT_FALSE(rink->album(2));
  rink->photosFileRead = false;
  rink->photosFileDate = kDate + 1.0;
  rink->photo(5);
  EXPECT_EQ(taken(), Texts{"7: /photoCollection.b1"}) << "out of date";
}

TEST_F(PhotosTest, ANeighbourIsShownWhileTheRightVersionTravels) {
  const auto larger = someImage(), smaller = someImage();
  EXPECT_FALSE(photo->image(2));
  EXPECT_EQ(taken(), Texts{"7: 5-2.jpg"});
  photo->setImage(smaller, 1);
  EXPECT_EQ(photo->image(2), smaller);
  photo->setImage(larger, 3);
  EXPECT_EQ(photo->image(2), larger);
  EXPECT_EQ(announced(), Texts(2, "photo image changed"));
  taken();
  for (const DownloadStatus& status :
       {DownloadStatus::requested(), DownloadStatus{DownloadStatus::Kind::invalidData, {}},
        DownloadStatus::failed("no")}) {
    photo->setDownloadStatus(status, 2);
    EXPECT_EQ(photo->image(2), larger);
    EXPECT_EQ(taken(), Texts{}) << "not asked for again";
  }
  EXPECT_DEATH(photo->image(4), "no such version");
}

TEST_F(PhotosTest, AStoredFileIsUsedIfItIsThePromisedOneAndAPicture) {
  const Bytes good = FakeImageDecoder::file(100, 50);
  const std::tuple<Bytes, Instant, std::int64_t, bool> cases[] = {{good, kDate + 1.0, 0, false},
                                                                  {good, kDate, 1, false},
                                                                  {encoded("no picture"), kDate, 0, false},
                                                                  {good, kDate, 0, true}};
  for (const auto& [stored, date, offSize, used] : cases) {
    storePhoto("5-1.jpg", stored);
    photo->versions[0].fileSize += offSize;
    photo->versions[0].fileDate = date;
    EXPECT_EQ(photo->image(1) != nullptr, used);
    EXPECT_EQ(taken(), used ? Texts{} : Texts{"7: 5-1.jpg"});
  }
  EXPECT_EQ(announced(), Texts{}) << "whoever asked has it";
}

TEST_F(PhotosTest, ImagesOfPhotosThatNothingShowsGoAfterHalfAnHour) {
  model.start(nullptr);
  const auto image = [&] { return photo->versionCache[0].image; };
  photo->setImage(someImage(), 1);
  sim.world.runFor(4'000);
  EXPECT_TRUE(image()) << "never shown";
  {
    ShownPhotos gallery(sim.services.clock), album(sim.services.clock);
    gallery.setPhotos({photo, nullptr});
    gallery.setShown(true);
    album.setPhotos({photo, photo});
    album.setShown(true);
    EXPECT_EQ(photo->viewCount, 3);
    album.setPhotos({photo});
    gallery.setShown(false);
    gallery.setShown(false);
    EXPECT_EQ(photo->viewCount, 1);
    sim.world.runFor(4'000);
    EXPECT_TRUE(image()) << "on show";
    EXPECT_FALSE(photo->cacheExpiration);
  }
  EXPECT_EQ(photo->viewCount, 0);
  EXPECT_EQ(photo->cacheExpiration, sim.services.clock.now() + 1800.0);
  announced();
  sim.world.runFor(1'799);
  EXPECT_TRUE(image());
  sim.world.runFor(601);  // the timer fires every 600 seconds
  EXPECT_FALSE(image());
  EXPECT_EQ(announced(), Texts{"photo image changed"});
  model.freeMemory();
  EXPECT_EQ(announced(), Texts{}) << "nothing left to drop";
}

TEST_F(PhotosTest, APhotoOutlivesItsRink) {
  photo->setImage(someImage(), 1);
  model.recentRinks.clear();
  rink.reset();
  sim.world.runUntilIdle();
  EXPECT_TRUE(photo->image(1));
  photo->setDownloadStatus(DownloadStatus::idle(), 2);
  EXPECT_TRUE(photo->image(2)) << "what it has";
}

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
  const std::tuple<const char*, Bytes, Instant, bool> cases[] = {
      {"current", kLight, kDate, true},
      {"another date", kLight, kDate + 1.0, false},
      {"another size", kDark.size() == kLight.size() ? Bytes{1} : Bytes(kLight.size() + 1), kDate, false},
      {"no picture", Bytes(kLight.size()), kDate, false}};
  for (const auto& [what, content, date, serves] : cases) {
    SCOPED_TRACE(what);
    store("logos/7.png", content, date);
    const auto info = model.rinkInfo(7);
    info->cachedLogoImage = nullptr;
    const auto image = info->logoImage();
    EXPECT_EQ(image != nullptr, serves);
    EXPECT_EQ(info->logoImage(), image);
    EXPECT_EQ(taken(), serves ? Texts{} : Texts{"7.png"});
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
