#include "model/NoticesFile.h"

#include <utility>

#include "foundation/DataDecoder.h"
#include "model/FileDate.h"

namespace tarvel {

namespace {
constexpr std::uint64_t kLeastNoticeBytes = 4;
}

NoticesFile decodeNoticesFile(ByteView file) {
  DataDecoder decoder(file);
  NoticesFile list;
  list.fileDate = getFileDate(decoder);
  const std::int64_t count = decoder.getCount(kLeastNoticeBytes);
  list.notices.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    auto notice = std::make_shared<Notice>();
    notice->noticeID = decoder.getInt();
    notice->date = decoder.getUInt32();
    notice->summary = decoder.getString();
    notice->detail = decoder.getString();
    list.notices.push_back(std::move(notice));
  }
  return list;
}

}  // namespace tarvel
