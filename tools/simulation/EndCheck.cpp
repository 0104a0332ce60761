#include <fmt/format.h>

#include <algorithm>

#include "model/FileNames.h"
#include "model/ScheduleFiles.h"
#include "model/StoredFile.h"
#include "simulation/Simulation.h"
#include "simulation/StoredFiles.h"

namespace tarvel::sim {

namespace {

constexpr std::int64_t kDaysPerWeek = 7;
constexpr std::int64_t kMinutesToRefresh = 270;
constexpr double kCoarsestDates = 2.0;

/// One comparison of what is published with what is stored.
class EndCheck {
 public:
  EndCheck(SimProgram& program, const SimServers& servers, FileSystem& disk, Alarms& alarms)
      : model_(program.model), servers_(servers), disk_(disk), alarms_(alarms) {}

  void catalogue() {
    expectDate("defs.b1", Need::always);
    expectDate("rinks.b1", Need::always);
    const Content list = servers_.current("rinks.b1");
    if (list && decodeRinkList(*list).rinks.size() != model_.rinkList.size())
      fail("the list of rinks differs");
    if (model_.refreshState.errorKind != DownloadErrorKind::noError) fail("the catalogue has an error");
  }

  void rink(RinkData& rink, bool inView) {
    const std::string prefix = rinkFolderName(rink.rinkID) + "/";
    const Content main = servers_.current(prefix + "main.b1");
    if (!main) return fail(prefix + " is in use and gone");
    if (rink.refreshState.errorKind != DownloadErrorKind::noError && !mayKnowFalseWeeks(prefix))
      fail(prefix + " has an error: " + rink.refreshState.errorLog);
    expectDate(prefix + "main.b1", inView ? Need::always : Need::ifStored);
    const MainFile file = decodeMainFile(*main);
    if (inView && rink.venues.size() != file.venues.size()) fail(prefix + " has other venues");
    for (const FileRecord& record : file.files) {
      expectDate(prefix + record.name, Need::ifStored);
      const auto venueID = parseSchedulesFileName(record.name);
      if (venueID && stored(prefix + record.name)) weeks(rink, prefix, record.name, inView);
    }
  }

 private:
  /// Weeks stay listed until they leave the range. One that only a damaged file has named is asked for, in
  /// vain, for as long.
  bool mayKnowFalseWeeks(const std::string& prefix) const {
    const auto& altered = servers_.alteredKeys();
    return std::any_of(altered.begin(), altered.end(), [&](const std::string& key) {
      return key.starts_with(prefix) && key.ends_with("_schedules.b1");
    });
  }
  enum class Need { always, ifStored };

  void fail(const std::string& detail) { alarms_.ring(Alarm::datesAtEnd, detail); }
  std::optional<Instant> stored(const std::string& key) { return storedDate(disk_, join(kStore, key)); }

  void expectDate(const std::string& key, Need need) {
    const Content published = servers_.current(key);
    const auto date = stored(key);
    if (!date && need == Need::ifStored) return;
    const auto own = published ? ownDate(key, *published) : std::nullopt;
    if (!date || !own) return fail(fmt::format("{} isn't {}", key, date ? "published" : "stored"));
    const double off = *own - *date;
    if (off < 0.0 || off >= kCoarsestDates || (off != 0.0 && date->seconds != std::floor(date->seconds)))
      fail(fmt::format("{} is off by {} s", key, off));
  }

  void weeks(RinkData& rink, const std::string& prefix, const std::string& schedules, bool inView) {
    const Content content = servers_.current(prefix + schedules);
    if (!content) return;
    // In the first hours of a week there may have been no refresh that knows of the week after it.
    const PackedDate thisWeek = startOfWeek(rink.dateNow());
    const bool knowsNext = rink.dateNow() != thisWeek || rink.timeNow() > kMinutesToRefresh;
    for (const FileRecord& week : decodeSchedulesFile(*content).weeks) {
      const auto name = parseWeekName(withoutExtension(week.name));
      const bool soon =
          name->weekOf == thisWeek || (knowsNext && name->weekOf == addDays(thisWeek, kDaysPerWeek));
      if (soon && (name->weekOf < rink.firstWeek || name->weekOf > rink.lastWeek))
        fail(fmt::format("{} is outside {:x} to {:x}", prefix + week.name, rink.firstWeek, rink.lastWeek));
      expectDate(prefix + week.name, soon ? Need::always : Need::ifStored);
      if (soon && inView) shows(rink, *name, prefix + week.name);
    }
  }

  void shows(RinkData& rink, const WeekName& name, const std::string& key) {
    const auto venue = rink.venue(name.venueID);
    const auto schedule = venue ? venue->weeklySchedule(name.weekOf) : nullptr;
    const auto items = schedule ? schedule->items() : nullptr;
    if (!items) return fail(key + " isn't shown");
    if (items->size() != decodeWeekFile(*servers_.current(key)).items.size())
      fail(key + " shows other sessions");
  }

  DataModel& model_;
  const SimServers& servers_;
  FileSystem& disk_;
  Alarms& alarms_;
};

}  // namespace

void checkAllIsRight(SimProgram& program, const SimServers& servers, FileSystem& disk,
                     std::optional<std::int64_t> inView, Alarms& alarms) {
  EndCheck check(program, servers, disk, alarms);
  check.catalogue();
  for (const auto& rink : std::vector(program.model.recentRinks)) check.rink(*rink, rink->rinkID == inView);
}

}  // namespace tarvel::sim
