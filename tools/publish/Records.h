#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "platform/FileSystem.h"

/// What a folder of descriptions says, as plain records: checked, in the order in which it is published, and
/// with no trace of the form in which it was written down.
namespace tarvel::publish {

/// An image of the descriptions, whose header has been read.
struct ImageFile {
  Path path;
  std::int64_t fileSize = 0;  ///< bytes
  int width = 0;              ///< pixels
  int height = 0;
};

struct SessionDefinition {
  std::string name;
  double red = 0.0;  ///< 0 to 1, as the other three
  double green = 0.0;
  double blue = 0.0;
  double alpha = 1.0;
};

/// A release of the application. Versions are packed.
struct Release {
  PackedDate date = kNoDate;
  std::int64_t appVersion = 0;
  std::int64_t osMinimumVersion = 0;
  std::string url;
};

struct Venue {
  std::int64_t venueID = 0;
  std::int8_t kind = 0;
  std::string name;
  std::string note;
  std::int64_t displayOrder = 0;
};

struct Session {
  std::int8_t kind = 0;
  std::int8_t day = 0;        ///< 0 for Sunday to 6
  std::int16_t time = 0;      ///< minutes after that day's midnight, 1440 and above for the night after
  std::int16_t duration = 0;  ///< minutes
  std::string subtitle;
  std::string note;
};

/// One venue's sessions of one week, by day and time.
struct Week {
  std::int64_t venueID = 0;
  PackedDate weekOf = kNoDate;  ///< a Sunday
  std::vector<Session> sessions;
};

struct Notice {
  std::int64_t noticeID = 0;
  PackedDate date = kNoDate;
  std::string summary;
  std::string detail;
};

struct Photo {
  std::int64_t photoID = 0;
  std::string title;
  std::string description;
  std::vector<ImageFile> versions;  ///< in rising size; version numbers count from 1
};

struct Album {
  std::int64_t albumID = 0;
  std::string title;
  std::string description;
  std::vector<std::int64_t> photoIDs;
};

struct Rink {
  std::int64_t rinkID = 0;
  std::string name;
  std::string street;
  std::string city;
  std::string state;
  std::string zip;
  std::uint64_t phone = 0;  ///< packed; 0 for none
  double latitude = 0.0;    ///< degrees
  double longitude = 0.0;
  std::string timeZone;
  std::string websiteUrl;
  std::string serverUrl;
  std::string dataPath;
  std::string photosFolder;
  std::optional<ImageFile> logo;
  std::optional<ImageFile> darkLogo;
  PackedDate firstWeek = kNoDate;
  PackedDate lastWeek = kNoDate;
  std::vector<Venue> venues;      ///< ascending by venueID
  std::vector<Week> weeks;        ///< ascending by venueID, then weekOf; all from firstWeek to lastWeek
  std::vector<Notice> notices;    ///< in the order to show
  std::vector<Photo> photos;      ///< ascending by photoID
  std::vector<Album> albums;      ///< in the order to show
  std::int64_t coverPhotoID = 0;  ///< one of `photos`; 0 for none
};

struct Catalogue {
  std::int64_t currentVersion = 0;
  std::int64_t minimumVersion = 0;
  std::string applicationWebsiteURL;
  std::optional<std::vector<Release>> releases;  ///< oldest first; none leaves the table out of the file
  std::optional<Release> beta;                   ///< only beside `releases`
  std::vector<SessionDefinition> sessions;       ///< one a session kind, in the kinds' order
  std::vector<Rink> rinks;                       ///< ascending by rinkID
};

}  // namespace tarvel::publish
