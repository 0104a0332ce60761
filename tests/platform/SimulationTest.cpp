#include <gtest/gtest.h>

#include <set>

#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel {
namespace {

TEST(MemoryFileSystem, ACrashKeepsWhatWasSyncedAlone) {
  SimWorld world;
  MemoryFileSystem disk(world.clock());
  ASSERT_TRUE(disk.createFolders("/s"));
  ASSERT_TRUE(disk.write("/s/a", Bytes{1}));
  disk.syncAll();
  const auto safe = disk.snapshot();
  ASSERT_TRUE(disk.write("/s/a", Bytes{2, 2}));
  ASSERT_TRUE(disk.write("/s/b", Bytes{3}));
  ASSERT_TRUE(disk.sync("/s/b"));  // its content, not its name
  ASSERT_TRUE(disk.remove("/s/a"));
  disk.crash();
  EXPECT_EQ(disk.snapshot(), safe);

  std::set<std::string> contents;
  bool bothNames = false, none = false;
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    MemoryFileSystem torn(world.clock());
    ASSERT_TRUE(torn.write("/a", Bytes{1, 1, 1}));
    torn.syncAll();
    ASSERT_TRUE(torn.write("/a", Bytes{2, 2}));
    ASSERT_TRUE(torn.rename("/a", "/b"));
    SeededRandom random(seed);
    torn.crash(random);
    const auto left = torn.snapshot();
    bothNames |= left.size() > 1;
    none |= left.empty();
    for (const auto& [path, file] : left) contents.emplace(file.content.begin(), file.content.end());
  }
  EXPECT_EQ(contents, (std::set<std::string>{"", "\2", "\2\2", "\1\1\1"}));
  EXPECT_FALSE(bothNames || none) << "a rename is one step";
}

}  // namespace
}  // namespace tarvel
