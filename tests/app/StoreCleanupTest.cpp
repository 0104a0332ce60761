#include <gtest/gtest.h>

#include <set>

#include "app/StateFile.h"
#include "app/StoreCleanup.h"
#include "platform/AtomicFile.h"
#include "platform/posix/PosixFileSystem.h"
#include "simulation/ports/SimServices.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

class StateFileTest : public testing::Test {
 protected:
  StateFileTest() { EXPECT_TRUE(sim_.disk.createFolders("/store")); }
  void put(const std::string& content) {
    EXPECT_TRUE(sim_.disk.write("/store/appState.plist", Bytes(content.begin(), content.end())));
  }

  SimServices sim_;
  StateFile file_{sim_.disk, "/store"};
};

TEST_F(StateFileTest, WhatIsNoStateFileIsAFirstStart) {
  EXPECT_FALSE(file_.read()) << "no file";
  for (const char* content : {"", "garbage", "<plist version=\"1.0\"><array/></plist>",
                              "<plist version=\"1.0\"><dict><key>a</key>"}) {
    put(content);
    EXPECT_FALSE(file_.read()) << content;
  }
}

TEST_F(StateFileTest, AKeyOfAnotherTypeTakesItsDefaultAlone) {
  const Dictionary good = {{"windowSettings", Dictionary{{"A", Dictionary{}}}},
                           {"openWindows", Array{Dictionary{}}},
                           {"kioskMode", true},
                           {"skipBetaCycle", 7}};
  const std::vector<std::pair<std::string, PropertyList>> bad = {
      {"windowSettings", "text"},
      {"windowSettings", Dictionary{{"A", Dictionary{}}, {"B", 1}}},
      {"openWindows", Dictionary{}},
      {"openWindows", Array{Dictionary{}, 3}},
      {"kioskMode", 1},
      {"skipBetaCycle", "7"},
  };
  for (const auto& [key, value] : bad) {
    Dictionary state = good;
    state[key] = value;
    const AppState taken = AppState::from(state);
    EXPECT_EQ(taken.windowSettings.size(), key == "windowSettings" ? 0U : 1U) << key;
    EXPECT_EQ(taken.windowsToReopen.size(), key == "openWindows" ? 0U : 1U) << key;
    EXPECT_EQ(taken.kioskMode, key != "kioskMode") << key;
    EXPECT_EQ(taken.skipBetaCycle, key == "skipBetaCycle" ? 0 : 7) << key;
  }
}

TEST_F(StateFileTest, AFailedWriteLeavesTheOldFile) {
  const Dictionary old = {{"kioskMode", true}};
  ASSERT_TRUE(file_.write(old));
  sim_.disk.failOperation(1, MemoryFileSystem::Repeat::forEver);
  EXPECT_FALSE(file_.write({{"kioskMode", false}}));
  sim_.disk.clearFailures();
  EXPECT_EQ(file_.read(), old);
}

class StoreCleanupTest : public testing::Test {
 protected:
  StoreCleanupTest() { EXPECT_TRUE(sim_.disk.createFolders("/store")); }
  void addFile(const Path& path) {
    EXPECT_TRUE(sim_.disk.createFolders(parentOf(path)));
    EXPECT_TRUE(sim_.disk.write(path, Bytes{1}));
  }
  std::set<Path> entries() const {
    std::set<Path> paths;
    for (const auto& [path, state] : sim_.disk.snapshot()) paths.insert(path);
    return paths;
  }
  void cleanUp() { cleanUpStore(sim_.disk, "/store", sim_.console); }

  SimServices sim_;
};

TEST_F(StoreCleanupTest, KeepsWhatIsUsedAndRemovesTheRest) {
  struct Case {
    const char* path;  // ends with '/' for a folder
    const char* line;  // null for what stays
  };
  const std::vector<Case> cases = {
      {"/store/.lock", nullptr},
      {"/store/appState.plist", nullptr},
      {"/store/appState_testing.plist", nullptr},
      {"/store/defs.b1", nullptr},
      {"/store/rinks.b1", nullptr},
      {"/store/error-log.b1", nullptr},
      {"/store/logos/7.png", nullptr},
      {"/store/logos/old/deep.txt", nullptr},
      {"/store/notes.txt", "remove file: /store/notes.txt"},
      {"/store/main.b1", "remove file: /store/main.b1"},
      {"/store/rink-99", "remove file: /store/rink-99"},
      {"/store/cache/deep/a.b1", "remove folder: /store/cache"},
      {"/store/rinks/", "remove folder: /store/rinks"},
      {"/store/rink-7/main.b1", nullptr},
      {"/store/rink-7/notices.b1", nullptr},
      {"/store/rink-7/photoCollection.b1", nullptr},
      {"/store/rink-7/docCollection.b1", nullptr},
      {"/store/rink-7/venue-3_schedules.b1", nullptr},
      {"/store/rink-7/venue-3_week-2026-03-08.b1", nullptr},
      {"/store/rink-7/.hidden", nullptr},
      {"/store/rink-7/master.b1", "     remove file: /store/rink-7/master.b1"},
      {"/store/rink-7/venue-3.txt", "     remove file: /store/rink-7/venue-3.txt"},
      {"/store/rink-7/xvenue-3.b1", "     remove file: /store/rink-7/xvenue-3.b1"},
      {"/store/rink-7/Photos/12-800.jpg", nullptr},
      {"/store/rink-7/Photos/12-thumb-2.jpg", nullptr},
      {"/store/rink-7/Photos/12-thumbs.jpg", nullptr},
      {"/store/rink-7/Photos/12.jpg", "        remove file: /store/rink-7/Photos/12.jpg"},
      {"/store/rink-7/Photos/12-thumb.jpg", "        remove file: /store/rink-7/Photos/12-thumb.jpg"},
      {"/store/rink-7/Photos/old/", "        remove file: /store/rink-7/Photos/old"},
      {"/store/rink-7/Documents/plan.pdf", nullptr},
      {"/store/rink-7/Albums/a.jpg", "     remove folder: /store/rink-7/Albums"},
      {"/store/rink-of-old/Photos/", nullptr},
      {"/store/rink-of-old/a.b1", "     remove file: /store/rink-of-old/a.b1"},
  };
  std::set<std::string> lines;
  for (const Case& c : cases) {
    const std::string path = c.path;
    if (path.ends_with('/')) {
      EXPECT_TRUE(sim_.disk.createFolders(path.substr(0, path.size() - 1)));
    } else {
      addFile(path);
    }
    if (c.line) lines.insert(c.line);
  }
  cleanUp();
  const std::set<Path> left = entries();
  for (const Case& c : cases) {
    const std::string path = c.path;
    EXPECT_EQ(left.contains(path.substr(0, path.find_last_not_of('/') + 1)), c.line == nullptr) << path;
  }
  const auto printed = sim_.console.lines();
  EXPECT_EQ(std::set<std::string>(printed.begin(), printed.end()), lines);

  sim_.console.clear();
  cleanUp();
  EXPECT_TRUE(sim_.console.lines().empty()) << "a clean store has nothing left to remove";
  EXPECT_EQ(entries(), left);
}

