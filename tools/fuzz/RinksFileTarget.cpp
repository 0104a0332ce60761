#include "Checks.h"
#include "RinkRows.h"
#include "Targets.h"
#include "model/PhoneNumber.h"
#include "platform/TimeZone.h"

namespace tarvel::fuzz {

void rinksFile(ByteView input) {
  const auto list = roundTrip(input, decodeRinkList, encodeRinks);
  if (!list) return;
  requireOrder(*list);
  const auto all = decoded(input, [](ByteView file) {
    return decodeRinkListUpdate(file, [](std::int64_t) -> const RinkRecord* { return nullptr; });
  });
  require(all.has_value(), "a list that can be read can be compared");
  require(encodeRinks({all->fileDate, all->rows}) == encodeRinks(*list), "without a row at hand all are new");
  require(all->rinkIDs.size() == list->rinks.size(), "every rink's id is told");
  for (const RinkRecord& row : list->rinks) {
    (void)formattedPhone(row.phone);
    (void)TimeZone::named(row.timeZone);
  }
}

}  // namespace tarvel::fuzz
