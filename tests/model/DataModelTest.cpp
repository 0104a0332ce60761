#include "ModelFixture.h"

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;

class DataModelTest : public ModelFixture {};

TEST_F(DataModelTest, BuiltInSessionsServeUntilTheServersAreKnown) {
  EXPECT_EQ(model.sessionName(17), "Meeting");
  EXPECT_EQ(model.sessionColor(18), (Color{1.0, 0.15, 0.15, 1.0}));
  EXPECT_EQ(model.sessionName(19), "");
  EXPECT_EQ(model.sessionColor(-1), white(0.8));
  PublishedSite published;
  for (int i = 0; i < 18; ++i) published.sessions.push_back({"S" + std::to_string(i), white(i / 18.0)});
  store("defs.b1", published.defs());
  model.start(nullptr);
  EXPECT_EQ(announced(), Texts{}) << "nothing observes yet";
  EXPECT_EQ(model.sessionName(17), "S17");
  EXPECT_EQ(model.sessionName(18), "");
  EXPECT_EQ(model.sessionColor(17), white(17 / 18.0));
  EXPECT_EQ(model.sessionColor(18), white(0.8));
}

TEST_F(DataModelTest, DefsAnnounceWhatDiffers) {
  model.adoptDefs({{1.0}, {"A", "B"}, {white(0.1), white(0.2)}});
  EXPECT_EQ(announced(), (Texts{"schedule names changed", "schedule colors changed"}));
  model.adoptDefs({{2.0}, {"A", "B"}, {white(0.1), white(0.2)}});
  EXPECT_EQ(announced(), Texts{});
  model.adoptDefs({{3.0}, {"A", "B", "C"}, {white(0.1), white(0.2)}});
  EXPECT_EQ(announced(), Texts{"schedule names changed"});
  model.adoptDefs({{4.0}, {"A", "B", "C"}, {white(0.1), white(0.3)}});
  EXPECT_EQ(announced(), Texts{"schedule colors changed"});
}

TEST_F(DataModelTest, TheOldCatalogueServesUntilTheNewOneIsThere) {
  const std::string row =
      R"({"rinkID": 12, "name": "Harbor", "street": "s", "city": "c", "state": "st", "zip": "z",
          "phone": "(303) 555-0123", "latitude": 1.5, "longitude": -2, "timeZone": "Europe/Oslo",
          "websiteUrl": "w", "serverUrl": "u", "dataPath": "d", "logoFileDate": 5.25, "logoFileSize": 6,
          "darkLogoFileDate": 0, "darkLogoFileSize": 0, "more": []})";
  std::string second = row;
  second.replace(second.find("12"), 2, "7");
  second.replace(second.find("(303) 555-0123"), 14, "no phone");
  const std::string whole = R"({"fileDate": 1.5, "rinks": [)" + row + "," + second + "]}";
  const auto readList = [&](const std::string& text) {
    store("rinks2.json", Bytes(text.begin(), text.end()));
    model.rinkList.clear();
    model.start(nullptr);
    EXPECT_EQ(taken(), (Texts{"/defs.b1", "/rinks.b1", "schedule"})) << "requested all the same";
    return model.rinkList.size();
  };
  ASSERT_EQ(readList(whole), 2U);
  EXPECT_EQ(static_cast<const RinkRecord&>(*model.rinkList[1]),
            (RinkRecord{12, "Harbor", "s", "c", "st", "z", 0xA000003035550123ULL, 1.5, -2.0, "Europe/Oslo",
                        "w", "u", "d", Instant{5.25}, 6, Instant{0.0}, 0}));
  EXPECT_EQ(model.rinkList[0]->rinkID, 7) << "sorted";
  EXPECT_EQ(model.rinkList[0]->phone, 0U);
  EXPECT_TRUE(sim.console.printed("read file: rinks2.json " +
                                  std::to_string(whole.size()).insert(1, whole.size() > 999 ? "," : "") +
                                  " bytes"))
      << whole.size();

  const std::pair<const char*, const char*> damages[] = {{"\"rinks\"", "\"list\""},
                                                         {"\"fileDate\": 1.5", "\"fileDate\": \"1.5\""},
                                                         {"\"zip\"", "\"zap\""},
                                                         {"\"rinkID\": 12", "\"rinkID\": 12.5"},
                                                         {"\"phone\": \"(", "\"phone\": 3, \"x\": \"("},
                                                         {"[{", "[3, {"},
                                                         {"]}", "]"},
                                                         {"Harbor", "\xFF"}};
  for (const auto& [from, to] : damages) {
    std::string text = whole;
    const auto at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, std::string_view(from).size(), to);
    EXPECT_EQ(readList(text), 0U) << to;
  }
  // A catalogue that is there but can't be read doesn't fall back on the old one.
  store("rinks.b1", site.rinkList());
  sim.disk.failOperation(1, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::read, "rinks.b1"});
  EXPECT_EQ(readList(whole), 0U);
}

