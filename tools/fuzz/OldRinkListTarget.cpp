#include <nlohmann/json.hpp>

#include "Checks.h"
#include "RinkRows.h"
#include "Targets.h"
#include "model/PhoneNumber.h"
#include "platform/Instant.h"

namespace tarvel::fuzz {

namespace {

using Json = nlohmann::json;

Json jsonOf(const RinkRecord& row) {
  return {{"rinkID", row.rinkID},
          {"name", row.name},
          {"street", row.street},
          {"city", row.city},
          {"state", row.state},
          {"zip", row.zip},
          {"phone", formattedPhone(row.phone)},
          {"latitude", row.latitude},
          {"longitude", row.longitude},
          {"timeZone", row.timeZone},
          {"websiteUrl", row.websiteUrl},
          {"serverUrl", row.serverUrl},
          {"dataPath", row.dataPath},
          {"logoFileDate", row.logoFileDate->seconds},
          {"logoFileSize", row.logoFileSize},
          {"darkLogoFileDate", row.darkLogoFileDate->seconds},
          {"darkLogoFileSize", row.darkLogoFileSize}};
}

}  // namespace

void oldRinkList(ByteView input) {
  const auto list = decoded(input, decodeRinkListJson);
  if (!*list) return;
  requireOrder(**list);
  Json json{{"fileDate", (*list)->fileDate.seconds}, {"rinks", Json::array()}};
  for (const RinkRecord& row : (*list)->rinks) {
    json["rinks"].push_back(jsonOf(row));
    (void)fileTimeOf(*row.logoFileDate);
  }
  const std::string text = json.dump();
  const auto again = decodeRinkListJson({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  require(again.has_value(), "what was written can be read");
  require(encodeRinks(*again) == encodeRinks(**list), "what was written is read as it was");
}

}  // namespace tarvel::fuzz
