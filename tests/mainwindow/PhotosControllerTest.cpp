#include "mainwindow/PhotosController.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>

#include "NoticesWorld.h"
#include "mainwindow/PhotoView.h"
#include "platform/qt/QtImage.h"
#include "ui/Painted.h"

namespace tarvel {
namespace {

using Ids = std::vector<std::int64_t>;

class PhotosControllerTest : public test::NoticesWorld, protected PhotosHost {
 protected:
  PhotosControllerTest() {
    window.resize(800, 600);
    photos.pane().resize(window.size());
    photos.pane().show();
    photos.paneShown();
    photos.chooseRink(rink);
    photos.updateRinkContent();
    settle();
  }
  ~PhotosControllerTest() override { photos.close(); }
  void updateControls() override { photos.updatePane(); }
  void markChanged() override { ++changes; }

  static std::shared_ptr<Photo> photo(std::int64_t id) {
    auto made = std::make_shared<Photo>();
    made->photoID = id;
    made->title = "Photo " + std::to_string(id);
    made->versions = {{{150, 100}, 1, {}}, {{300, 200}, 1, {}}, {{900, 600}, 1, {}}};
    return made;
  }
  /// Photos 1 to `count`, in these albums.
  void publish(std::int64_t count, const std::vector<std::pair<std::int64_t, Ids>>& albums) {
    PhotoCollectionFile file;
    for (std::int64_t id = 1; id <= count; ++id) file.photos.push_back(photo(id));
    for (const auto& [id, ids] : albums) {
      file.albums.push_back(std::make_shared<PhotoAlbum>());
      file.albums.back()->albumID = id;
      file.albums.back()->title = id == 9 ? "" : "Album " + std::to_string(id);
      file.albums.back()->photoIDs = ids;
    }
    rink->adoptPhotos(std::move(file));
    photos.photoCollectionChanged();
    settle();
  }
  void settle() {
    world.settle();
    world.runUntilIdle();
  }
  void key(Qt::Key key) {
    QTest::keyClick(window.focusWidget(), key);
    settle();
  }
  static QPoint middleOf(const PhotoCellsView& view, std::size_t cell) {
    const Rect& rect = view.layout().rects()[cell];
    return {static_cast<int>(rect.x + rect.width / 2), static_cast<int>(rect.y + rect.height / 2)};
  }
  void openAlbum(std::size_t cell = 0) {
    QTest::mouseDClick(&gallery(), Qt::LeftButton, {}, middleOf(gallery(), cell));
    settle();
  }
  void openPhoto(std::size_t cell) {
    openAlbum();
    for (std::size_t i = 0; i <= cell; ++i) key(Qt::Key_Right);
    key(Qt::Key_Return);
  }
  std::vector<std::string> requested() {
    return std::exchange(test::ScheduleWorld::refresherOf(*rink).photoRequests, {});
  }
  std::string texts() const {
    return (photos.pane().titleLabel().text() + "|" + photos.pane().photoNumberField().text()).toStdString();
  }
  GalleryView& gallery() { return photos.pane().galleryView(); }
  AlbumView& album() { return photos.pane().albumView(); }
  PagingView& pages() { return photos.pane().photoPagingView(); }
  PhotoView& page() { return dynamic_cast<PhotoView&>(*pages().currView()); }
  Ids counts(std::int64_t last) {
    Ids list;
    for (std::int64_t id = 1; id <= last; ++id) list.push_back(rink->photo(id)->viewCount);
    return list;
  }

