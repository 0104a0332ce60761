#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/Bytes.h"

namespace tarvel {

/// Writes the primitive values of a `.b1` file one behind the other, little-endian, unaligned, with no tags
/// (docs/format.md tells each form). A value of an operation's own; not shared between threads.
class DataEncoder {
 public:
  /// 1024 bytes of room.
  DataEncoder();
  /// The room given, rounded up to a multiple of 1024; 1024 for 0 or less.
  static DataEncoder withCapacity(std::int64_t capacity);
  /// Begins with a copy of the block, and writes go on behind it; none gives an empty encoder.
  static DataEncoder withData(std::optional<ByteView> block);

  /// A packed signed integer: one byte of signed length and the value's low bytes.
  void putInt(std::int64_t value);
  void putInt64(std::int64_t value);  ///< the same operation under its other name
  /// A packed unsigned integer; below 2^63 the same bytes as the signed form.
  void putUInt64(std::uint64_t value);
  void putUInt32(std::uint32_t value);
  void putInt16(std::int16_t value);
  void putUInt16(std::uint16_t value);
  void putInt8(std::int8_t value);
  void putUInt8(std::uint8_t value);
  void putBool(bool value);
  void putDouble(double value);
  void putFloat(float value);
  /// The count of the UTF-8 bytes as a packed integer, and the bytes.
  void putString(std::string_view text);
  /// The count as a packed integer, and the bytes.
  void putData(ByteView block);
  /// The bytes alone.
  void appendData(ByteView block);

  /// Makes room for at least `needed` more bytes: the block grows by `needed` or `increment`, whichever is
  /// more, and to a multiple of 1024; `increment` doubles up to 524,288.
  void expandBuffer(std::uint64_t needed);

  /// A new block of what has been written; the encoder stays usable.
  Bytes data() const;
  std::uint64_t byteCount() const { return index_; }
  bool equals(ByteView block) const;
  /// True if the range fits both and the bytes of it are the same in both.
  bool equals(ByteView block, std::uint64_t location, std::uint64_t length) const;

  std::uint64_t allocatedSize() const { return allocatedSize_; }
  std::uint64_t increment() const { return increment_; }

 private:
  DataEncoder(std::uint64_t allocatedSize, ByteView content);
  void room(std::uint64_t needed);
  void append(const void* bytes, std::uint64_t count);
  void putPacked(std::uint64_t bits, int signedLength);

  std::unique_ptr<std::uint8_t[]> buffer_;
  std::uint64_t allocatedSize_ = 0;
  std::uint64_t index_ = 0;
  std::uint64_t increment_ = 1024;
};

}  // namespace tarvel
