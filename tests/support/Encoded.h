#pragma once
#include <type_traits>

#include "foundation/DataEncoder.h"
#include "platform/Instant.h"

namespace tarvel {

/// A `.b1` file of these values, each in the form that belongs to its type: a date is an unsigned number, a
/// moment a real one, a text anything that is none of these. A block of bytes stands as it is, so that files
/// are put together from parts.
template <class... Values>
Bytes encoded(const Values&... values) {
  DataEncoder encoder;
  const auto put = [&encoder]<class Value>(const Value& value) {
    if constexpr (std::is_same_v<Value, bool>) {
      encoder.putBool(value);
    } else if constexpr (std::is_same_v<Value, double>) {
      encoder.putDouble(value);
    } else if constexpr (std::is_same_v<Value, Instant>) {
      encoder.putDouble(value.seconds);
    } else if constexpr (std::is_same_v<Value, std::int8_t>) {
      encoder.putInt8(value);
    } else if constexpr (std::is_same_v<Value, std::int16_t>) {
      encoder.putInt16(value);
    } else if constexpr (std::is_unsigned_v<Value>) {
      encoder.putUInt64(value);
    } else if constexpr (std::is_integral_v<Value>) {
      encoder.putInt(value);
    } else if constexpr (std::is_same_v<Value, Bytes>) {
      encoder.appendData(value);
    } else {
      encoder.putString(value);
    }
  };
  (put(values), ...);
  return encoder.data();
}

/// The count, and what `part` makes of each.
template <class List, class Part>
Bytes encodedList(const List& list, Part part) {
  Bytes bytes = encoded(list.size());
  for (const auto& each : list) {
    const Bytes more = part(each);
    bytes.insert(bytes.end(), more.begin(), more.end());
  }
  return bytes;
}

}  // namespace tarvel
