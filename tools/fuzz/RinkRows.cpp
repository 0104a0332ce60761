#include "RinkRows.h"

#include <algorithm>

#include "Checks.h"
#include "Writing.h"

namespace tarvel::fuzz {

namespace {

void putLogo(DataEncoder& out, const std::optional<Instant>& date, std::int64_t size) {
  out.putBool(date.has_value());
  if (!date) return;
  out.putDouble(date->seconds);
  out.putInt(size);
}

}  // namespace

Bytes encodeRinks(const RinkListFile& list) {
  DataEncoder out;
  out.putDouble(list.fileDate.seconds);
  putList(out, list.rinks, [&](const RinkRecord& row) {
    out.putInt(row.rinkID);
    for (const auto* text : {&row.name, &row.street, &row.city, &row.state, &row.zip}) out.putString(*text);
    out.putUInt64(row.phone);
    out.putDouble(row.latitude);
    out.putDouble(row.longitude);
    for (const auto* text : {&row.timeZone, &row.websiteUrl, &row.serverUrl, &row.dataPath})
      out.putString(*text);
    putLogo(out, row.logoFileDate, row.logoFileSize);
    putLogo(out, row.darkLogoFileDate, row.darkLogoFileSize);
  });
  return out.data();
}

void requireOrder(const RinkListFile& list) {
  require(std::is_sorted(list.rinks.begin(), list.rinks.end(),
                         [](const RinkRecord& a, const RinkRecord& b) { return a.rinkID < b.rinkID; }),
          "rinks ascend by their ids");
}

}  // namespace tarvel::fuzz
