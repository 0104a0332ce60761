#pragma once
#include <gtest/gtest.h>

#include "refresh/SimEngine.h"
#include "support/PublishedSite.h"

namespace tarvel {

using Texts = std::vector<std::string>;

/// The engine on virtual time, with the sample site on the network. Weeks of the site: the one before now,
/// now, next, and one more.
class EngineFixture : public testing::Test {
 protected:
  static constexpr PackedDate kLastWeek = packedDate(2026, 3, 1);
  static constexpr PackedDate kThisWeek = packedDate(2026, 3, 8);
  static constexpr PackedDate kNextWeek = packedDate(2026, 3, 15);
  static constexpr PackedDate kLaterWeek = packedDate(2026, 3, 22);

  EngineFixture() { site.serveOn(sim.http); }

  void start() {
    engine = std::make_unique<SimEngine>(sim);
    engine->start();
  }
  void quit() {
    model().prepareToQuit();
    EXPECT_TRUE(engine->saveState());
    engine.reset();
  }
  void restart() {
    quit();
    start();
  }
  /// A first start, with the catalogue at hand and its first refresh over.
  void startWithCatalogue() {
    start();
    sim.world.runFor(5);
    sim.http.clearRequests();
  }
  /// Puts a rink on screen as a window does, with the weeks that it then shows.
  RinkData& show(std::int64_t rinkID) {
    const auto rink = model().rinkData(rinkID);
    rink->lastViewed = sim.world.now();
    rink->readMainFile();
    rink->refresher().refreshIfDue();
    sim.world.runFor(0);
    for (const auto& venue : rink->venues) venue->weeklySchedule(kThisWeek);
    sim.world.runFor(0);
    return *rink;
  }
  /// Runs a refresh to its end.
  void refresh(RefreshableProtocol& refreshable) {
    refreshable.refreshNow();
    sim.world.runFor(0);
    EXPECT_FALSE(refreshable.refreshInProgress());
  }

  DataModel& model() { return engine->model; }
  Texts requested() const {
    Texts urls;
    for (const auto& request : sim.http.requests()) urls.push_back(request.url);
    return urls;
  }
  std::optional<Bytes> stored(const Path& name) {
    const auto content = sim.disk.read(kStore + "/" + name);
    return content ? std::optional<Bytes>(*content) : std::nullopt;
  }
  std::optional<Instant> storedDateOf(const Path& name) {
    const auto info = sim.disk.info(kStore + "/" + name);
    return info ? std::optional<Instant>(info->modificationDate) : std::nullopt;
  }

  SimServices sim;
  PublishedSite site = PublishedSite::sample();
  std::unique_ptr<SimEngine> engine;
};

}  // namespace tarvel
