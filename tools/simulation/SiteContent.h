#pragma once
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "publish/Encoders.h"
#include "simulation/ports/SeededRandom.h"

namespace tarvel::sim {

using Content = std::shared_ptr<const Bytes>;

/// A file as it appears on its server, or goes.
struct Change {
  std::string key;
  Content content;  ///< null for a file that goes
};
using Changes = std::vector<Change>;

/// What the rinks have to tell, which changes as the weeks go by, and the files that follow from it. Each
/// publication lists what differs, leaves first and indexes last.
class SiteContent {
 public:
  SiteContent(SeededRandom random, Instant now);

  /// Changes something, and keeps the weeks around `now`.
  Changes evolve(Instant now);
  /// Gives these files new dates, as who puts a damaged file right does.
  Changes touch(const std::set<std::string>& keys, Instant now);
  /// Publishes data that needs a newer application, or takes that back.
  Changes requireUpdate(bool required, Instant now);
  std::size_t rinkCount() const { return catalogue_.rinks.size(); }

 private:
  struct File {
    Bytes body;
    Instant date;
  };

  publish::Rink newRink(Instant now);
  void addVenue(publish::Rink& rink, Instant now);
  void keepWeeks(publish::Rink& rink, Instant now);
  void changeRink(publish::Rink& rink, Instant now);
  void changeCatalogue(Instant now);
  void fillWeek(publish::Week& week);
  void addPhoto(publish::Rink& rink);
  void shiftNotices(publish::Rink& rink, Instant now);
  std::string text(std::string_view what);

  Changes publishAll(Instant now);
  void publishRink(const publish::Rink& rink, Instant now, Changes& changes);
  std::vector<publish::PhotoRow> publishPhotos(const publish::Rink& rink, Instant now, Changes& changes);
  void publishIndex(const std::string& key, Bytes content, Changes& changes);
  Instant publishFile(const std::string& key, Bytes body, Instant now, Changes& changes);
  Instant publishImage(const std::string& key, const publish::ImageFile& image, Instant now,
                       Changes& changes);
  Instant newDate(Instant now, std::optional<Instant> old);

  SeededRandom random_;
  publish::Catalogue catalogue_;
  std::map<std::string, File> files_;
  std::set<std::string> present_;  ///< of the publication under way
  std::set<std::string> touched_;
  std::int64_t lastID_ = 0;
  std::int64_t lastText_ = 0;
};

}  // namespace tarvel::sim
