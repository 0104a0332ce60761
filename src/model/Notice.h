#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "foundation/InstanceCounter.h"

namespace tarvel {

/// A short announcement of a rink: a closure, a change. It never changes; a newer version of it is another
/// object of the same id.
class Notice : Counted<Notice> {
 public:
  using Counted<Notice>::liveCount;

  std::int64_t noticeID = 0;  ///< unique in the rink, and for ever the same notice: dismissal goes by it
  PackedDate date = kNoDate;  ///< of its posting
  std::string summary;        ///< one line; may be empty
  std::string detail;         ///< the whole of it; may be empty
};

using NoticeList = std::vector<std::shared_ptr<const Notice>>;

}  // namespace tarvel
