#include <algorithm>

#include "Checks.h"
#include "RinkRows.h"
#include "Targets.h"
#include "foundation/ClockTimer.h"
#include "model/DataModel.h"
#include "model/FileNames.h"
#include "refresh/MasterRefresh.h"
#include "refresh/NextRefresh.h"
#include "simulation/ports/SimServices.h"

namespace tarvel::fuzz {

namespace {

const Path kStore = "/store";
constexpr double kOneMinute = 60.0;

/// The engine of a start with a catalogue of two rinks.
class Engine {
 public:
  Engine() {
    require(sim_.disk.createFolders(kStore).ok(), "the disk holds the store");
    RinkListFile rinks;
    rinks.rinks.resize(2);
    rinks.rinks[0].rinkID = 2;
    rinks.rinks[1].rinkID = 7;
    rinks.rinks[1].timeZone = "America/New_York";
    require(sim_.disk.write(join(kStore, kRinksFileName), encodeRinks(rinks)).ok(), "and the catalogue");
  }

  /// What the state file would hold after a start with this one.
  PropertyList::Dictionary stateAfterStart(const PropertyList::Dictionary& state) {
    model_.start(&state);
    PropertyList::Dictionary kept;
    model_.addToState(kept);
    return kept;
  }

  void checkRinks() {
    const auto& rinks = model_.recentRinks;
    require(std::is_sorted(rinks.begin(), rinks.end(),
                           [](const auto& a, const auto& b) { return a->rinkID < b->rinkID; }),
            "rinks in use ascend by their ids");
    requireTimer(model_, kMasterRefreshInterval);
    for (const auto& rink : rinks) {
      require(model_.rinkInfo(rink->rinkID) != nullptr, "a rink in use stands in the catalogue");
      require(yearOf(endOfWeek(rink->lastWeek)) >= yearOf(rink->lastWeek), "a week ends after it begins");
      requireTimer(*rink, kRinkRefreshInterval);
    }
  }

  /// Timers fire, and the clock comes by.
  void runAMinute() { sim_.world.runFor(kOneMinute); }

 private:
  static void requireTimer(const RefreshableProtocol& refreshable, double longest) {
    const double seconds = refreshable.secondsUntilRefresh();
    require(seconds <= longest && (seconds >= 0.0 || refreshable.refreshInProgress()),
            "the next refresh is due within its interval");
  }

  SimServices sim_;
  std::shared_ptr<MessageLog> log_ =
      MessageLog::create(sim_.services, join(kStore, "error-log.b1"), "error-log", 500, 0600);
  ClockTimer clock_{sim_.services};
  DataModel model_{sim_.services, *log_, clock_, kStore, "http://catalogue.test"};
  MasterRefresh master_{sim_.services, model_};
};

}  // namespace

void stateFile(ByteView input) {
  const auto file = PropertyList::parse(input);
  if (!file || !file->dictionary()) return;
  Engine first;
  const PropertyList::Dictionary kept = first.stateAfterStart(*file->dictionary());
  first.checkRinks();
  const Result<Bytes> xml = PropertyList(kept).xml();
  require(xml.ok(), "the state can be saved");
  const auto saved = PropertyList::parse(*xml);
  require(saved && saved->dictionary(), "and read");
  Engine second;
  require(second.stateAfterStart(*saved->dictionary()) == kept, "a start changes nothing of the last state");
  first.runAMinute();
}

}  // namespace tarvel::fuzz
