#include "foundation/DataEncoder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarvel {
namespace {

constexpr std::uint64_t kBlockStep = 1024;
constexpr std::uint64_t kLargestIncrement = 0x80000;

std::uint64_t roundedUp(std::uint64_t size) {
  return size == 0 ? 0 : ((size - 1) & ~(kBlockStep - 1)) + kBlockStep;
}

/// The count of the low bytes that hold the set bits, at least 1.
int significantBytes(std::uint64_t bits) {
  return std::max(1, (static_cast<int>(std::bit_width(bits)) + 7) / 8);
}

/// The value's low bytes in file order, whatever the machine's own order.
void storeLittleEndian(std::uint64_t bits, std::uint8_t* target, int count) {
  for (int i = 0; i < count; ++i) target[i] = static_cast<std::uint8_t>(bits >> (8 * i));
}

}  // namespace

DataEncoder::DataEncoder() : DataEncoder(kBlockStep, {}) {}

DataEncoder::DataEncoder(std::uint64_t allocatedSize, ByteView content)
    : buffer_(std::make_unique_for_overwrite<std::uint8_t[]>(allocatedSize)),
      allocatedSize_(allocatedSize),
      index_(content.size()) {
  std::copy(content.begin(), content.end(), buffer_.get());
}

DataEncoder DataEncoder::withCapacity(std::int64_t capacity) {
  if (capacity <= 0) return {};
  return {roundedUp(static_cast<std::uint64_t>(capacity)), {}};
}

DataEncoder DataEncoder::withData(std::optional<ByteView> block) {
  if (!block) return {};
  return {roundedUp(block->size()), *block};
}

void DataEncoder::putInt(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  // The length's sign carries the value's, so no sign byte is added: below zero, what the bytes leave out is
  // all ones.
  if (value >= 0) {
    putPacked(bits, value == 0 ? 0 : significantBytes(bits));
  } else {
    putPacked(bits, -significantBytes(~bits));
  }
}

void DataEncoder::putInt64(std::int64_t value) {
  putInt(value);
}

void DataEncoder::putUInt64(std::uint64_t value) {
  putPacked(value, value == 0 ? 0 : significantBytes(value));
}

void DataEncoder::putUInt32(std::uint32_t value) {
  putUInt64(value);
}

void DataEncoder::putPacked(std::uint64_t bits, int signedLength) {
  std::uint8_t bytes[9];
  const int length = signedLength < 0 ? -signedLength : signedLength;
  bytes[0] = static_cast<std::uint8_t>(signedLength);
  storeLittleEndian(bits, bytes + 1, length);
  append(bytes, static_cast<std::uint64_t>(length) + 1);
}

void DataEncoder::putInt16(std::int16_t value) {
  putUInt16(static_cast<std::uint16_t>(value));
}

void DataEncoder::putUInt16(std::uint16_t value) {
  std::uint8_t bytes[2];
  storeLittleEndian(value, bytes, 2);
  append(bytes, 2);
}

void DataEncoder::putInt8(std::int8_t value) {
  putUInt8(static_cast<std::uint8_t>(value));
}

void DataEncoder::putUInt8(std::uint8_t value) {
  append(&value, 1);
}

void DataEncoder::putBool(bool value) {
  putUInt8(value ? 1 : 0);
}

void DataEncoder::putDouble(double value) {
  std::uint8_t bytes[8];
  storeLittleEndian(std::bit_cast<std::uint64_t>(value), bytes, 8);
  append(bytes, 8);
}

void DataEncoder::putFloat(float value) {
  std::uint8_t bytes[4];
  storeLittleEndian(std::bit_cast<std::uint32_t>(value), bytes, 4);
  append(bytes, 4);
}

void DataEncoder::putString(std::string_view text) {
  putInt(static_cast<std::int64_t>(text.size()));
  append(text.data(), text.size());
}

void DataEncoder::putData(ByteView block) {
  putInt(static_cast<std::int64_t>(block.size()));
  appendData(block);
}

void DataEncoder::appendData(ByteView block) {
  append(block.data(), block.size());
}

void DataEncoder::expandBuffer(std::uint64_t needed) {
  const std::uint64_t step = std::max(increment_, needed);
  const std::uint64_t newSize = roundedUp(index_ + step);
  auto newBuffer = std::make_unique_for_overwrite<std::uint8_t[]>(newSize);
  std::memcpy(newBuffer.get(), buffer_.get(), allocatedSize_);
  buffer_ = std::move(newBuffer);
  allocatedSize_ = newSize;
  if (increment_ * 2 <= kLargestIncrement) increment_ *= 2;
}

void DataEncoder::room(std::uint64_t needed) {
  if (index_ + needed > allocatedSize_) expandBuffer(needed);
}

void DataEncoder::append(const void* bytes, std::uint64_t count) {
  room(count);
  if (count > 0) std::memcpy(buffer_.get() + index_, bytes, count);
  index_ += count;
}

Bytes DataEncoder::data() const {
  return {buffer_.get(), buffer_.get() + index_};
}

bool DataEncoder::equals(ByteView block) const {
  return std::equal(block.begin(), block.end(), buffer_.get(), buffer_.get() + index_);
}

bool DataEncoder::equals(ByteView block, std::uint64_t location, std::uint64_t length) const {
  const std::uint64_t common = std::min<std::uint64_t>(index_, block.size());
  if (location > common || length > common - location) return false;
  const auto theirs = block.subspan(location, length);
  return std::equal(theirs.begin(), theirs.end(), buffer_.get() + location);
}

}  // namespace tarvel
