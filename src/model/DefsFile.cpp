#include "model/DefsFile.h"

#include "foundation/DataDecoder.h"
#include "model/FileDate.h"

namespace tarvel {

namespace {
constexpr std::uint64_t kLeastRowBytes = 33;
}

DefsFile decodeDefsFile(ByteView file) {
  DataDecoder decoder(file);
  DefsFile defs;
  defs.fileDate = getFileDate(decoder);
  const std::int64_t count = decoder.getCount(kLeastRowBytes);
  for (std::int64_t i = 0; i < count; ++i) {
    Color color;
    color.red = decoder.getDouble();
    color.green = decoder.getDouble();
    color.blue = decoder.getDouble();
    color.alpha = decoder.getDouble();
    defs.colors.push_back(color);
    defs.names.push_back(decoder.getString());
  }
  return defs;
}

}  // namespace tarvel
