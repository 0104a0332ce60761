#include "model/MainFile.h"

#include <algorithm>

#include "model/FileDate.h"

namespace tarvel {

namespace {

constexpr std::uint64_t kLeastVenueBytes = 5;
constexpr std::uint64_t kLeastFileRecordBytes = 9;

std::vector<VenueRecord> decodeVenues(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastVenueBytes);
  std::vector<VenueRecord> venues;
  venues.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    VenueRecord venue;
    venue.venueID = decoder.getInt();
    venue.venueKind = venueKindOf(decoder.getInt8());
    venue.name = decoder.getString();
    venue.note = decoder.getString();
    venue.displayOrder = decoder.getInt();
    venues.push_back(std::move(venue));
  }
  // The merge walks both lists in ascending order.
  std::stable_sort(venues.begin(), venues.end(),
                   [](const VenueRecord& a, const VenueRecord& b) { return a.venueID < b.venueID; });
  return venues;
}

}  // namespace

std::vector<FileRecord> decodeFileRecords(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastFileRecordBytes);
  std::vector<FileRecord> files;
  files.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    FileRecord file;
    file.name = decoder.getString();
    file.date = getFileDate(decoder);
    files.push_back(std::move(file));
  }
  return files;
}

MainFile decodeMainFile(ByteView file) {
  DataDecoder decoder(file);
  MainFile main;
  main.fileDate = getFileDate(decoder);
  main.firstWeek = decoder.getUInt32();
  main.lastWeek = decoder.getUInt32();
  main.venues = decodeVenues(decoder);
  main.files = decodeFileRecords(decoder);
  main.photosFolder = decoder.getString();
  decoder.getString();  // a text that servers write and no reader needs
  main.coverPhotoID = decoder.getInt();
  main.coverPhotoTitle = decoder.getString();
  main.coverPhotoDescription = decoder.getString();
  main.coverPhotoVersions = decodeImageVersions(decoder);
  return main;
}

}  // namespace tarvel
