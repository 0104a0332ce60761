#include "platform/qt/MapHandler.h"

#include <fmt/format.h>

#include <QFile>
#include <QStandardPaths>
#include <algorithm>

namespace tarvel {
namespace {

const QByteArray kAssociation = QByteArrayLiteral("x-scheme-handler/geo=");
constexpr int kMapZoom = 17;  // a building and the streets around it

bool namesHandler(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  while (!file.atEnd()) {
    const QByteArray line = file.readLine().trimmed();
    if (line.startsWith(kAssociation) && line.size() > kAssociation.size()) return true;
  }
  return false;
}

}  // namespace

bool hasMapApplication() {
  QStringList lists = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, "mimeapps.list");
  lists += QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, "mimeapps.list");
  lists += QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, "mimeinfo.cache");
  return std::any_of(lists.cbegin(), lists.cend(), namesHandler);
}

std::string geoLink(double latitude, double longitude) {
  return fmt::format("geo:{:.6f},{:.6f}", latitude, longitude);
}

std::string mapWebsiteLink(double latitude, double longitude) {
  return fmt::format("https://www.openstreetmap.org/?mlat={0:.6f}&mlon={1:.6f}#map={2}/{0:.6f}/{1:.6f}",
                     latitude, longitude, kMapZoom);
}

}  // namespace tarvel
