#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "model/Photo.h"
#include "model/VenueKind.h"

namespace tarvel {

struct VenueRecord {
  std::int64_t venueID = 0;
  VenueKind venueKind = VenueKind::other;
  std::string name;
  std::string note;
  std::int64_t displayOrder = 0;
};

/// A promise: the file of that name has that date.
struct FileRecord {
  std::string name;
  Instant date;
};

/// Reads a count and that many promises.
std::vector<FileRecord> decodeFileRecords(DataDecoder& decoder);

/// The content of a rink's "main.b1".
struct MainFile {
  Instant fileDate;
  PackedDate firstWeek = kNoDate;
  PackedDate lastWeek = kNoDate;
  std::vector<VenueRecord> venues;  ///< ascending by venueID
  std::vector<FileRecord> files;
  std::string photosFolder;
  std::int64_t coverPhotoID = 0;
  std::string coverPhotoTitle;
  std::string coverPhotoDescription;
  std::vector<ImageVersion> coverPhotoVersions;
};

/// Throws `DecodeError`; a negative count stops the program.
MainFile decodeMainFile(ByteView file);

}  // namespace tarvel
