#include "platform/qt/QtWorkspace.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QUrl>
#include <vector>

#include "UrlCatcher.h"
#include "platform/qt/SleepWatch.h"

namespace tarvel {
namespace {

TEST(QtWorkspace, OpensWebAddressesAlone) {
  test::UrlCatcher catcher;
  for (const char* scheme : {"http", "https", "file", "javascript", "mailto"}) {
    QDesktopServices::setUrlHandler(scheme, &catcher, "catchUrl");
  }
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

}  // namespace
}  // namespace tarvel
