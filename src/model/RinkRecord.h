#pragma once
#include <cstdint>
#include <functional>
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

/// A catalogue with no more of its rows than has to be looked at: the rows of a large one, held all at once,
/// take tens of megabytes, and hardly any differ from those at hand.
struct RinkListUpdate {
  RinkListUpdate() = default;
  /// All rows of a list.
  RinkListUpdate(RinkListFile list);

  Instant fileDate;
  std::vector<std::int64_t> rinkIDs;  ///< of the whole catalogue, ascending
  std::vector<RinkRecord> rows;       ///< ascending; every one that isn't at hand just so
};

/// Decodes "rinks.b1". Throws `DecodeError`; a negative count stops the program.
RinkListFile decodeRinkList(ByteView file);
/// The same, leaving out the rows that equal the one at hand. `atHand` gives the row of an id, or null; it is
/// asked in ascending order.
RinkListUpdate decodeRinkListUpdate(ByteView file,
                                    const std::function<const RinkRecord*(std::int64_t rinkID)>& atHand);
/// Decodes "rinks2.json", an older local form of the catalogue; none if it is damaged or lacks a key.
std::optional<RinkListFile> decodeRinkListJson(ByteView file);

}  // namespace tarvel
