#include "EngineFixture.h"
#include "support/PublishedPhotos.h"

namespace tarvel {
namespace {

class PhotosRefreshTest : public EngineFixture {
 protected:
  PhotosRefreshTest() {
    publish(0.0);
    startWithCatalogue();
    rink = &show(7);
    rink->photo(5);
    sim.world.runFor(1);
    sim.http.clearRequests();
  }
  /// A new version of the collection, which the index promises with a date that is so much off.
  void publish(double off) {
    photos.date = photos.date + 100.0;
    sim.http.serve(collectionUrl, photos.file());
    site.rinks[0].otherFiles = {{"photoCollection.b1", photos.date + off}};
    site.rinks[0].mainDate.publishAnew();
  }
  static std::string photoUrl(const std::string& name) { return "http://rinks.test/photos/" + name; }
  void serve(const std::string& name, const Bytes& content) { sim.http.serve(photoUrl(name), content); }
  /// Looks at a version as a view does, until what that brings about is over.
  std::shared_ptr<const Image> look(std::int64_t photoID, std::int64_t number) {
    rink->photo(photoID)->image(number);
    sim.world.runFor(1);
    return rink->photo(photoID)->image(number);
  }
  DownloadStatus::Kind status(std::int64_t number) { return rink->photo(5)->downloadStatus(number).kind; }

