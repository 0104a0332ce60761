#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <limits>

#include "UrlCatcher.h"
#include "platform/qt/QtWorkspace.h"
#include "platform/qt/SleepWatch.h"

namespace tarvel {
namespace {

TEST(QtWorkspace, OpensWebAddressesAlone) {
  test::UrlCatcher catcher;
  for (const char* scheme : {"http", "https", "file", "javascript", "mailto"})
    QDesktopServices::setUrlHandler(scheme, &catcher, "catchUrl");
  QtWorkspace workspace;
  const auto opens = [&](const char* url) {
    catcher.urls.clear();
    const bool opened = workspace.openUrl(url);
    EXPECT_EQ(catcher.urls.size(), opened ? 1u : 0u) << url;
    return opened;
  };
  for (const char* url : {"http://rink.example/", "https://rink.example/a?b=c#d", "HTTPS://rink.example"})
    EXPECT_TRUE(opens(url)) << url;
  for (const char* url : {"file:///etc/passwd", "javascript:alert(1)", "mailto:a@rink.example",
                          "rink.example", "", "http://", "http://ho st/", "//rink.example"}) {
    EXPECT_FALSE(opens(url)) << url;
  }
  for (const char* scheme : {"http", "https", "file", "javascript", "mailto"})
    QDesktopServices::unsetUrlHandler(scheme);
}

TEST(SleepWatch, TellsOfEachWakeUntilRemoved) {
  SleepWatch watch;
  std::vector<std::string> log;
  int second = 0;
  int first = 0;
  first = watch.add([&] {
    log.push_back("first");
    watch.remove(first);
    watch.remove(second);
    watch.add([&] { log.push_back("later"); });
  });
  second = watch.add([&] { log.push_back("second"); });
  watch.prepareForSleep(true);
  EXPECT_TRUE(log.empty());
  watch.prepareForSleep(false);
  EXPECT_EQ(log, (std::vector<std::string>{"first"}));
  watch.prepareForSleep(false);
  EXPECT_EQ(log, (std::vector<std::string>{"first", "later"}));
}

TEST(QtWorkspace, ASubscriptionMayOutliveIt) {
  auto workspace = std::make_unique<QtWorkspace>();
  auto subscription = workspace->onWake([] {});
  workspace.reset();
  subscription.reset();
}

TEST(MapHandler, IsFoundInTheDesktopsListsAndElseTheWebsiteHelps) {
  QTemporaryDir folder;
  QDir().mkpath(folder.filePath("applications"));
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
  test::UrlCatcher catcher;
  for (const char* scheme : {"geo", "https"}) QDesktopServices::setUrlHandler(scheme, &catcher, "catchUrl");
  const char* app = "geo:39.980000,-0.010530";
  const char* web = "https://www.openstreetmap.org/?mlat=39.980000&mlon=-0.010530#map=17/39.980000/-0.010530";
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"mimeapps.list", "[Default Applications]\nx-scheme-handler/geo=maps.desktop\n", app},
      {"mimeinfo.cache", "x-scheme-handler/geo=maps.desktop;", app},
      {"mimeinfo.cache", "x-scheme-handler/geo=\n", web},
      {"mimeinfo.cache", "x-scheme-handler/geometry=a.desktop\n", web}};
  for (const auto& [file, content, url] : cases) {
    QFile list(folder.filePath("applications/") + file);
    ASSERT_TRUE(list.open(QIODevice::WriteOnly) && list.write(content) > 0);
    list.close();
    EXPECT_TRUE(QtWorkspace().openLocation(39.98, -105.3e-4));
    ASSERT_FALSE(catcher.urls.empty());
    EXPECT_EQ(catcher.urls.back().toString().toStdString(), url) << content;
    list.remove();
  }
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const auto& [latitude, longitude] : {std::pair{90.1, 0.0}, {0.0, -180.1}, {nan, 1.0}, {1.0, nan}})
    EXPECT_FALSE(QtWorkspace().openLocation(latitude, longitude)) << "off the globe";
  EXPECT_EQ(catcher.urls.size(), std::size(cases));
  for (const char* scheme : {"geo", "https"}) QDesktopServices::unsetUrlHandler(scheme);
  before.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
}

}  // namespace
}  // namespace tarvel
