#pragma once
#include <memory>
#include <string>

#include "foundation/MessageLog.h"
#include "foundation/Services.h"
#include "model/Refreshers.h"
#include "model/RinkInfo.h"

namespace tarvel {

/// The rinks' logos: files in the folder "logos", `<rinkID>.png` and `<rinkID>-dark.png`, current when date
/// and size are those of the catalogue. Owned by `DataModel`; main thread.
class LogoStore {
 public:
  LogoStore(const Services& services, MessageLog& errorLog, Path folder)
      : services_(services), errorLog_(errorLog), folder_(std::move(folder)) {}

  void setRefresher(MasterRefresher& refresher) { refresher_ = &refresher; }

  /// See `RinkInfo::logoImage`.
  std::shared_ptr<const Image> image(RinkInfo& rinkInfo, LogoKind kind);
  /// Takes over a downloaded logo. What is no picture is dropped, and isn't asked for again in this run.
  void receive(RinkInfo& rinkInfo, LogoKind kind, ByteView body);

  static std::string fileName(std::int64_t rinkID, LogoKind kind);

 private:
  std::shared_ptr<const Image> loadCurrent(const RinkInfo& rinkInfo, LogoKind kind);

  Services services_;
  MessageLog& errorLog_;
  Path folder_;
  MasterRefresher* refresher_ = nullptr;
};

}  // namespace tarvel
