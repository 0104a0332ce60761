#pragma once
#include <cstdint>
#include <string>

#include "platform/Bytes.h"

namespace tarvel {

/// Reads the values of a `.b1` file in the order in which a `DataEncoder` wrote them. Each read is checked
/// against the end: input that ends early, or a length byte too large for its value, throws `DecodeError` and
/// reads nothing outside the block. A value of one reading function; not shared between threads.
class DataDecoder {
 public:
  /// Takes a private copy of the block.
  explicit DataDecoder(ByteView block);

  std::int64_t getInt();
  std::int64_t getInt64();  ///< the same operation under its other name
  std::uint64_t getUInt64();
  std::uint32_t getUInt32();
  std::int16_t getInt16();
  std::uint16_t getUInt16();
  std::int8_t getInt8();
  std::uint8_t getUInt8();
  bool getBool();  ///< true for any byte but 0
  double getDouble();
  float getFloat();
  /// A length of 0 or less gives the empty text, and so do bytes that are no UTF-8 (which are passed over all
  /// the same).
  std::string getString();
  /// A length of 0 or less gives an empty block.
  Bytes getData();

  /// Reads the count of records that follow. A negative count stops the program: no server may publish one. A
  /// count for which the rest of the input can't suffice, with `leastBytesEach` bytes a record (1 or more),
  /// throws `DecodeError`, so that the caller may reserve the room at once.
  std::int64_t getCount(std::uint64_t leastBytesEach);

  std::uint64_t byteCount() const { return buffer_.size(); }
  std::uint64_t bufferIndex() const { return index_; }
  std::uint64_t remaining() const { return buffer_.size() - index_; }
  /// Back to the first value.
  void reset() { index_ = 0; }

 private:
  const std::uint8_t* take(std::uint64_t count);
  ByteView counted();  ///< the bytes behind a length, within the buffer
  std::uint64_t packed(int count, int longest, std::uint8_t fill);

  Bytes buffer_;
  std::uint64_t index_ = 0;
};

/// True if the bytes are well-formed UTF-8.
bool isUtf8(ByteView bytes);

}  // namespace tarvel
