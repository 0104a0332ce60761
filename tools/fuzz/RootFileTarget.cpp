#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "refresh/UpdateDecision.h"

namespace tarvel::fuzz {

namespace {

void putRelease(DataEncoder& out, const Release& release) {
  out.putUInt32(release.date);
  out.putInt64(release.appVersion);
  out.putInt64(release.osMinimumVersion);
  out.putString(release.url);
}

Bytes encode(const RootFile& root) {
  DataEncoder out;
  out.putInt64(root.currentVersion);
  out.putInt64(root.minimumVersion);
  out.putInt64(0);
  out.putInt64(0);
  out.putString(root.applicationWebsiteURL);
  putList(out, root.files, [&](const MasterFileInfo& file) {
    out.putString(file.relPath);
    out.putDouble(file.modDate.seconds);
  });
  putList(out, root.releases, [&](const Release& release) { putRelease(out, release); });
  out.putInt(0);
  out.putBool(root.beta.has_value());
  if (root.beta) putRelease(out, *root.beta);
  return out.data();
}

}  // namespace

void rootFile(ByteView input) {
  const auto root = roundTrip(input, decodeRootFile, encode);
  if (!root) return;
  UpdateFacts facts;
  facts.runningVersion = packedVersion(6, 1, 0);
  facts.systemVersion = packedVersion(6, 1, 90);
  facts.today = packedDate(2026, 3, 1);
  for (const bool manual : {false, true}) {
    facts.isManualRefresh = facts.isCheckForAppUpdate = manual;
    const UpdateDecision decision = decideUpdate(*root, facts);
    require(!manual || decision.alert, "who asks for an update gets an answer");
  }
}

}  // namespace tarvel::fuzz
