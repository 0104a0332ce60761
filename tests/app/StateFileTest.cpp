#include "app/StateFile.h"

#include <gtest/gtest.h>

#include "simulation/ports/SimServices.h"

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

}  // namespace
}  // namespace tarvel
