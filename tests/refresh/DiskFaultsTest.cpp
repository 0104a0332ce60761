#include "EngineFixture.h"

namespace tarvel {
namespace {

using Operation = MemoryFileSystem::Operation;
using Repeat = MemoryFileSystem::Repeat;

/// A rink on screen, and then everything on the server new.
class Scenario : public EngineFixture {
 public:
  void TestBody() override {}

  Scenario() {
    startWithCatalogue();
    rink = &show(7);
    EXPECT_TRUE(engine->saveState());
    sim.disk.syncAll();
    old = sim.disk.snapshot();
    site.defsDate.publishAnew();
    site.rinksDate.publishAnew();
    site.sessions[0].name = "New";
    site.rinks[0].mainDate.publishAnew();
    for (PublishedVenue& venue : site.rinks[0].venues) {
      venue.schedulesDate.publishAnew();
      for (PublishedWeek& week : venue.weeks) week.date.publishAnew();
      venue.weeks[1].items.resize(1);
    }
    sim.disk.clearLog();
  }
  void refreshAll() {
    refresh(model());
    refresh(*rink);
  }
  /// The operation that was made to fail; null if none was reached.
  const MemoryFileSystem::LoggedOperation* failedOperation() const {
    for (const auto& operation : sim.disk.log())
      if (operation.failed) return &operation;
    return nullptr;
  }
  void expectNewContentInUse() {
    EXPECT_EQ(model().sessionName(0), "New");
    EXPECT_EQ(rink->venues[0]->weeklySchedule(kThisWeek)->items()->size(), 1U);
    EXPECT_EQ(rink->errorKind(), DownloadErrorKind::noError);
  }
  /// Every file stands whole, as it was before or as it is published now, with the date of that version.
  void expectWholeFiles() {
    std::map<Path, Bytes> fresh{{kStore + "/defs.b1", site.defs()}, {kStore + "/rinks.b1", site.rinkList()}};
    for (const auto& [url, bytes] : site.files()) {
      const std::string folder = site.rinks[0].url("");
      if (url.starts_with(folder)) fresh[kStore + "/rink-7/" + url.substr(folder.size())] = bytes;
    }
    for (const auto& [path, state] : sim.disk.snapshot()) {
      if (state.kind == FileKind::folder || fileNameOf(path).starts_with(".")) continue;
      const auto before = old.find(path);
      const bool isOld = before != old.end() && state == before->second;
      const auto now = fresh.find(path);
      const bool isNew = now != fresh.end() && state.content == now->second &&
                         DataDecoder(state.content).getDouble() == state.modificationDate.seconds;
      EXPECT_TRUE(isOld || isNew) << path;
    }
  }

  using EngineFixture::engine;
  using EngineFixture::restart;
  using EngineFixture::sim;
  using EngineFixture::start;
  RinkData* rink = nullptr;
  std::map<Path, MemoryFileSystem::FileState> old;
};

TEST(DiskFaultsTest, WhicheverOperationFailsTheFilesStayWholeAndTheDataIsUsed) {
  int n = 1;
  for (;; ++n) {
    SCOPED_TRACE("operation " + std::to_string(n));
    Scenario scenario;
    scenario.sim.disk.failOperation(n);
    scenario.refreshAll();
    const auto* failed = scenario.failedOperation();
    if (!failed) break;
    scenario.expectNewContentInUse();
    scenario.expectWholeFiles();
    const bool folderSync = failed->operation == Operation::sync && !failed->path.ends_with(".part");
    EXPECT_EQ(scenario.engine->logged("Unable to save file: " + kStore), !folderSync) << failed->path;
    for (const auto& [path, state] : scenario.sim.disk.snapshot())
      EXPECT_FALSE(path.ends_with(".part")) << path;
    scenario.refreshAll();
    scenario.restart();
    scenario.sim.http.clearRequests();
    scenario.rink = scenario.engine->model.rinkData(7).get();
    scenario.refreshAll();
    scenario.expectNewContentInUse();
    EXPECT_EQ(scenario.sim.http.requests().size(), 2U) << "the indexes: all is current";
  }
  EXPECT_EQ(n, 1 + 9 * 5) << "nine files of five steps each";
}

TEST(DiskFaultsTest, AFullDiskKeepsTheOldFilesAndTheProgramGoesOn) {
  Scenario scenario;
  scenario.sim.disk.setCapacity(0);
  scenario.refreshAll();
  scenario.expectNewContentInUse();
  EXPECT_EQ(scenario.sim.disk.snapshot(), scenario.old);
  EXPECT_TRUE(scenario.engine->logged("Unable to save file: " + kStore + "/rink-7/main.b1"));
  scenario.sim.disk.setCapacity(std::nullopt);
  scenario.refreshAll();
  scenario.expectWholeFiles();
  EXPECT_NE(scenario.sim.disk.snapshot(), scenario.old);
}

TEST(DiskFaultsTest, AFolderThatCantBeMadeIsLogged) {
  Scenario scenario;
  (void)scenario.sim.disk.remove(kStore + "/rink-7");
  scenario.sim.disk.failOperation(1, Repeat::forEver, {Operation::createFolders, "rink-7"}, "no room");
  scenario.refreshAll();
  EXPECT_TRUE(scenario.engine->logged("Unable to create folder: " + kStore + "/rink-7"));
  EXPECT_TRUE(scenario.sim.console.printed("    no room"));
}

}  // namespace
}  // namespace tarvel
