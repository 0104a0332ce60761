#include "platform/AtomicFile.h"

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

const Bytes kOld{1, 2, 3, 4};
const Bytes kNew{5, 6, 7, 8, 9, 10};
const FileAttributes kOldAttributes{Instant{1000.5}, std::uint16_t{0600}};
const FileAttributes kNewAttributes{Instant{2000.25}, std::uint16_t{0640}};

using FileState = MemoryFileSystem::FileState;
const FileState kNewState{FileKind::file, kNew, {2000.25}, 0640};
constexpr int kOperations = 5;  // write, attributes, sync, rename, sync of the folder

struct Store {
  explicit Store(bool withOld) {
    EXPECT_TRUE(disk.createFolders("/store"));
    EXPECT_TRUE(!withOld || writeAtomically(disk, "/store/f", kOld, kOldAttributes));
    disk.syncAll();
    disk.clearLog();
  }
  /// None if there is no file.
  std::optional<FileState> file() const {
    const auto states = disk.snapshot();
    const auto found = states.find("/store/f");
    return found == states.end() ? std::nullopt : std::optional(found->second);
  }
  SimWorld world;
  MemoryFileSystem disk{world.clock()};
};

TEST(AtomicFile, WritesContentAndAttributes) {
  Store store(true);
  ASSERT_TRUE(writeAtomically(store.disk, "/store/f", kNew, kNewAttributes));
  EXPECT_EQ(store.disk.log().size(), kOperations);
  store.disk.crash();
  EXPECT_EQ(store.file(), kNewState) << "it was reported as safe";
  const TempFolder temp;
  PosixFileSystem real;
  ASSERT_TRUE(writeAtomically(real, temp.path() + "/f", kNew, kNewAttributes));
  EXPECT_EQ(*real.read(temp.path() + "/f"), kNew);
  EXPECT_EQ(real.info(temp.path() + "/f")->modificationDate, *kNewAttributes.modificationDate);
}

TEST(AtomicFile, AFailureOrPowerCutAtAnyOperationLeavesTheOldOrTheNewFileWhole) {
  for (const bool withOld : {false, true}) {
    for (int nth = 1; nth <= kOperations + 1; ++nth) {
      Store failing(withOld);
      const auto before = failing.file();
      failing.disk.failOperation(nth);
      const Status outcome = writeAtomically(failing.disk, "/store/f", kNew, kNewAttributes);
      EXPECT_EQ(outcome.ok(), nth >= kOperations) << nth;
      EXPECT_EQ(failing.file(), outcome ? kNewState : before) << nth;
      EXPECT_EQ(failing.disk.list("/store")->size(), failing.file() ? 1u : 0u) << nth;
      for (std::uint64_t seed = 0; seed < 64; ++seed) {
        SCOPED_TRACE(testing::Message() << "operation " << nth << ", seed " << seed);
        Store store(withOld);
        store.disk.failOperation(nth, MemoryFileSystem::Repeat::forEver);
        (void)writeAtomically(store.disk, "/store/f", kNew, kNewAttributes);
        store.disk.clearFailures();
        SeededRandom random(seed);
        store.disk.crash(random);
        const auto after = store.file();
        EXPECT_TRUE(after == before || after == kNewState);
        removeLeftoverTemporaries(store.disk, "/store");
        EXPECT_EQ(store.disk.list("/store")->size(), after ? 1u : 0u);
      }
    }
  }
}

TEST(AtomicFile, AFolderOutlivesAPowerCutWithWhatIsStoredInIt) {
  Store store(false);
  ASSERT_TRUE(createFoldersSafely(store.disk, "/store/rink/photos"));
  ASSERT_TRUE(writeAtomically(store.disk, "/store/rink/photos/f", kNew));
  store.disk.crash();
  EXPECT_TRUE(store.disk.info("/store/rink/photos/f"));
  store.disk.clearLog();
  ASSERT_TRUE(createFoldersSafely(store.disk, "/store/rink"));
  EXPECT_EQ(store.disk.log().size(), 1U) << "what stood already isn't synced";
}

TEST(AtomicFile, OnlyLeftoversGo) {
  Store store(true);
  ASSERT_TRUE(store.disk.createFolders("/store/.folder.part"));
  for (const char* name : {".f.part", ".part", "g.part", ".hidden"})
    ASSERT_TRUE(store.disk.write(join("/store", name), {}));
  removeLeftoverTemporaries(store.disk, "/store");
  std::string left;
  for (const FolderEntry& entry : *store.disk.list("/store")) left += entry.name + " ";
  EXPECT_EQ(left, ".hidden .part f g.part ");
}

}  // namespace
}  // namespace tarvel
