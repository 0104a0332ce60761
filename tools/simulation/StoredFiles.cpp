#include "simulation/StoredFiles.h"

#include <fmt/format.h>

#include "foundation/DataDecoder.h"
#include "foundation/DecodeError.h"
#include "model/DefsFile.h"
#include "model/FileNames.h"
#include "model/MainFile.h"
#include "model/NoticesFile.h"
#include "model/PhotoCollectionFile.h"
#include "model/RinkRecord.h"
#include "model/ScheduleFiles.h"
#include "platform/FileSystem.h"
#include "refresh/RootFile.h"
#include "simulation/ProgramStopped.h"
#include "simulation/ports/FakeImageDecoder.h"

namespace tarvel::sim {

namespace {

constexpr std::string_view kScheme = "http://";

std::string_view nameOf(std::string_view key) {
  return key.substr(key.rfind('/') + 1);
}

void decode(std::string_view key, ByteView content) {
  const std::string_view name = nameOf(key);
  if (isImage(key)) {
    if (!FakeImageDecoder().decode(content)) throw DecodeError("no picture");
  } else if (key == "root.b1") {
    decodeRootFile(content);
  } else if (key == "defs.b1") {
    decodeDefsFile(content);
  } else if (key == "rinks.b1") {
    decodeRinkList(content);
  } else if (name == "master.b1") {
    decodeMasterFile(content);
  } else if (name == "main.b1") {
    decodeMainFile(content);
  } else if (name == "notices.b1") {
    decodeNoticesFile(content);
  } else if (name == "photoCollection.b1") {
    decodePhotoCollectionFile(content);
  } else if (parseSchedulesFileName(name)) {
    decodeSchedulesFile(content);
  } else if (parseWeekName(withoutExtension(name))) {
    decodeWeekFile(content);
  }
}

}  // namespace

std::string catalogueServer(bool mirror) {
  return mirror ? "http://catalogue-mirror.test" : "http://catalogue.test";
}

std::string rinkServer(std::int64_t rinkID, int mirror) {
  return fmt::format("http://r{}.{}.test", rinkID, mirror);
}

std::string keyOfUrl(std::string_view url) {
  const std::size_t slash = url.find('/', kScheme.size());
  if (!url.starts_with(kScheme) || slash == std::string_view::npos) return {};
  const std::string_view host = url.substr(kScheme.size(), slash - kScheme.size());
  const std::string_view path = url.substr(slash + 1);
  if (host.starts_with("catalogue")) return std::string(path);
  const std::size_t part = path.find('/');
  if (!host.starts_with("r") || part == std::string_view::npos) return {};
  const std::string_view rinkID = host.substr(1, host.find('.') - 1);
  return fmt::format("rink-{}/{}{}", rinkID, path.starts_with("p/") ? "Photos/" : "", path.substr(part + 1));
}

std::optional<std::string> keyOfPath(std::string_view path) {
  if (path.size() <= kStore.size() + 1 || !path.starts_with(kStore) || path[kStore.size()] != '/')
    return std::nullopt;
  return std::string(path.substr(kStore.size() + 1));
}

bool isIndex(std::string_view key) {
  return key == "root.b1" || key.ends_with("/master.b1");
}

bool isImage(std::string_view key) {
  return key.ends_with(".jpg") || key.ends_with(".png");
}

std::optional<Instant> ownDate(std::string_view key, ByteView content) {
  if (isImage(key) || isIndex(key) || content.size() < sizeof(double)) return std::nullopt;
  return Instant{DataDecoder(content.first(sizeof(double))).getDouble()};
}

Reading readingOf(std::string_view key, ByteView content) {
  const StopCatcher catcher;
  try {
    decode(key, content);
    return Reading::good;
  } catch (const DecodeError&) {
    return Reading::bad;
  } catch (const ProgramStopped&) {
    return Reading::stopping;
  }
}

}  // namespace tarvel::sim
