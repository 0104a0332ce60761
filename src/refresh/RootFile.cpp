#include "refresh/RootFile.h"

#include "foundation/DataDecoder.h"
#include "model/FileDate.h"

namespace tarvel {

namespace {

constexpr std::uint64_t kLeastFileBytes = 9;
constexpr std::uint64_t kLeastReleaseBytes = 4;

Release decodeRelease(DataDecoder& decoder) {
  Release release;
  release.date = decoder.getUInt32();
  release.appVersion = decoder.getInt64();
  release.osMinimumVersion = decoder.getInt64();
  release.url = decoder.getString();
  return release;
}

std::vector<Release> decodeReleases(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastReleaseBytes);
  std::vector<Release> releases;
  releases.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) releases.push_back(decodeRelease(decoder));
  return releases;
}

}  // namespace

RootFile decodeRootFile(ByteView file) {
  DataDecoder decoder(file);
  RootFile root;
  root.currentVersion = decoder.getInt64();
  root.minimumVersion = decoder.getInt64();
  decoder.getInt64();  // two reserved values
  decoder.getInt64();
  root.applicationWebsiteURL = decoder.getString();
  const std::int64_t count = decoder.getCount(kLeastFileBytes);
  for (std::int64_t i = 0; i < count; ++i) {
    MasterFileInfo info;
    info.relPath = decoder.getString();
    info.modDate = getFileDate(decoder);
    root.files.push_back(std::move(info));
  }
  if (decoder.bufferIndex() < decoder.byteCount()) {
    root.releases = decodeReleases(decoder);
    decodeReleases(decoder);  // a second table, of no use to this application
  }
  if (decoder.bufferIndex() < decoder.byteCount() && decoder.getBool()) root.beta = decodeRelease(decoder);
  return root;
}

MasterFile decodeMasterFile(ByteView file) {
  DataDecoder decoder(file);
  MasterFile master;
  master.mainFileName = decoder.getString();
  master.mainFileDate = getFileDate(decoder);
  return master;
}

}  // namespace tarvel
