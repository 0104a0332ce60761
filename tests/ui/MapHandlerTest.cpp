#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <limits>

#include "UrlCatcher.h"
#include "platform/qt/QtWorkspace.h"

namespace tarvel {
namespace {

TEST(MapHandler, IsFoundInTheDesktopsListsAndElseTheWebsiteHelps) {
  QTemporaryDir folder;
  QDir().mkpath(folder.filePath("applications"));
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
  test::UrlCatcher catcher;
  for (const char* scheme : {"geo", "https"}) QDesktopServices::setUrlHandler(scheme, &catcher, "catchUrl");
  const char* app = "geo:39.980000,-0.010530";
  const char* web = "https://www.openstreetmap.org/?mlat=39.980000&mlon=-0.010530#map=17/39.980000/-0.010530";
  const struct {
    const char *file, *content, *url;
  } cases[] = {{"mimeapps.list", "[Default Applications]\nx-scheme-handler/geo=maps.desktop\n", app},
               {"mimeinfo.cache", "x-scheme-handler/geo=maps.desktop;", app},
               {"mimeinfo.cache", "x-scheme-handler/geo=\n", web},
               {"mimeinfo.cache", "x-scheme-handler/geometry=a.desktop\n", web}};
  for (const auto& c : cases) {
    QFile list(folder.filePath("applications/") + c.file);
    ASSERT_TRUE(list.open(QIODevice::WriteOnly) && list.write(c.content) > 0);
    list.close();
    EXPECT_TRUE(QtWorkspace().openLocation(39.98, -105.3e-4));
    ASSERT_FALSE(catcher.urls.empty());
    EXPECT_EQ(catcher.urls.back().toString().toStdString(), c.url) << c.content;
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
