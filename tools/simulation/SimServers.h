#pragma once
#include <deque>
#include <map>
#include <set>
#include <string>
#include <unordered_set>

#include "simulation/SiteContent.h"

namespace tarvel::sim {

/// The files on the servers as they stand, the versions that caches may still hold, and what became of files
/// on their way to the program. Virtual time comes from the caller.
class SimServers {
 public:
  /// The files appear at once.
  void publish(const Changes& changes);
  /// The files appear one by one, each at its moment.
  void publishLater(Change change, double seconds);
  /// Lets appear what is due.
  void advanceTo(double seconds);
  bool hasPending() const { return !pending_.empty(); }

  /// Null for a file that isn't there.
  Content current(const std::string& key) const;
  /// A version before the present one; null if caches hold none.
  Content older(const std::string& key, std::size_t back) const;
  /// True of any version there ever was.
  bool wasPublished(const std::string& key, std::uint64_t hash) const;
  const std::map<std::string, std::deque<Content>>& files() const { return files_; }

  /// Notes a body that was damaged on its way. One that can be decoded the program may take for good.
  void noteAltered(const std::string& key, std::uint64_t hash, bool decodes);
  bool wasAltered(const std::string& key, std::uint64_t hash) const;
  /// True of any body of any file: a damaged catalogue may have sent the program to another rink's server.
  bool wasGivenOut(std::uint64_t hash) const;
  /// Files of which a body that can be decoded was so given out.
  const std::set<std::string>& alteredKeys() const { return alteredKeys_; }

 private:
  void put(const Change& change);

  std::map<std::string, std::deque<Content>> files_;  ///< newest first; the first is null for one that went
  std::map<std::string, std::unordered_set<std::uint64_t>> published_;
  std::map<std::string, std::unordered_set<std::uint64_t>> altered_;
  std::set<std::string> alteredKeys_;
  std::multimap<double, Change> pending_;
};

}  // namespace tarvel::sim
