#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "DemoRinks.h"
#include "WeekPlan.h"
#include "foundation/CalendarDates.h"
#include "platform/FileSystem.h"

namespace tarvel::demo {

struct DemoNotice {
  std::int64_t noticeID = 0;
  PackedDate date = kNoDate;
  std::string summary;
  std::string detail;
};

/// Everything the demo publishes, as it stands at the moment, and the changes that can be made to it while it
/// runs. The same seed and day give the same content. Not shared between threads.
class DemoContent {
 public:
  DemoContent(std::uint64_t seed, PackedDate today, std::string serverUrl);

  const std::vector<DemoRink>& rinks() const { return rinks_; }
  const DemoRink* rink(std::int64_t rinkID) const;
  std::uint64_t seed() const { return seed_; }
  /// From the week before today's to the fifth after it.
  std::vector<PackedDate> weeks() const;
  std::vector<PlannedSession> week(const DemoRink& rink, const DemoVenue& venue, PackedDate weekOf) const;
  const std::vector<DemoNotice>& notices(std::int64_t rinkID) const { return notices_.at(rinkID); }
  const std::string& serverUrl() const { return serverUrl_; }
  PackedDate today() const { return today_; }

  /// Each gives false if there is no such rink, venue or week, and changes nothing then.
  bool renameRink(std::int64_t rinkID, const std::string& name);
  bool removeRink(std::int64_t rinkID);
  bool dropVenue(std::int64_t rinkID, std::int64_t venueID);
  /// Other sessions for one venue's week.
  bool replaceWeek(std::int64_t rinkID, std::int64_t venueID, PackedDate weekOf);
  bool addNotice(std::int64_t rinkID, const std::string& summary, const std::string& detail);
  /// The id of the next rink of the reserve, which is now in the catalogue; none when the reserve is used up.
  std::optional<std::int64_t> addRink();

 private:
  DemoRink* find(std::int64_t rinkID);
  void insert(DemoRink rink);

  std::uint64_t seed_;
  PackedDate today_;
  std::string serverUrl_;
  std::vector<DemoRink> rinks_;  ///< ascending by id
  std::vector<DemoRink> reserve_;
  std::map<std::int64_t, std::vector<DemoNotice>> notices_;
  std::map<std::tuple<std::int64_t, std::int64_t, PackedDate>, std::uint64_t> editions_;
};

}  // namespace tarvel::demo
