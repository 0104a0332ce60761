#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QScrollArea>
#include <QScrollBar>

#include "mainwindow/PhotosController.h"
#include "platform/qt/QtImage.h"
#include "schedule/ScheduleWorld.h"
#include "ui/Icons.h"

namespace tarvel {
namespace {

constexpr std::int64_t kPhotos = 10'000;
constexpr double kPhotoHeight = 120.0;
constexpr double kCaptionHeight = 25.0;
constexpr int kScrollStep = 60;

/// Fonts need an application. It is never torn down: the benchmarks end with the process.
void startApplication() {
  static int argc = 1;
  static char name[] = "tarvel-bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (qApp) return;
  new QApplication(argc, argv);
  initAssets();
}

std::optional<Size> pictureSize(std::size_t cell) {
  return Size{cell % 3 == 0 ? 200.0 : 450.0, 300.0};
}

void layOutCells(benchmark::State& state) {
  const auto caption = [](std::size_t, double) { return kCaptionHeight; };
  for (auto _ : state) {
    const CellFlowLayout layout({1600.0, kPhotoHeight, 5.0}, kPhotos, pictureSize, caption);
    benchmark::DoNotOptimize(layout.rows().back().yOffset);
  }
}
BENCHMARK(layOutCells)->Unit(benchmark::kMicrosecond);

/// An album in a pane, with every image at hand.
class AlbumBench : public benchmark::Fixture, public PhotosHost {
 public:
  void SetUp(benchmark::State&) override {
    startApplication();
    world = std::make_unique<test::ScheduleWorld>();
    world->addRink(7, "Arctic");
    rink = world->openRink(7, {});
    rink->adoptPhotos(collection());
    photos = std::make_unique<PhotosController>(world->context, *this, nullptr);
    photos->pane().resize(1600, 1000);
    photos->pane().show();
    photos->chooseRink(rink);
    photos->paneShown();
    AlbumView& album = photos->pane().albumView();
    photos->pane().showOnly(PhotoViewOption::album);
    album.setPresented(true);
    album.setPhotoHeight(kPhotoHeight);
    album.setAlbum(rink->album(1));
    settle();
  }
  void TearDown(benchmark::State&) override {
    QWidget* pane = &photos->pane();
    photos.reset();
    delete pane;
    rink.reset();
    world.reset();
  }

 protected:
  void updateControls() override {}
  void markChanged() override {}

  static PhotoCollectionFile collection() {
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    const auto image = std::make_shared<QtImage>(picture);
    PhotoCollectionFile file;
    file.albums.push_back(std::make_shared<PhotoAlbum>());
    file.albums[0]->albumID = 1;
    for (std::int64_t id = 1; id <= kPhotos; ++id) {
      auto photo = std::make_shared<Photo>();
      photo->photoID = id;
      photo->title = "Photo " + std::to_string(id);
      photo->descr = id % 3 == 0 ? "On the ice, on a morning of the winter of " + std::to_string(id) : "";
      photo->versions = {{{300.0, 200.0}, 1, {}}};
      photo->setImage(image, 1);
      file.photos.push_back(photo);
      file.albums[0]->photoIDs.push_back(id);
    }
    return file;
  }
  void settle() {
    world->runUntilIdle();
    QApplication::processEvents();
  }

  std::unique_ptr<test::ScheduleWorld> world;
  std::shared_ptr<RinkData> rink;
  std::unique_ptr<PhotosController> photos;
};

BENCHMARK_DEFINE_F(AlbumBench, scrollOneFrame)(benchmark::State& state) {
  QScrollBar& bar = *photos->pane().albumScrollView().verticalScrollBar();
  for (auto _ : state) {
    bar.setValue(bar.value() + kScrollStep < bar.maximum() ? bar.value() + kScrollStep : 0);
    QApplication::processEvents();
  }
}
BENCHMARK_REGISTER_F(AlbumBench, scrollOneFrame)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(AlbumBench, anotherSize)(benchmark::State& state) {
  double height = kPhotoHeight;
  for (auto _ : state) {
    height = height < 300.0 ? height + 1.0 : kPhotoHeight;
    photos->pane().albumView().setPhotoHeight(height);
  }
}
BENCHMARK_REGISTER_F(AlbumBench, anotherSize)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvel
