#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/NoticesFile.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const NoticesFile& list) {
  DataEncoder out;
  out.putDouble(list.fileDate.seconds);
  putList(out, list.notices, [&](const auto& notice) {
    out.putInt(notice->noticeID);
    out.putUInt32(notice->date);
    out.putString(notice->summary);
    out.putString(notice->detail);
  });
  return out.data();
}

}  // namespace

void noticesFile(ByteView input) {
  const auto list = roundTrip(input, decodeNoticesFile, encode);
  if (!list) return;
  for (const auto& notice : list->notices) {
    (void)shortDateText(notice->date);
    (void)longDateText(notice->date);
  }
}

}  // namespace tarvel::fuzz