TEST_F(DataModelTest, TheStateComesBackAsItWasKept) {
  store("defs.b1", site.defs(), site.defsDate.actual);
  store("rinks.b1", site.rinkList(), site.rinksDate.actual);
  Dictionary state{{"errorKind", 1},
                   {"errorLog", "entry"},
                   {"mismatchError", true},
                   {"prevMismatchError", true},
                   {"updateReminderDueDate", packedDate(2026, 3, 9)},
                   {"applicationUpdateRequired", true},
                   {"applicationWebsiteURL", "https://tarvel.test"},
                   {"tarvelServerURL", "http://other.test"},
                   {"lastRefreshTimeStamp", Instant{1.0}},
                   {"errorTimeStamp", Instant{2.0}},
                   {"defsFileDate", Instant{790'000'000.0}},
                   {"rinksFileDate", Instant{1.0}}};
  state["recentRinks"] =
      PropertyList::Array{Dictionary{{"rinkID", 12}}, Dictionary{{"rinkID", 99}}, Dictionary{{"rinkID", 7}}};
  model.start(&state);
  EXPECT_EQ(taken(), (Texts{"12: schedule", "7: schedule", "schedule"})) << "99 has left the catalogue";
  EXPECT_EQ(announced(), (Texts{"current date changed", "current time of day changed", "time zone changed",
                                "current date changed", "current time of day changed", "time zone changed"}));
  EXPECT_EQ(model.recentRinks[0]->rinkInfo(), model.rinkInfo(7));
  EXPECT_EQ(model.defsFileDate, site.defsDate.actual) << "exact, by the stored file";
  EXPECT_EQ(model.rinksFileDate, Instant{1.0});

  Dictionary kept;
  model.addToState(kept);
  state["defsFileDate"] = site.defsDate.actual;
  ASSERT_EQ(kept["recentRinks"].array()->size(), 2U);
  EXPECT_EQ(kept["recentRinks"].array()->front(), PropertyList(model.recentRinks[0]->dictionary()));
  state.erase("recentRinks");
  kept.erase("recentRinks");
  EXPECT_EQ(kept, state);
}

TEST_F(DataModelTest, StateKeysOfOtherTypesAreAsGoodAsMissing) {
  store("rinks.b1", site.rinkList());
  Dictionary state;
  for (const char* key : {"errorKind", "errorLog", "mismatchError", "prevMismatchError",
                          "updateReminderDueDate", "applicationUpdateRequired", "applicationWebsiteURL",
                          "tarvelServerURL", "lastRefreshTimeStamp", "defsFileDate"}) {
    state[key] = PropertyList::Array{};
  }
  state["recentRinks"] = PropertyList::Array{Dictionary{{"rinkID", 7}}, 3};
  model.start(&state);
  EXPECT_TRUE(model.recentRinks.empty()) << "no list of dictionaries";
  Dictionary kept;
  model.addToState(kept);
  const Dictionary defaults{{"errorKind", 0},
                            {"errorLog", ""},
                            {"mismatchError", false},
                            {"prevMismatchError", false},
                            {"updateReminderDueDate", 0},
                            {"applicationUpdateRequired", false},
                            {"applicationWebsiteURL", ""},
                            {"recentRinks", PropertyList::Array{}}};
  EXPECT_EQ(kept, defaults) << "and an address equal to the default isn't kept";
}

TEST_F(DataModelTest, AskingForARinkTakesItIntoUse) {
  model.mergeRinkList(decodeRinkList(site.rinkList()));
  int changes = 0;
  model.stateChanged = [&] { ++changes; };
  const auto harbor = model.rinkData(12);
  const auto arctic = model.rinkData(7);
  EXPECT_EQ(model.rinkData(12), harbor);
  EXPECT_EQ(model.recentRinks, (std::vector{arctic, harbor}));
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(arctic->rinkInfo()->name, "Arctic");
  EXPECT_EQ(model.rinkInfo(8), nullptr);
}

