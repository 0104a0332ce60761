#include "foundation/DataDecoder.h"

#include <bit>
#include <cstring>

#include "foundation/DecodeError.h"
#include "platform/FatalError.h"

namespace tarvel {
namespace {

constexpr int kLongest64 = 8;
constexpr int kLongest32 = 4;

std::uint64_t loadLittleEndian(const std::uint8_t* bytes, int count) {
  std::uint64_t bits = 0;
  for (int i = 0; i < count; ++i) bits |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
  return bits;
}

/// The length of the sequence that a lead byte begins, and the bounds of the byte behind it, which shut out
/// overlong forms, surrogates and what lies beyond U+10FFFF. A length of 0 is no lead byte.
struct Utf8Lead {
  std::size_t length;
  std::uint8_t secondLow;
  std::uint8_t secondHigh;
};

Utf8Lead leadOf(std::uint8_t byte) {
  if (byte < 0x80) return {1, 0x80, 0xBF};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte < 0xF4) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

/// The count of the leading bytes that are ASCII, as far as whole words of eight tell. Most texts of a file
/// are nothing else, and a catalogue has millions of bytes of them.
std::size_t asciiWords(ByteView bytes) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t index = 0;
  for (std::uint64_t word = 0; bytes.size() - index >= sizeof word; index += sizeof word) {
    std::memcpy(&word, bytes.data() + index, sizeof word);
    if (word & kHighBits) break;
  }
  return index;
}

}  // namespace

DataDecoder::DataDecoder(ByteView block) : buffer_(block.begin(), block.end()) {}

const std::uint8_t* DataDecoder::take(std::uint64_t count) {
  if (count > remaining()) throw DecodeError("the data ends early");
  const std::uint8_t* bytes = buffer_.data() + index_;
  index_ += count;
  return bytes;
}

std::uint64_t DataDecoder::packed(int count, int longest, std::uint8_t fill) {
  if (count > longest) throw DecodeError("a length byte is too large for its value");
  std::uint64_t bits = loadLittleEndian(take(static_cast<std::uint64_t>(count)), count);
  if (fill != 0 && count < kLongest64) bits |= ~std::uint64_t{0} << (8 * count);
  return bits;
}

std::int64_t DataDecoder::getInt() {
  const int lengthByte = getUInt8();
  const bool negative = lengthByte > 0x7F;  // the length is a signed byte
  const int count = negative ? 0x100 - lengthByte : lengthByte;
  return static_cast<std::int64_t>(packed(count, kLongest64, negative ? 0xFF : 0));
}

std::int64_t DataDecoder::getInt64() {
  return getInt();
}

// Read as unsigned, a length below zero is one above 127 and falls to the same check.
std::uint64_t DataDecoder::getUInt64() {
  return packed(getUInt8(), kLongest64, 0);
}

std::uint32_t DataDecoder::getUInt32() {
  return static_cast<std::uint32_t>(packed(getUInt8(), kLongest32, 0));
}

std::int16_t DataDecoder::getInt16() {
  return static_cast<std::int16_t>(getUInt16());
}

std::uint16_t DataDecoder::getUInt16() {
  return static_cast<std::uint16_t>(loadLittleEndian(take(2), 2));
}

std::int8_t DataDecoder::getInt8() {
  return static_cast<std::int8_t>(getUInt8());
}

std::uint8_t DataDecoder::getUInt8() {
  return *take(1);
}

bool DataDecoder::getBool() {
  return getUInt8() != 0;
}

double DataDecoder::getDouble() {
  return std::bit_cast<double>(loadLittleEndian(take(8), 8));
}

float DataDecoder::getFloat() {
  return std::bit_cast<float>(static_cast<std::uint32_t>(loadLittleEndian(take(4), 4)));
}

std::string DataDecoder::getString() {
  const ByteView bytes = counted();
  if (!isUtf8(bytes)) return {};
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes DataDecoder::getData() {
  const ByteView bytes = counted();
  return {bytes.begin(), bytes.end()};
}

ByteView DataDecoder::counted() {
  const std::int64_t length = getInt();
  if (length <= 0) return {};
  const auto count = static_cast<std::uint64_t>(length);
  return {take(count), count};
}

std::int64_t DataDecoder::getCount(std::uint64_t leastBytesEach) {
  const std::int64_t count = getInt();
  if (count < 0) fatalError("negative count");
  if (leastBytesEach == 0) fatalError("a record takes at least one byte");
  if (static_cast<std::uint64_t>(count) > remaining() / leastBytesEach) {
    throw DecodeError("a count is larger than the data left");
  }
  return count;
}

bool isUtf8(ByteView bytes) {
  std::size_t index = asciiWords(bytes);
  while (index < bytes.size()) {
    const Utf8Lead lead = leadOf(bytes[index]);
    if (lead.length == 0 || lead.length > bytes.size() - index) return false;
    for (std::size_t i = 1; i < lead.length; ++i) {
      const std::uint8_t low = i == 1 ? lead.secondLow : 0x80;
      const std::uint8_t high = i == 1 ? lead.secondHigh : 0xBF;
      if (bytes[index + i] < low || bytes[index + i] > high) return false;
    }
    index += lead.length;
  }
  return true;
}

}  // namespace tarvel
