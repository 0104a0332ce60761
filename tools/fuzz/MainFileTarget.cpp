#include <algorithm>

#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/FileNames.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const MainFile& main) {
  DataEncoder out;
  out.putDouble(main.fileDate.seconds);
  out.putUInt32(main.firstWeek);
  out.putUInt32(main.lastWeek);
  putList(out, main.venues, [&](const VenueRecord& venue) {
    out.putInt(venue.venueID);
    out.putInt8(static_cast<std::int8_t>(venue.venueKind));
    out.putString(venue.name);
    out.putString(venue.note);
    out.putInt(venue.displayOrder);
  });
  putFileRecords(out, main.files);
  out.putString(main.photosFolder);
  out.putString("");
  out.putInt(main.coverPhotoID);
  out.putString(main.coverPhotoTitle);
  out.putString(main.coverPhotoDescription);
  putImageVersions(out, main.coverPhotoVersions);
  return out.data();
}

}  // namespace

void mainFile(ByteView input) {
  const auto main = roundTrip(input, decodeMainFile, encode);
  if (!main) return;
  require(std::is_sorted(main->venues.begin(), main->venues.end(),
                         [](const VenueRecord& a, const VenueRecord& b) { return a.venueID < b.venueID; }),
          "venues ascend by their ids");
  for (const VenueRecord& venue : main->venues)
    require(!defaultVenueName(venue.venueKind).empty(), "each kind of venue has a name");
}

}  // namespace tarvel::fuzz
