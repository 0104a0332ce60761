#pragma once
#include <span>

#include "foundation/DataEncoder.h"
#include "model/MainFile.h"

namespace tarvel::fuzz {

/// The count, and what `put` writes of each.
template <class List, class Put>
void putList(DataEncoder& out, const List& list, Put put) {
  out.putInt(static_cast<std::int64_t>(list.size()));
  for (const auto& each : list) put(each);
}

inline void putFileRecords(DataEncoder& out, std::span<const FileRecord> records) {
  putList(out, records, [&](const FileRecord& record) {
    out.putString(record.name);
    out.putDouble(record.date.seconds);
  });
}

inline void putImageVersions(DataEncoder& out, std::span<const ImageVersion> versions) {
  putList(out, versions, [&](const ImageVersion& version) {
    out.putDouble(version.size.width);
    out.putDouble(version.size.height);
    out.putInt(version.fileSize);
    out.putDouble(version.fileDate.seconds);
  });
}

}  // namespace tarvel::fuzz
