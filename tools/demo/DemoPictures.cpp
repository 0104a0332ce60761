#include "DemoPictures.h"

#include <fmt/format.h>

#include <QBuffer>
#include <QImage>
#include <array>

#include "Logo.h"
#include "Scenes.h"

namespace tarvel::demo {
namespace {

/// Raised when the drawings change, so that a kept folder gets new ones.
constexpr int kDrawings = 1;
constexpr int kLogoSide = 192;
constexpr std::array kLongSides = {320, 800, 1600};
constexpr int kJpegQuality = 86;

struct PhotoText {
  Scene scene;
  const char* title;
  const char* description;
};

constexpr std::array kBuilding = {
    PhotoText{Scene::building, "The Building", "Our front door on a winter morning."},
    PhotoText{Scene::hall, "The Hall", "View from the north stands."},
    PhotoText{Scene::plan, "Fresh Ice", "The sheet from above, minutes after resurfacing."},
    PhotoText{Scene::resurfacer, "Resurfacing", "Fifteen minutes that make all the difference."},
};
constexpr std::array kOnTheIce = {
    PhotoText{Scene::skater, "Figures", "Traces of an early freestyle session."},
    PhotoText{Scene::skates, "Ready", "A pair of skates before the first class of the season."},
    PhotoText{Scene::puck, "Face-Off", "Adult league, Thursday night."},
    PhotoText{Scene::pond, "Out on the Pond", "The club's outing to the frozen pond."},
};

Result<Done> save(FileSystem& files, const Path& path, const QImage& image, const char* format, int quality) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, format, quality))
    return Error{fmt::format("{} images can't be written here", format)};
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(content.constData());
  return files.write(path, ByteView(bytes, static_cast<std::size_t>(content.size())));
}

class Drawer {
 public:
  Drawer(FileSystem& files, const Path& folder, const DemoRink& rink, std::uint64_t seed)
      : files_(files),
        folder_(folder),
        rink_(rink),
        seed_(seed),
        prefix_(fmt::format("images/{}-{}-", kDrawings, seed)) {}

  Result<DrawnPictures> draw() {
    if (const Status status = files_.createFolders(join(folder_, "images")); !status) return status.error();
    DrawnPictures pictures;
    pictures.logo = prefix_ + "logo.png";
    pictures.darkLogo = prefix_ + "logo-dark.png";
    drawLogo(pictures.logo, Appearance::light);
    drawLogo(pictures.darkLogo, Appearance::dark);
    if (rink_.pictures == Pictures::albums) {
      addAlbum(pictures, 1, "Around the Building", "Where it all takes place.", kBuilding);
      addAlbum(pictures, 2, "On the Ice", "A season in pictures.", kOnTheIce);
    }
    if (!status_) return status_.error();
    return pictures;
  }

 private:
  bool isMissing(const std::string& name) const { return !files_.info(join(folder_, name)); }

  void drawLogo(const std::string& name, Appearance appearance) {
    if (!status_ || !isMissing(name)) return;
    status_ =
        save(files_, join(folder_, name), logoImage(rink_.mark, rink_.hue, appearance, kLogoSide), "PNG", -1);
  }

  void addAlbum(DrawnPictures& pictures, std::int64_t albumID, const char* title, const char* description,
                std::span<const PhotoText> texts) {
    DrawnAlbum album{albumID, title, description, {}};
    for (const PhotoText& text : texts) {
      DrawnPhoto photo{rink_.rinkID * 100 + static_cast<std::int64_t>(pictures.photos.size()) + 1,
                       text.title,
                       text.description,
                       {}};
      drawPhoto(photo, text.scene);
      album.photoIDs.push_back(photo.photoID);
      pictures.photos.push_back(std::move(photo));
    }
    pictures.albums.push_back(std::move(album));
  }

  void drawPhoto(DrawnPhoto& photo, Scene scene) {
    bool complete = true;
    for (const int side : kLongSides) {
      photo.files.push_back(fmt::format("{}photo-{}-{}.jpg", prefix_, photo.photoID, side));
      complete = complete && !isMissing(photo.files.back());
    }
    if (complete || !status_) return;
    QImage image =
        sceneImage(scene, rink_.hue, seed_ ^ static_cast<std::uint64_t>(photo.photoID), kLongSides.back());
    for (std::size_t i = kLongSides.size(); i-- > 0;) {
      const int side = kLongSides.at(i);
      image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
      if (status_) status_ = save(files_, join(folder_, photo.files[i]), image, "JPEG", kJpegQuality);
    }
  }

  FileSystem& files_;
  const Path& folder_;
  const DemoRink& rink_;
  std::uint64_t seed_;
  std::string prefix_;
  Status status_ = Done{};
};

}  // namespace

Result<DrawnPictures> drawPictures(FileSystem& files, const Path& folder, const DemoRink& rink,
                                   std::uint64_t seed) {
  return Drawer(files, folder, rink, seed).draw();
}

}  // namespace tarvel::demo