  int changes = 0;
  PhotosController photos{world.context, *this, &window};
};

TEST_F(PhotosControllerTest, aScreenReaderFindsAlbumsAndPhotosAndOpensThem) {
  publish(3, {{5, {1, 2}}, {9, {3}}});
  const auto first = [](const AccessibleView& view) { return view.accessibleTree().children.at(0); };
  EXPECT_EQ(gallery().accessibleTree().children.size(), 2U);
  EXPECT_EQ(first(gallery()).name, "Album 5, 2");
  gallery().focusAccessible("1");
  EXPECT_EQ(gallery().accessibleFocus(), "1");
  gallery().pressAccessible("7");
  EXPECT_EQ(photos.photoViewOption(), PhotoViewOption::gallery) << "no such album";
  gallery().pressAccessible("0");
  settle();
  EXPECT_EQ(first(album()).name, "Photo 1");
  album().pressAccessible("1");
  settle();
  EXPECT_EQ(first(page()).name, "Photo 2");
  page().pressAccessible(first(page()).id);
  EXPECT_EQ(photos.photoViewOption(), PhotoViewOption::album);
}

TEST_F(PhotosControllerTest, TheWayFromTheGalleryToAPhotoAndBack) {
  publish(4, {{1, {4, 77, 2, 3}}, {9, {}}});
  EXPECT_EQ(texts(), "Gallery|2 Albums");
  EXPECT_EQ(photos.controls(), PhotosControls());
  EXPECT_EQ(counts(4), Ids({0, 0, 0, 1})) << "the first album's cover";
  openAlbum();
  EXPECT_EQ(texts(), "Album 1|4 Photos");
  EXPECT_EQ(photos.controls(), PhotosControls{.backTitle = "Back to Gallery"});
  EXPECT_EQ(album().photoList().size(), 3U) << "one id names no photo";
  EXPECT_EQ(counts(4), Ids({0, 1, 1, 1}));
  EXPECT_EQ(window.focusWidget(), &album());
  key(Qt::Key_Left);
  EXPECT_EQ(album().selectedPhoto()->photoID, 3) << "the last";
  key(Qt::Key_Right);
  EXPECT_EQ(album().selectedPhoto()->photoID, 3);
  key(Qt::Key_Enter);
  EXPECT_EQ(texts(), "Album 1|4 of 4");
  EXPECT_EQ(photos.controls(), (PhotosControls{"Back to Album", true, true, false}));
  EXPECT_EQ(page().currentPhoto()->photoID, 3);
  EXPECT_EQ(counts(4), Ids({0, 1, 1, 0})) << "the page and the one before it";
  pages().gotoPrev();
  pages().gotoPrev();
  EXPECT_EQ(page().currentPhoto(), nullptr) << "the id without a photo";
  EXPECT_EQ(texts(), "Album 1|2 of 4");
  pages().gotoPrev();
  EXPECT_FALSE(photos.controls().canGoBack);
  QTest::mouseDClick(&page(), Qt::LeftButton);
  settle();
  EXPECT_EQ(album().selectedPhoto()->photoID, 4) << "the page's";
  EXPECT_EQ(counts(4), Ids({0, 1, 1, 1}));
  key(Qt::Key_Escape);
  EXPECT_EQ(photos.photoViewOption(), PhotoViewOption::gallery);
  EXPECT_EQ(window.focusWidget(), &gallery());
  EXPECT_EQ(counts(4), Ids({0, 0, 0, 1}));
  EXPECT_EQ(rink->photo(2)->cacheExpiration, world.sim.services.clock.now() + 1800.0);
  photos.paneHidden();
  EXPECT_EQ(counts(4), Ids(4, 0));
}

TEST_F(PhotosControllerTest, KeysAndClicksSelectAndADoubleClickOpensWhatBothWereOn) {
  publish(3, {{1, {1, 2, 1, 3}}});
  openAlbum();
  for (const std::int64_t id : {1, 2, 1, 3, 3}) {  // one photo stands there twice
    key(Qt::Key_Right);
    EXPECT_EQ(album().selectedPhoto()->photoID, id);
  }
  const auto at = [&](std::size_t cell) { return middleOf(album(), cell); };
  QTest::mouseClick(&album(), Qt::LeftButton, {}, at(0));
  EXPECT_EQ(album().selectedPhoto()->photoID, 1);
  QTest::mouseClick(&album(), Qt::LeftButton, Qt::ControlModifier, at(0));
  EXPECT_EQ(album().selectedPhoto(), nullptr);
  QTest::mouseClick(&album(), Qt::LeftButton, {}, at(1));
  QTest::mouseClick(&album(), Qt::LeftButton, {}, {2, 2});
  EXPECT_EQ(album().selectedPhoto(), nullptr) << "beside the cells";

  const auto press = [&](QEvent::Type type, std::size_t cell) {
    QMouseEvent event(type, at(cell), album().mapToGlobal(at(cell)), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&album(), &event);
    QTest::mouseRelease(&album(), Qt::LeftButton, {}, at(cell));
  };
  press(QEvent::MouseButtonPress, 0);
  press(QEvent::MouseButtonDblClick, 1);
  EXPECT_EQ(photos.photoViewOption(), PhotoViewOption::album) << "the first click was on another photo";
  press(QEvent::MouseButtonPress, 1);
  press(QEvent::MouseButtonDblClick, 1);
  EXPECT_EQ(photos.photoViewOption(), PhotoViewOption::single);
  EXPECT_EQ(photos.photoIndex(), 1);
}

TEST_F(PhotosControllerTest, ACollectionThatChangesUnderWhatIsOpen) {
  const auto start = [&] {
    photos.chooseRink(rink);
    publish(4, {{1, {1, 2, 3}}, {2, {4}}});
    openPhoto(2);
    ASSERT_EQ(photos.photoIndex(), 2);
  };
  start();
  publish(4, {{2, {4}}, {1, {1, 2}}});
  EXPECT_EQ(texts(), "Album 1|2 of 2") << "the last one left";
  EXPECT_EQ(page().currentPhoto(), rink->photo(2));
  EXPECT_EQ(counts(4), Ids({1, 1, 0, 0}));
  publish(1, {{1, {}}});
  EXPECT_EQ(texts(), "Album 1|0 of 0");
  EXPECT_EQ(page().currentPhoto(), nullptr);
  publish(2, {{1, {1, 2}}});
  EXPECT_EQ(texts(), "Album 1|1 of 2") << "filled again";
  publish(1, {{1, {}}});
  key(Qt::Key_Escape);
  EXPECT_TRUE(album().photoList().empty());
  start();
  publish(4, {{2, {4}}});
  EXPECT_EQ(texts(), "Gallery|1 Album") << "the album has gone";
  EXPECT_EQ(counts(4), Ids({0, 0, 0, 1}));
  start();
  photos.back();
  publish(4, {{1, {4, 3}}});
  EXPECT_EQ(album().photoList(), PhotoList({rink->photo(4), rink->photo(3)}));
  EXPECT_EQ(album().selectedPhoto(), rink->photo(3)) << "the same id, another object";
  start();
  photos.chooseRink(nullptr);
  photos.updateRinkContent();
  settle();
  EXPECT_EQ(texts(), "|");
  EXPECT_TRUE(gallery().albumList().empty());
  EXPECT_EQ(counts(4), Ids(4, 0));
}

TEST_F(PhotosControllerTest, OfALargeAlbumOnlyWhatIsSeenIsFetched) {
  Ids ids(10'000);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = static_cast<std::int64_t>(i) + 1;
  publish(10'000, {{1, ids}});
  openAlbum();
  EXPECT_LT(requested().size(), 20U);
  photos.adjustPhotoSize(50);
  settle();
  EXPECT_EQ(changes, 1);
  EXPECT_LT(requested().size(), 150U);
  QScrollBar& bar = *photos.pane().albumScrollView().verticalScrollBar();
  bar.setValue(bar.maximum());
  settle();
  const auto names = requested();
  ASSERT_FALSE(names.empty());
  EXPECT_LT(names.size(), 150U);
  EXPECT_EQ(names.back(), "10000-1.jpg");
}

TEST_F(PhotosControllerTest, TheVersionFollowsSizeAndScreen) {
  publish(1, {{1, {1}}});
  const std::pair<double, std::string> cases[] = {
      {50, "1-1.jpg"}, {100, "1-1.jpg"}, {101, "1-2.jpg"}, {300, "1-3.jpg"}};
  openAlbum();
  for (const auto& [photoHeight, fetched] : cases) {
    publish(1, {{1, {1}}});
    requested();
    photos.adjustPhotoSize(photoHeight);
    publish(1, {{1, {1}}});
    EXPECT_EQ(requested(), std::vector<std::string>{fetched}) << photoHeight;
  }
  EXPECT_EQ(photos.pane().sizeSlider().minimum(), 50);
  EXPECT_EQ(album().layout().rects()[0].width, 2 * 5 + 450);
}

TEST_F(PhotosControllerTest, ANeighbourFillsThePlaceOfTheRightVersion) {
  publish(1, {{1, {1}}});
  QImage red(150, 100, QImage::Format_RGB32);
  red.fill(Qt::red);
  rink->photo(1)->setImage(std::make_shared<QtImage>(red), 1);
  settle();
  const auto ink = [&] {
    return test::inkOf(test::painted(gallery()), [](const QColor& pixel) { return pixel == Qt::red; });
  };
  EXPECT_EQ(ink(), QRect(10, 10, 300, 200)) << "stretched to the place of version 2";
  rink->photo(1)->versions[1].size = {120, 200};
  photos.adjustPhotoSize(199);
  photos.adjustPhotoSize(200);
  settle();
  EXPECT_EQ(ink(), QRect(10, 70, 120, 80)) << "of other proportions: not distorted";
}

TEST_F(PhotosControllerTest, PlaceholdersAndThePagesPlaces) {
  publish(1, {{1, {1}}});
  const auto shown = [&] { return test::painted(gallery()); };
  settle();
  QImage last = shown();  // the download in progress
  for (const DownloadStatus& status :
       {DownloadStatus{DownloadStatus::Kind::invalidData, {}}, DownloadStatus::failed("Why")}) {
    rink->photo(1)->setDownloadStatus(status, 2);
    settle();
    EXPECT_NE(shown(), last);
    last = shown();
  }
  openPhoto(0);
  const double width = page().width(), height = page().height(), titleY = page().places().title.y;
  EXPECT_EQ(page().places().photo, (Rect{12, 12, width - 24, titleY - 20}));
  EXPECT_EQ(page().places().title.maxY(), height - 12);
  rink->photo(1)->title.clear();
  page().adjustSize();
  EXPECT_EQ(page().places().photo.height, height - 24 - 13 - 8);
}

TEST_F(PhotosControllerTest, SettingsAndTheSlider) {
  MainWindowSettings settings;
  settings.galleryViewPhotoHeight = NAN;
  settings.albumViewPhotoHeight = 1e9;
  photos.restoreSettings(settings);
  photos.addToSettings(settings);
  EXPECT_EQ(settings.galleryViewPhotoHeight, 120.0);
  EXPECT_EQ(settings.albumViewPhotoHeight, 300.0);
  photos.updatePane();
  EXPECT_EQ(photos.pane().sizeSlider().value(), 120);
  EXPECT_EQ(changes, 0);
  photos.pane().sizeSlider().setValue(240);
  EXPECT_EQ(gallery().photoHeight(), 240.0);
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace tarvel
