#include "model/LogoStore.h"

#include <fmt/format.h>

#include "model/StoredFile.h"

namespace tarvel {

namespace {

/// Stands in a rink's cached image while the logo is on its way, recognised by identity.
class RequestedLogo : public Image {
 public:
  Size pixelSize() const override { return {}; }
};

const std::shared_ptr<const Image>& requestedLogo() {
  static const std::shared_ptr<const Image> image = std::make_shared<RequestedLogo>();
  return image;
}

std::shared_ptr<const Image>& cacheOf(RinkInfo& rinkInfo, LogoKind kind) {
  return kind == LogoKind::normal ? rinkInfo.cachedLogoImage : rinkInfo.cachedDarkLogoImage;
}

std::optional<Instant> dateOf(const RinkInfo& rinkInfo, LogoKind kind) {
  return kind == LogoKind::normal ? rinkInfo.logoFileDate : rinkInfo.darkLogoFileDate;
}

std::int64_t sizeOf(const RinkInfo& rinkInfo, LogoKind kind) {
  return kind == LogoKind::normal ? rinkInfo.logoFileSize : rinkInfo.darkLogoFileSize;
}

}  // namespace

std::string LogoStore::fileName(std::int64_t rinkID, LogoKind kind) {
  return fmt::format("{}{}.png", rinkID, kind == LogoKind::normal ? "" : "-dark");
}

std::shared_ptr<const Image> LogoStore::image(RinkInfo& rinkInfo, LogoKind kind) {
  if (sizeOf(rinkInfo, kind) == 0) return nullptr;
  std::shared_ptr<const Image>& cached = cacheOf(rinkInfo, kind);
  if (!cached) cached = loadCurrent(rinkInfo, kind);
  if (!cached) {
    cached = requestedLogo();
    refresher_->requestLogo(rinkInfo, kind);
  }
  return cached == requestedLogo() ? nullptr : cached;
}

std::shared_ptr<const Image> LogoStore::loadCurrent(const RinkInfo& rinkInfo, LogoKind kind) {
  const Path path = join(folder_, fileName(rinkInfo.rinkID, kind));
  const std::optional<FileInfo> info = services_.files.info(path);
  if (!info || info->modificationDate != dateOf(rinkInfo, kind) || info->size != sizeOf(rinkInfo, kind))
    return nullptr;
  const Result<Bytes> content = services_.files.read(path);
  return content ? services_.images.decode(*content) : nullptr;
}

void LogoStore::receive(RinkInfo& rinkInfo, LogoKind kind, ByteView body) {
  const std::shared_ptr<const Image> image = services_.images.decode(body);
  if (!image) return;
  cacheOf(rinkInfo, kind) = image;
  storeFile(services_, errorLog_, body, fileName(rinkInfo.rinkID, kind), folder_, dateOf(rinkInfo, kind));
  services_.notifications.postNotification(kRinkLogoChanged, nullptr,
                                           {{std::string(kRinkIDKey), rinkInfo.rinkID}});
}

}  // namespace tarvel
