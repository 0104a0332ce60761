#pragma once
#include "model/Notice.h"
#include "platform/Bytes.h"
#include "platform/Instant.h"

namespace tarvel {

/// A rink's notices as its server lists them.
struct NoticesFile {
  Instant fileDate;
  NoticeList notices;  ///< in the order to show
};

/// Decodes "notices.b1". Throws `DecodeError`; a negative count stops the program.
NoticesFile decodeNoticesFile(ByteView file);

}  // namespace tarvel
