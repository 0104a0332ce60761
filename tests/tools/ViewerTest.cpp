#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QImage>
#include <cstdio>
#include <fstream>

#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"
#include "support/PublishedSite.h"
#include "support/TempFolder.h"
#include "viewer/ViewerOptions.h"

namespace tarvel::viewer {
namespace {

std::vector<std::string> words(const std::string& line) {
  std::vector<std::string> result;
  std::istringstream stream(line);
  for (std::string word; stream >> word;) result.push_back(word);
  return result;
}

TEST(ViewerOptions, AreReadAndWrongOnesRefusedByName) {
  const auto given = parseViewerOptions(words(
      "--folder /tree/ --rink 7 --view header --venues 1,3 --date 2026-03-18 --time 22:30 --size 820x700 "
      "--appearance dark --scale 2 --mode scroll --font 11 --times --weeks damaged --png out.png"));
  ASSERT_TRUE(given) << given.error().description;
  EXPECT_EQ(given->folder, "/tree");
  EXPECT_EQ(given->rinkID, 7);
  EXPECT_TRUE(given->isDaily()) << "the header of two venues";
  EXPECT_EQ(given->venueIDs, (std::vector<std::int64_t>{1, 3}));
  EXPECT_EQ(given->today, packedDate(2026, 3, 18));
  EXPECT_EQ(given->time, 22 * 60 + 30);
  EXPECT_EQ(given->size, QSize(820, 700));
  EXPECT_EQ(given->weekFiles, WeekFiles::damaged);
  const std::pair<const char*, const char*> refused[] = {
      {"--date 2026-03-18", "--folder"},
      {"--folder /t", "--date"},
      {"--folder /t --date 2026-02-30", "--date"},
      {"--folder /t --date 2026-03-18 --today yesterday", "--today"},
      {"--folder /t --date 2026-03-18 --time 24:00", "--time"},
      {"--folder /t --date 2026-03-18 --size 820", "--size"},
      {"--folder /t --date 2026-03-18 --size 820x700x2", "--size"},
      {"--folder /t --date 2026-03-18 --size 8x700", "--size"},
      {"--folder /t --date 2026-03-18 --scale 0", "--scale"},
      {"--folder /t --date 2026-03-18 --view month", "--view"},
      {"--folder /t --date 2026-03-18 --venues one", "--venues"},
      {"--folder /t --date 2026-03-18 --png a --pdf b", "--pdf"},
      {"--folder /t --date 2026-03-18 --view calendar --pdf b", "--pdf"},
      {"--folder /t --date 2026-03-18 --colour red", "--colour"}};
  for (const auto& [line, option] : refused) {
    const auto options = parseViewerOptions(words(line));
    ASSERT_FALSE(options) << line;
    EXPECT_NE(options.error().description.find(option), std::string::npos)
        << line << ": " << options.error().description;
  }
}

TEST(FolderHttpClient, AnswersFromTheFolderAloneAndSpoilsWeeksAsTold) {
  SimWorld world;
  MemoryFileSystem disk(world.clock());
  for (const char* path : {"/tree/root.b1", "/tree/r7/venue-1_week-2026-03-01.b1", "/outside.b1"}) {
    ASSERT_TRUE(disk.createFolders(parentOf(path)));
    ASSERT_TRUE(disk.write(path, Bytes{1, 2, 3, 4}));
  }
  const std::string week = "https://elsewhere.test:81/r7/venue-1_week-2026-03-01.b1";
  // The status is 0 where no answer comes.
  const std::tuple<std::string, WeekFiles, int, std::size_t> cases[] = {
      {"http://a/root.b1", WeekFiles::missing, 200, 4},
      {"http://a/none.b1", WeekFiles::delivered, 404, 0},
      {"http://a/../outside.b1", WeekFiles::delivered, 404, 0},
      {"http://a", WeekFiles::delivered, 404, 0},
      {"no address", WeekFiles::delivered, 404, 0},
      {week, WeekFiles::delivered, 200, 4},
      {week, WeekFiles::damaged, 200, 2},
      {week, WeekFiles::missing, 404, 0},
      {week, WeekFiles::withheld, 0, 0}};
  for (const auto& [url, weekFiles, status, bytes] : cases) {
    FolderHttpClient http(disk, world.mainLoop(), "/tree", weekFiles);
    HttpResponse response{0, {}};
    http.get(url, [&](HttpResult result) { response = std::get<HttpResponse>(result); });
    EXPECT_EQ(response.status, 0) << "never before the call returns";
    world.runUntilIdle();
    EXPECT_EQ(response.status, status) << url;
    EXPECT_EQ(response.body.size(), bytes) << url;
  }
}

/// The built program over a small published folder.
class ViewerProgramTest : public testing::Test {
 protected:
  ViewerProgramTest() {
    for (const auto& [url, content] : PublishedSite::sample().files()) {
      const std::filesystem::path path = folder.path() + url.substr(url.find('/', url.find("://") + 3));
      std::filesystem::create_directories(path.parent_path());
      std::ofstream file(path, std::ios::binary);
      file.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    }
  }
  /// The exit code; what the program says goes to `said`.
  int run(const std::string& options) {
    const std::string command = fmt::format("QT_QPA_PLATFORM=offscreen '{}' --folder '{}' {} 2>&1",
                                            TARVEL_VIEWER, folder.path(), options);
    said.clear();
    FILE* output = ::popen(command.c_str(), "r");
    if (!output) return -1;
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) said += static_cast<char>(c);
    const int status = ::pclose(output);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string path(const std::string& name) const { return folder.path() + "/" + name; }

