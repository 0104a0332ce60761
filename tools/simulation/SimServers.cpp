#include "simulation/SimServers.h"

#include <algorithm>

#include "simulation/Trace.h"

namespace tarvel::sim {

namespace {
constexpr std::size_t kKeptVersions = 4;

bool contains(const std::map<std::string, std::unordered_set<std::uint64_t>>& map, const std::string& key,
              std::uint64_t hash) {
  const auto found = map.find(key);
  return found != map.end() && found->second.contains(hash);
}
}  // namespace

void SimServers::put(const Change& change) {
  std::deque<Content>& versions = files_[change.key];
  versions.push_front(change.content);
  if (versions.size() > kKeptVersions) versions.pop_back();
  if (change.content) published_[change.key].insert(hashOf(*change.content));
}

void SimServers::publish(const Changes& changes) {
  // A newer version must not be overtaken by an older one that is still to appear.
  advanceTo(pending_.empty() ? 0.0 : pending_.rbegin()->first);
  for (const Change& change : changes) put(change);
}

void SimServers::publishLater(Change change, double seconds) {
  pending_.emplace(seconds, std::move(change));
}

void SimServers::advanceTo(double seconds) {
  while (!pending_.empty() && pending_.begin()->first <= seconds) {
    put(pending_.begin()->second);
    pending_.erase(pending_.begin());
  }
}

Content SimServers::current(const std::string& key) const {
  const auto found = files_.find(key);
  return found == files_.end() ? nullptr : found->second.front();
}

Content SimServers::older(const std::string& key, std::size_t back) const {
  const auto found = files_.find(key);
  if (found == files_.end() || found->second.size() < 2) return nullptr;
  return found->second[1 + back % (found->second.size() - 1)];
}

bool SimServers::wasPublished(const std::string& key, std::uint64_t hash) const {
  return contains(published_, key, hash);
}

void SimServers::noteAltered(const std::string& key, std::uint64_t hash, bool decodes) {
  altered_[key].insert(hash);
  if (decodes) alteredKeys_.insert(key);
}

bool SimServers::wasAltered(const std::string& key, std::uint64_t hash) const {
  return contains(altered_, key, hash);
}

bool SimServers::wasGivenOut(std::uint64_t hash) const {
  const auto holds = [hash](const auto& entry) { return entry.second.contains(hash); };
  return std::any_of(published_.begin(), published_.end(), holds) ||
         std::any_of(altered_.begin(), altered_.end(), holds);
}

}  // namespace tarvel::sim