  const Bytes picture = FakeImageDecoder::file(400, 200);
  const ImageVersion version{{400.0, 200.0}, static_cast<std::int64_t>(picture.size()), {790'000'000.5}};
  PublishedPhotos photos{{793'000'000.5}, {{5, {version, version}}, {8, {version}}}, {{1, {5, 8}}}};
  const std::string collectionUrl = site.rinks[0].url("photoCollection.b1");
  RinkData* rink = nullptr;
};

TEST_F(PhotosRefreshTest, OnlyWhatIsLookedAtIsFetchedAndKeptWithItsDate) {
  serve("5-2.jpg", picture);
  EXPECT_TRUE(look(5, 2));
  EXPECT_EQ(requested(), Texts{photoUrl("5-2.jpg")});
  EXPECT_EQ(stored("rink-7/Photos/5-2.jpg"), picture);
  EXPECT_EQ(storedDateOf("rink-7/Photos/5-2.jpg"), version.fileDate);
  refresh(*rink);
  restart();
  sim.http.clearRequests();
  rink = &show(7);
  EXPECT_TRUE(rink->photo(5)->image(2)) << "from the disk";
  EXPECT_EQ(sim.http.requestCount(collectionUrl) + sim.http.requestCount(photoUrl("5-2.jpg")), 0U);
}

TEST_F(PhotosRefreshTest, WhatIsNoPictureIsAskedForAgainAfterARefreshOnly) {
  serve("5-1.jpg", encoded("no picture"));
  EXPECT_FALSE(look(5, 1));
  EXPECT_FALSE(look(5, 1));
  EXPECT_EQ(requested().size(), 1U);
  EXPECT_EQ(status(1), DownloadStatus::Kind::invalidData);
  EXPECT_EQ(rink->errorKind(), DownloadErrorKind::invalidData);
  EXPECT_NE(rink->errorLog().find("Invalid data for photo 5-1.jpg"), std::string::npos);
  EXPECT_FALSE(stored("rink-7/Photos/5-1.jpg"));
  serve("5-1.jpg", picture);
  refresh(*rink);
  EXPECT_TRUE(look(5, 1));

  EXPECT_FALSE(look(8, 1)) << "not on the server";
  sim.http.clearRequests();
  refresh(*rink);
  look(8, 1);
  EXPECT_EQ(sim.http.requestCount(photoUrl("8-1.jpg")), 0U) << "a failed one waits for a new collection";
}

TEST_F(PhotosRefreshTest, AFileOfAnotherLengthIsShownAndNoted) {
  const Bytes other = FakeImageDecoder::file(400, 200, "longer");
  serve("5-1.jpg", other);
  EXPECT_TRUE(look(5, 1));
  EXPECT_EQ(stored("rink-7/Photos/5-1.jpg"), other);
  EXPECT_TRUE(rink->refreshState.mismatchError);
}

TEST_F(PhotosRefreshTest, ANewCollectionDropsWhatItLacksAndWhatHasChanged) {
  for (const char* name : {"5-1.jpg", "5-2.jpg", "8-1.jpg"}) serve(name, picture);
  look(5, 1);
  look(5, 2);
  look(8, 1);
  for (const char* name : {"x-1.jpg", "8.png", ".8-2.jpg"}) {
    ASSERT_TRUE(sim.disk.write(kStore + "/rink-7/Photos/" + name, picture).ok());
  }
  photos.photos.pop_back();
  photos.photos[0].second[1].fileDate.seconds += 1.0;
  publish(0.0);
  NotificationRecorder recorder(sim.notifications, sim.world, {kPhotoImageChanged, kPhotoCollectionChanged});
  refresh(*rink);
  EXPECT_EQ(recorder.count(kPhotoCollectionChanged, rink), 1U);
  EXPECT_EQ(recorder.count(kPhotoImageChanged, rink), 1U) << "one of the versions is another";
  EXPECT_FALSE(rink->photo(8));
  const struct {
    const char* name;
    bool stays;
  } files[] = {{"5-1.jpg", true}, {"8-1.jpg", false}, {"x-1.jpg", true}, {"8.png", true}, {".8-2.jpg", true}};
  for (const auto& file : files) {
    EXPECT_EQ(stored(std::string("rink-7/Photos/") + file.name).has_value(), file.stays) << file.name;
  }
  sim.http.clearRequests();
  EXPECT_TRUE(look(5, 1));
  EXPECT_TRUE(look(5, 2));
  EXPECT_EQ(requested(), Texts{photoUrl("5-2.jpg")});
}

TEST_F(PhotosRefreshTest, ADownloadThatANewCollectionOvertakesIsNotLost) {
  serve("5-1.jpg", picture);
  const auto old = rink->photo(5);
  old->image(1);
  rink->adoptPhotos(decodePhotoCollectionFile(photos.file()));
  EXPECT_NE(rink->photo(5), old);
  EXPECT_FALSE(rink->photo(5)->image(1));
  sim.world.runFor(1);
  EXPECT_TRUE(rink->photo(5)->image(1));
  EXPECT_EQ(requested().size(), 1U);
}

TEST_F(PhotosRefreshTest, AMismatchIsLogged) {
  publish(60.0);
  refresh(*rink);
  ASSERT_EQ(engine->log->logMessages().size(), 1U);
  EXPECT_EQ(engine->log->logMessages()[0].msg.substr(0, 45), "date mismatch for photoCollection.b1 - Arctic");
  EXPECT_EQ(rink->secondsUntilRefresh(), 1'800.0);
}

TEST_F(PhotosRefreshTest, ADamagedStoredCollectionCountsAsMissingEvenIfTheFirstRequestFails) {
  const std::string name = "rink-7/photoCollection.b1";
  const Bytes whole = stored(name).value();
  const auto date = storedDateOf(name);
  quit();
  ASSERT_TRUE(sim.disk.write(kStore + "/" + name, Bytes(whole.begin(), whole.end() - 1)).ok());
  ASSERT_TRUE(sim.disk.setAttributes(kStore + "/" + name, {date, std::nullopt}).ok());
  sim.http.serveStatus(collectionUrl, 500);
  start();
  rink = &show(7);
  for (const bool served : {false, true}) {
    EXPECT_FALSE(rink->photo(5));
    sim.world.runFor(1);
    EXPECT_EQ(rink->photosFileRead, served);
    EXPECT_TRUE(engine->logged("Unable to decode file: " + kStore + "/" + name));
    EXPECT_EQ(stored(name), served ? std::optional(whole) : std::nullopt);
    sim.http.serve(collectionUrl, whole);
  }
}

}  // namespace
}  // namespace tarvel
