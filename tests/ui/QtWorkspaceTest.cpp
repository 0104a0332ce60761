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
  const struct {
    const char* url;
    bool opens;
  } cases[] = {
      {"http://rink.example/", true},
      {"https://rink.example/a?b=c#d", true},
      {"HTTPS://rink.example", true},
      {"file:///etc/passwd", false},
      {"javascript:alert(1)", false},
      {"mailto:a@rink.example", false},
      {"rink.example", false},
      {"", false},
      {"http://", false},
      {"http://ho st/", false},
      {"//rink.example", false},
  };
  for (const auto& c : cases) {
    catcher.urls.clear();
    EXPECT_EQ(workspace.openUrl(c.url), c.opens) << c.url;
    EXPECT_EQ(catcher.urls.size(), c.opens ? 1u : 0u) << c.url;
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
