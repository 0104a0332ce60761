#include "PublishPlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Encoders.h"

namespace tarvel::publish {
namespace {

constexpr const char* kMainName = "main.b1";

}  // namespace

PublishPlan::PublishPlan(FileSystem& files, Path tree, const Manifest& manifest, Instant date)
    : files_(files), tree_(std::move(tree)), manifest_(manifest), date_(date) {}

Status PublishPlan::add(const Catalogue& catalogue) {
  for (const Rink& rink : catalogue.rinks) {
    if (Status status = addRink(rink); !status) return status;
  }
  return addCatalogue(catalogue);
}

std::vector<PlannedFile> PublishPlan::takeFiles() && {
  std::stable_sort(planned_.begin(), planned_.end(),
                   [](const PlannedFile& a, const PlannedFile& b) { return a.step < b.step; });
  return std::move(planned_);
}

Status PublishPlan::addRink(const Rink& rink) {
  const auto inData = [&](const std::string& name) { return join(rink.dataPath, name); };
  std::vector<PhotoRow> photos;
  for (const Photo& photo : rink.photos) {
    PhotoRow& row = photos.emplace_back(PhotoRow{&photo, {}});
    for (std::size_t i = 0; i < photo.versions.size(); ++i) {
      const std::string path = join(rink.photosFolder, photoName(photo.photoID, i + 1));
      const auto date = addImage(path, photo.versions[i]);
      if (!date) return date.error();
      row.dates.push_back(*date);
    }
  }
  std::vector<Promise> promises;
  const auto promise = [&](Step step, const std::string& name, const Bytes& body) {
    promises.push_back({name, addDated(step, inData(name), body)});
  };
  promise(Step::leaf, "notices.b1", noticesBody(rink.notices));
  promise(Step::list, "photoCollection.b1", photoCollectionBody(photos, rink.albums));
  for (const Venue& venue : rink.venues) {
    std::vector<Promise> weeks;
    for (const Week& week : rink.weeks) {
      if (week.venueID != venue.venueID) continue;
      const std::string name = weekName(week.venueID, week.weekOf);
      weeks.push_back({name, addDated(Step::leaf, inData(name), weekBody(week.sessions))});
    }
    promise(Step::list, schedulesName(venue.venueID), schedulesBody(weeks));
  }
  const auto cover = std::find_if(photos.begin(), photos.end(), [&](const PhotoRow& row) {
    return row.photo->photoID == rink.coverPhotoID;
  });
  const Bytes main = mainBody(rink, promises, cover == photos.end() ? nullptr : &*cover);
  const Instant mainDate = addDated(Step::main, inData(kMainName), main);
  addIndex(Step::master, inData("master.b1"), masterFile({kMainName, mainDate}));
  return Done{};
}

Status PublishPlan::addCatalogue(const Catalogue& catalogue) {
  std::vector<RinkRow> rows;
  for (const Rink& rink : catalogue.rinks) {
    RinkRow& row = rows.emplace_back(RinkRow{&rink, {}, {}});
    if (rink.logo) {
      const auto date = addImage("logos/" + logoName(rink.rinkID), *rink.logo);
      if (!date) return date.error();
      row.logoDate = *date;
    }
    if (rink.darkLogo) {
      const auto date = addImage("logos/" + darkLogoName(rink.rinkID), *rink.darkLogo);
      if (!date) return date.error();
      row.darkLogoDate = *date;
    }
  }
  const std::vector<Promise> promises = {
      {"defs.b1", addDated(Step::catalogue, "defs.b1", defsBody(catalogue.sessions))},
      {"rinks.b1", addDated(Step::catalogue, "rinks.b1", rinksBody(rows))}};
  addIndex(Step::root, "root.b1", rootFile(catalogue, promises));
  return Done{};
}

Instant PublishPlan::dateAfter(Instant earlier) const {
  const bool usable = std::isfinite(earlier.seconds);
  return usable && earlier.seconds >= date_.seconds ? Instant{std::floor(earlier.seconds)} + 1.0 : date_;
}

Instant PublishPlan::addDated(Step step, const std::string& path, const Bytes& body) {
  const auto present = files_.read(join(tree_, path));
  Instant date = date_;
  bool changed = true;
  if (present) {
    const auto presentDate = dateOf(*present);
    if (presentDate) date = dateAfter(*presentDate);
    if (presentDate && std::isfinite(presentDate->seconds) &&
        std::equal(present->begin() + kDateSize, present->end(), body.begin(), body.end())) {
      date = *presentDate;
      changed = false;
    }
  }
  planned_.push_back({step, path, date, changed, changed ? withDate(date, body) : Bytes(), {}});
  return date;
}

Result<Instant> PublishPlan::addImage(const std::string& path, const ImageFile& image) {
  const auto source = files_.read(image.path);
  if (!source) return Error{image.path + ": " + source.error().description};
  const auto present = files_.read(join(tree_, path));
  const auto known = manifest_.files.find(path);
  const bool isKnown = known != manifest_.files.end();
  const bool changed = !present || !isKnown || *present != *source;
  Instant date = date_;
  if (isKnown) date = changed ? dateAfter(known->second) : known->second;
  planned_.push_back({Step::image, path, date, changed, {}, image.path});
  return date;
}

void PublishPlan::addIndex(Step step, const std::string& path, Bytes content) {
  const auto present = files_.read(join(tree_, path));
  const auto known = manifest_.files.find(path);
  const bool changed = !present || *present != content;
  const Instant date = !changed && known != manifest_.files.end() ? known->second : date_;
  planned_.push_back({step, path, date, changed, std::move(content), {}});
}

}  // namespace tarvel::publish