TEST_F(StoreCleanupTest, TheFirstErrorEndsIt) {
  for (const char* path : {"/store/a.txt", "/store/b.txt", "/store/rink-7/old.txt", "/store/z.txt"})
    addFile(path);
  sim_.disk.failOperation(2, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::remove, ""});
  cleanUp();
  EXPECT_EQ(sim_.console.lines(),
            (std::vector<std::string>{"remove file: /store/a.txt", "remove file: /store/b.txt"}));
  EXPECT_TRUE(entries().contains("/store/z.txt"));

  sim_.disk.failOperation(1, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::list, "rink-7"});
  cleanUp();
  EXPECT_FALSE(entries().contains("/store/b.txt"));
  EXPECT_TRUE(entries().contains("/store/z.txt")) << "a rink folder that can't be listed ends it too";
}

TEST_F(StoreCleanupTest, LeftoversOfACrashGoAtTheStart) {
  // What an interrupted write leaves is found by interrupting one.
  const std::vector<Path> folders = {"/store", "/store/logos", "/store/rink-7", "/store/rink-7/Photos",
                                     "/elsewhere"};
  for (const Path& folder : folders) {
    ASSERT_TRUE(sim_.disk.createFolders(folder));
    sim_.disk.failOperation(1, MemoryFileSystem::Repeat::forEver, {MemoryFileSystem::Operation::rename, ""});
    sim_.disk.failOperation(1, MemoryFileSystem::Repeat::forEver, {MemoryFileSystem::Operation::remove, ""});
    EXPECT_FALSE(writeAtomically(sim_.disk, join(folder, "file.b1"), Bytes{1}));
    sim_.disk.clearFailures();
  }
  const std::set<Path> before = entries();
  ASSERT_EQ(before.size(), 2 * folders.size());
  removeLeftoversOfCrash(sim_.disk, "/store");
  const std::set<Path> after = entries();
  EXPECT_EQ(after.size(), folders.size() + 1) << "only the one outside the store is left";
  removeLeftoversOfCrash(sim_.disk, "/nowhere");
  EXPECT_EQ(entries(), after);
}

TEST(StorePlacesTest, WhatCanNotServeGoesAtTheStart) {
  const TempFolder temp;
  const Path store = temp.path() + "/store";
  const Path outside = temp.path() + "/outside";
  const std::vector<std::pair<Path, const char*>> cases = {
      {"rinks.b1", "file"},
      {"defs.b1", "folder"},
      {"appState.plist", "link"},
      {"logos", "link"},
      {"rink-7/main.b1", "folder"},
      {"rink-7/notices.b1", "link"},
      {"rink-7/Photos", "file"},
      {"rink-8", "file"},
      {"rink-9", "link"},
      {"rink-10/Photos/12-2.jpg", "folder"},
      {"rink-10/Photos/old", "link"},
      {"rink-10/plans", "folder"},
      {"cache", "link"},
  };
  const std::set<Path> wanted = {
      "defs.b1", "logos", "rink-10/Photos/12-2.jpg", "rink-7/Photos", "rink-7/main.b1", "rink-8", "rink-9"};
  PosixFileSystem files;
  ASSERT_TRUE(files.createFolders(outside));
  ASSERT_TRUE(files.write(outside + "/main.b1", Bytes{1}));
  for (const auto& [name, kind] : cases) {
    const Path path = join(store, name);
    ASSERT_TRUE(files.createFolders(parentOf(path)));
    if (kind == std::string("link")) {
      std::filesystem::create_symlink(outside, path);
    } else {
      ASSERT_TRUE(kind == std::string("file") ? files.write(path, Bytes{1})
                                              : files.createFolders(path + "/deep"));
    }
  }
  std::set<Path> removed;
  for (const Path& path : clearStorePlaces(files, store)) removed.insert(path.substr(store.size() + 1));
  EXPECT_EQ(removed, wanted);
  for (const auto& [name, kind] : cases) {
    const auto there = std::filesystem::symlink_status(join(store, name));
    EXPECT_EQ(std::filesystem::exists(there), !wanted.contains(name)) << name;
  }
  EXPECT_TRUE(files.info(outside + "/main.b1")) << "a link goes, and not what it leads to";
  EXPECT_TRUE(clearStorePlaces(files, store + "/nowhere").empty());
}

}  // namespace
}  // namespace tarvel
