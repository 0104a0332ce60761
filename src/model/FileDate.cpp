#include "model/FileDate.h"

#include "foundation/DecodeError.h"

namespace tarvel {

Instant getFileDate(DataDecoder& decoder) {
  constexpr double kEarliest = -static_cast<double>(kReferenceDateSince1970);
  constexpr double kLatest = 8.0e9;
  const double seconds = decoder.getDouble();
  if (!(seconds >= kEarliest && seconds <= kLatest)) throw DecodeError("a file date is out of range");
  return {seconds};
}

}  // namespace tarvel
