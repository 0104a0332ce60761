#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "platform/Bytes.h"
#include "platform/Instant.h"

namespace tarvel::sim {

inline const std::string kStore = "/u/Tarvel";
inline const std::string kStateFileName = "appState.plist";
inline const std::string kLogFileName = "error-log.b1";

/// A file's place, by which the servers and the store are compared: its path below the store, such as
/// "rinks.b1", "rink-7/main.b1", "rink-7/Photos/3-1.jpg", "logos/7.png". The indexes have one too.
std::string keyOfUrl(std::string_view url);
/// None for a path outside the store.
std::optional<std::string> keyOfPath(std::string_view path);
std::string catalogueServer(bool mirror);
std::string rinkServer(std::int64_t rinkID, int mirror);

bool isIndex(std::string_view key);
bool isImage(std::string_view key);
/// The date at the start of a file with a date of its own.
std::optional<Instant> ownDate(std::string_view key, ByteView content);

enum class Reading {
  good,
  bad,       ///< the decoder refuses it
  stopping,  ///< the program ends rather than read on
};
/// How the program's own decoder takes that file.
Reading readingOf(std::string_view key, ByteView content);

}  // namespace tarvel::sim
