#include "DemoContent.h"

#include <algorithm>

#include "DemoNotices.h"

namespace tarvel::demo {
namespace {

constexpr int kWeeks = 7;

}  // namespace

DemoContent::DemoContent(std::uint64_t seed, PackedDate today, std::string serverUrl)
    : seed_(seed), today_(today), serverUrl_(std::move(serverUrl)), reserve_(reserveRinks()) {
  for (DemoRink& rink : demoRinks()) insert(std::move(rink));
}

void DemoContent::insert(DemoRink rink) {
  notices_[rink.rinkID] = firstNotices(rink, seed_, today_);
  const auto place = std::find_if(rinks_.begin(), rinks_.end(),
                                  [&](const DemoRink& other) { return other.rinkID > rink.rinkID; });
  rinks_.insert(place, std::move(rink));
}

DemoRink* DemoContent::find(std::int64_t rinkID) {
  const auto found =
      std::find_if(rinks_.begin(), rinks_.end(), [&](const DemoRink& rink) { return rink.rinkID == rinkID; });
  return found == rinks_.end() ? nullptr : &*found;
}

const DemoRink* DemoContent::rink(std::int64_t rinkID) const {
  return const_cast<DemoContent*>(this)->find(rinkID);
}

std::vector<PackedDate> DemoContent::weeks() const {
  std::vector<PackedDate> result;
  PackedDate weekOf = subtractDays(startOfWeek(today_), 7);
  for (int i = 0; i < kWeeks; ++i) {
    result.push_back(weekOf);
    weekOf = addDays(weekOf, 7);
  }
  return result;
}

std::vector<PlannedSession> DemoContent::week(const DemoRink& rink, const DemoVenue& venue,
                                              PackedDate weekOf) const {
  const auto found = editions_.find({rink.rinkID, venue.venueID, weekOf});
  return planWeek(rink, venue, {seed_, weekOf, found == editions_.end() ? 0 : found->second});
}

bool DemoContent::renameRink(std::int64_t rinkID, const std::string& name) {
  DemoRink* rink = find(rinkID);
  if (!rink || name.empty()) return false;
  rink->name = name;
  return true;
}

bool DemoContent::removeRink(std::int64_t rinkID) {
  DemoRink* rink = find(rinkID);
  if (!rink) return false;
  reserve_.push_back(std::move(*rink));
  rinks_.erase(rinks_.begin() + (rink - rinks_.data()));
  return true;
}

bool DemoContent::dropVenue(std::int64_t rinkID, std::int64_t venueID) {
  DemoRink* rink = find(rinkID);
  return rink &&
         std::erase_if(rink->venues, [&](const DemoVenue& venue) { return venue.venueID == venueID; }) > 0;
}

bool DemoContent::replaceWeek(std::int64_t rinkID, std::int64_t venueID, PackedDate weekOf) {
  const DemoRink* rink = find(rinkID);
  if (!rink) return false;
  const bool hasVenue = std::any_of(rink->venues.begin(), rink->venues.end(),
                                    [&](const DemoVenue& venue) { return venue.venueID == venueID; });
  const auto offered = weeks();
  if (!hasVenue || std::find(offered.begin(), offered.end(), weekOf) == offered.end()) return false;
  ++editions_[{rinkID, venueID, weekOf}];
  return true;
}

bool DemoContent::addNotice(std::int64_t rinkID, const std::string& summary, const std::string& detail) {
  if (!find(rinkID) || summary.empty()) return false;
  auto& notices = notices_[rinkID];
  std::int64_t noticeID = 1;
  for (const DemoNotice& notice : notices) noticeID = std::max(noticeID, notice.noticeID + 1);
  notices.insert(notices.begin(), {noticeID, today_, summary, detail});
  return true;
}

std::optional<std::int64_t> DemoContent::addRink() {
  if (reserve_.empty()) return std::nullopt;
  const std::int64_t rinkID = reserve_.front().rinkID;
  insert(std::move(reserve_.front()));
  reserve_.erase(reserve_.begin());
  return rinkID;
}

}  // namespace tarvel::demo