constexpr double kDay = 86'400.0;

class StoreTidyingTest : public ModelFixture {
 protected:
  StoreTidyingTest() {
    for (const int id : {20, 30}) {
      site.rinks.push_back(site.rinks[1]);
      site.rinks.back().record.rinkID = id;
    }
    model.mergeRinkList(decodeRinkList(site.rinkList()));
  }
};

TEST_F(StoreTidyingTest, RinksNotViewedForFourWeeksAreDroppedAtQuit) {
  const std::tuple<std::int64_t, std::optional<double>, bool> cases[] = {
      {7, 27.0, true}, {12, 28.0, true}, {20, 29.0, false}, {30, std::nullopt, false}, {99, 1.0, false}};
  for (const auto& [rinkID, daysAgo, stays] : cases) {
    const auto rink = model.rinkData(rinkID);
    if (daysAgo) rink->lastViewed = sim.world.now() - *daysAgo * kDay;
    store("rink-" + std::to_string(rinkID) + "/main.b1", {});
  }
  announced();
  taken();
  model.prepareToQuit();
  EXPECT_EQ(taken(),
            (Texts{"invalidate", "7: invalidate", "12: invalidate", "20: invalidate", "30: invalidate",
                   "99: invalidate", "20: invalidate", "30: invalidate", "99: invalidate"}));
  EXPECT_EQ(announced(), Texts{});
  for (const auto& [rinkID, daysAgo, stays] : cases)
    EXPECT_EQ(exists("rink-" + std::to_string(rinkID)), stays) << rinkID;
  EXPECT_EQ(model.recentRinks.size(), 2U);
}

TEST_F(StoreTidyingTest, OnlyLeftoversGoFromTheFolders) {
  model.rinkData(7)->lastViewed = sim.world.now();
  const Texts stay = {"rinks.b1",
                      "rink-7/main.b1",
                      "rink-x/a",
                      "rink-5-1/a",
                      "rink--5/a",
                      "rinks-5/a",
                      "logos/7.png",
                      ".hidden.json",
                      "rink-6",
                      "notes.json/a",
                      "rink-7/a.pdf/b",
                      "rink-7/notices.b1",
                      "rink-7/Photos/1-1.jpg",
                      "rink-/a",
                      ".rink-5/a"};
  const Texts go = {"rinks2.json",  "rink-5/main.b1", "rink-+8/a",
                    "rink-7/a.jpg", "rink-7/b.png",   "rink-7/c.pdf"};
  for (const Texts* names : {&stay, &go})
    for (const std::string& name : *names) store(name, {1});
  model.prepareToQuit();
  for (const std::string& name : stay) EXPECT_TRUE(exists(name)) << name;
  for (const std::string& name : go) EXPECT_FALSE(exists(name)) << name;
  for (const char* line :
       {"removed file: /home/u/Tarvel/rinks2.json", "removed folder: /home/u/Tarvel/rink-5",
        "removing file: /home/u/Tarvel/rink-7/a.jpg"}) {
    EXPECT_TRUE(sim.console.printed(line)) << line;
  }
}

TEST_F(StoreTidyingTest, TheFirstFailureEndsTheTidying) {
  for (const char* name : {"rink-1/a", "rink-2/a", "rink-3/a"}) store(name, {});
  sim.disk.failOperation(2, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::remove, ""});
  model.tidyApplicationFolder();
  EXPECT_FALSE(exists("rink-1"));
  EXPECT_TRUE(exists("rink-2") && exists("rink-3"));
  EXPECT_TRUE(log->logMessages().empty());
  model.tidyApplicationFolder();
  EXPECT_FALSE(exists("rink-2") || exists("rink-3"));
}

TEST_F(StoreTidyingTest, AnOldVersionsStateFileGoesAfterTwoWeeks) {
  for (const double days : {13.0, 14.0, 15.0}) {
    store("application-state", {}, sim.world.now() - days * kDay);
    model.prepareToQuit();
    EXPECT_EQ(exists("application-state"), days <= 14.0) << days;
  }
  EXPECT_TRUE(sim.console.printed("Deleting /home/u/Tarvel/application-state"));
}

}  // namespace
}  // namespace tarvel