  TempFolder folder;
  std::string said;
};

TEST_F(ViewerProgramTest, WritesThePictureOfTheSizeAskedFor) {
  const std::tuple<const char*, QSize> cases[] = {{"--size 760x613 --scale 2", {1520, 1226}},
                                                  {"--size 300x200 --view day", {300, 200}},
                                                  {"--size 300x200 --view calendar", {300, 200}},
                                                  {"--size 300x200 --view header", {300, 19}}};
  for (const auto& [options, size] : cases) {
    ASSERT_EQ(run(fmt::format("--rink 7 --date 2026-03-03 --today 2026-03-01 {} --png '{}'", options,
                              path("out.png"))),
              0)
        << options << ": " << said;
    EXPECT_EQ(QImage(QString::fromStdString(path("out.png"))).size(), size) << options;
  }
  const std::string week = "--rink 7 --date 2026-03-03 --today 2026-03-01 --size 760x613 --scale 2 ";
  const auto pixel = [&](const std::string& more) {
    EXPECT_EQ(run(week + more + " --png '" + path("out.png") + "'"), 0) << said;
    // Tuesday's session at noon, at 48 + 2 * 100 and, under the header, 12 + 420 / 2.
    return QImage(QString::fromStdString(path("out.png"))).pixelColor(2 * 253, 2 * (19 + 222 + 5)).name();
  };
  EXPECT_EQ(pixel(""), "#1a334d");
  EXPECT_EQ(pixel("--weeks withheld"), "#ffffff");
  EXPECT_EQ(pixel("--weeks missing --appearance dark"), "#1e1f22");
}

TEST_F(ViewerProgramTest, PrintsAndTellsWhatFails) {
  ASSERT_EQ(run("--rink 7 --date 2026-03-03 --paper letter --pdf '" + path("out.pdf") + "'"), 0) << said;
  std::ifstream file(path("out.pdf"), std::ios::binary);
  const std::string pdf((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
  EXPECT_NE(pdf.find("612"), std::string::npos) << "the paper's width in points";
  const std::tuple<const char*, int, const char*> cases[] = {
      {"--date 2026-03-03 --rink 99", 2, "12 Harbor"},
      {"--date 2026-03-03 --rink 7 --venues 9", 2, "3 Studio"},
      {"--date tomorrow", 2, "--date"},
      {"--date 2026-03-03 --png /nonexistent/out.png", 1, "/nonexistent/out.png"},
      {"--date 2026-03-03 --pdf /nonexistent/out.pdf", 1, "/nonexistent/out.pdf"},
      {"--help", 0, "--weeks"}};
  for (const auto& [options, code, text] : cases) {
    EXPECT_EQ(run(options), code) << options;
    EXPECT_NE(said.find(text), std::string::npos) << options << ": " << said;
  }
  std::filesystem::remove(path("rinks.b1"));
  EXPECT_EQ(run("--date 2026-03-03 --png out.png"), 2);
  EXPECT_NE(said.find("no catalogue"), std::string::npos) << said;
}

}  // namespace
}  // namespace tarvel::viewer
