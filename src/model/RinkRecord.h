#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Bytes.h"
#include "platform/Instant.h"

namespace tarvel {

/// One row of the catalogue: a rink's address card, with where its data lies.
struct RinkRecord {
  std::int64_t rinkID = 0;
  std::string name;
  std::string street;
  std::string city;
  std::string state;
  std::string zip;
  std::uint64_t phone = 0;  ///< packed, see PhoneNumber.h
  double latitude = 0.0;    ///< degrees
  double longitude = 0.0;   ///< degrees
  std::string timeZone;     ///< zone identifier
  std::string websiteUrl;
  std::string serverUrl;  ///< base URL of the rink's data
  std::string dataPath;   ///< path of the rink's data under it
  std::optional<Instant> logoFileDate;
  std::int64_t logoFileSize = 0;  ///< bytes; 0 for no logo
  std::optional<Instant> darkLogoFileDate;
  std::int64_t darkLogoFileSize = 0;
  friend bool operator==(const RinkRecord&, const RinkRecord&) = default;
};

/// A catalogue file's content, rows ascending by `rinkID`.
struct RinkListFile {
  Instant fileDate;
  std::vector<RinkRecord> rinks;
};

/// Decodes "rinks.b1". Throws `DecodeError`; a negative count stops the program.
RinkListFile decodeRinkList(ByteView file);
/// Decodes "rinks2.json", an older local form of the catalogue; none if it is damaged or lacks a key.
std::optional<RinkListFile> decodeRinkListJson(ByteView file);

}  // namespace tarvel
