#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>

#include "foundation/DataDecoder.h"
#include "foundation/DecodeError.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

ByteView bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

Bytes sample() {
  return encoded(-70000, ~0ULL, std::int16_t{-300}, true, -0.0, "\u00DCbung", Bytes{1, 3, 1, 2, 3});
}

void readSample(DataDecoder& decoder) {
  EXPECT_EQ(decoder.getInt(), -70000);
  EXPECT_EQ(decoder.getUInt64(), ~0ULL);
  EXPECT_EQ(decoder.getInt16(), -300);
  EXPECT_TRUE(decoder.getBool());
  EXPECT_TRUE(std::signbit(decoder.getDouble()));
  EXPECT_EQ(decoder.getString(), "\u00DCbung");
  EXPECT_EQ(decoder.getData(), (Bytes{1, 2, 3}));
}

TEST(DataDecoder, ReadsAgainAfterResetAndFindsEveryCut) {
  const Bytes bytes = sample();
  DataDecoder decoder(bytes);
  readSample(decoder);
  EXPECT_EQ(decoder.remaining(), 0U);
  decoder.reset();
  readSample(decoder);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    DataDecoder cut(ByteView(bytes).first(length));
    EXPECT_THROW(readSample(cut), DecodeError) << length;
  }
}

TEST(DataDecoder, EveryLengthByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const int length = byte < 128 ? byte : byte - 256;  // a signed byte
    Bytes bytes(10, 0x81);
    bytes[0] = static_cast<std::uint8_t>(byte);
    const auto consumes = [&](auto read, bool allowed) {
      DataDecoder decoder(bytes);
      if (!allowed) {
        EXPECT_THROW(read(decoder), DecodeError) << length;
        return;
      }
      read(decoder);
      EXPECT_EQ(decoder.bufferIndex(), 1U + static_cast<std::uint64_t>(std::abs(length)));
    };
    consumes([](DataDecoder& d) { return d.getInt(); }, std::abs(length) <= 8);
    consumes([](DataDecoder& d) { return d.getUInt64(); }, length >= 0 && length <= 8);
    consumes([](DataDecoder& d) { return d.getUInt32(); }, length >= 0 && length <= 4);
  }
}

TEST(DataDecoder, StringsAndBlocksByTheirLength) {
  // The bytes, their text and the index after the read: a negative length, bytes that are no UTF-8, and a
  // NUL.
  const std::tuple<Bytes, std::string, std::uint64_t> cases[] = {
      {{0x00, 'x'}, "", 1},
      {{0xFF, 0xFE, 'x'}, "", 2},
      {{0x01, 0x02, 'o', 0xFF, 'x'}, "", 4},
      {{0x01, 0x03, 'a', 0x00, 'b'}, {"a\0b", 3}, 5}};
  for (const auto& [bytes, text, index] : cases) {
    DataDecoder decoder(bytes);
    EXPECT_EQ(decoder.getString(), text);
    EXPECT_EQ(decoder.bufferIndex(), index);
    decoder.reset();
    decoder.getData();
    EXPECT_EQ(decoder.bufferIndex(), index);
  }
  const Bytes longest{0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'x'};
  EXPECT_THROW(DataDecoder(longest).getString(), DecodeError);
  EXPECT_THROW(DataDecoder(longest).getData(), DecodeError);
}

TEST(DataDecoder, CountsAreHeldAgainstWhatIsLeft) {
  const std::tuple<std::int64_t, std::uint64_t, std::size_t, bool> cases[] = {
      {0, 9, 0, true}, {1, 1, 0, false}, {3, 9, 27, true}, {3, 9, 26, false}, {INT64_MAX, 16, 100, false}};
  for (const auto& [count, leastBytesEach, left, allowed] : cases) {
    DataDecoder decoder(encoded(count, Bytes(left)));
    if (allowed)
      EXPECT_EQ(decoder.getCount(leastBytesEach), count);
    else
      EXPECT_THROW(decoder.getCount(leastBytesEach), DecodeError) << count << " x " << leastBytesEach;
  }
  const Bytes minusOne{0xFF, 0xFF};
  EXPECT_DEATH(DataDecoder(minusOne).getCount(1), "Fatal error");
}

TEST(Utf8, WellFormed) {
  for (const char* text : {"", "a\x7F", "\xC2\x80\xDF\xBF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80",
                           "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(isUtf8(bytesOf(text))) << text;
  // Stray and overlong forms, a surrogate, beyond the last code point, and cut short.
  for (const char* text : {"\x80", "\xC0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
                           "\xF4\x90\x80\x80", "a\xC3", "\xF0\x90\x80x"})
    EXPECT_FALSE(isUtf8(bytesOf(text))) << text;
  for (std::size_t ascii = 0; ascii < 20; ++ascii) {
    EXPECT_FALSE(isUtf8(bytesOf(std::string(ascii, 'a') + "\x80" + std::string(20, 'a')))) << ascii;
    EXPECT_TRUE(isUtf8(bytesOf(std::string(ascii, 'a') + "\xC3\xA9" + std::string(20, 'a')))) << ascii;
  }
}

std::string hex(const Bytes& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
  return text;
}

TEST(DataEncoder, PackedIntegers) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "00"},          {1, "01 01"},
      {128, "01 80"},     {256, "02 00 01"},
      {-1, "FF FF"},      {-128, "FF 80"},
      {-129, "FF 7F"},    {-256, "FF 00"},
      {-257, "FE FF FE"}, {INT64_MIN, "F8 00 00 00 00 00 00 00 80"}};
  for (const auto& [value, form] : cases) {
    DataEncoder encoder;
    encoder.putInt(value);
    EXPECT_EQ(hex(encoder.data()), form) << value;
    EXPECT_EQ(DataDecoder(encoder.data()).getInt64(), value);
  }
  const std::pair<std::uint64_t, const char*> unsignedCases[] = {
      {0, "00"}, {200, "01 C8"}, {0xFFFFFFFF, "04 FF FF FF FF"}, {1ULL << 63, "08 00 00 00 00 00 00 00 80"}};
  for (const auto& [value, form] : unsignedCases) {
    DataEncoder encoder;
    value > 0xFFFFFFFF ? encoder.putUInt64(value) : encoder.putUInt32(static_cast<std::uint32_t>(value));
    EXPECT_EQ(hex(encoder.data()), form);
    EXPECT_EQ(DataDecoder(encoder.data()).getUInt64(), value);
  }
}

TEST(DataEncoder, FixedForms) {
  const Bytes block{0xAA, 0xBB};
  DataEncoder encoder;
  encoder.putBool(true);
  encoder.putBool(false);
  encoder.putInt16(-2);
  encoder.putUInt16(0xABCD);
  encoder.putInt8(-3);
  encoder.putUInt8(0xFD);
  encoder.putDouble(-1.5);
  encoder.putFloat(0.5F);
  encoder.putString("");
  encoder.putString("h\u00E9");
  encoder.putData(block);
  encoder.appendData(block);
  EXPECT_EQ(hex(encoder.data()),
            "01 00 FE FF CD AB FD FD 00 00 00 00 00 00 F8 BF 00 00 00 3F "
            "00 01 03 68 C3 A9 01 02 AA BB AA BB");
  EXPECT_TRUE(encoder.equals(encoder.data()));
  EXPECT_FALSE(encoder.equals(block));
  DataDecoder floats(Bytes{0, 0, 0, 0x3F, 0, 0, 0xC0});
  EXPECT_EQ(floats.getFloat(), 0.5F);
  EXPECT_THROW(floats.getFloat(), DecodeError);
}

TEST(DataEncoder, FirstAllocation) {
  const std::pair<std::int64_t, std::uint64_t> capacities[] = {{INT64_MIN, 1024}, {0, 1024}, {1025, 2048}};
  for (const auto& [capacity, size] : capacities)
    EXPECT_EQ(DataEncoder::withCapacity(capacity).allocatedSize(), size) << capacity;
  EXPECT_EQ(DataEncoder::withData(std::nullopt).allocatedSize(), 1024U);
  for (const auto& [length, size] : {std::pair{0U, 0U}, {1024U, 1024U}, {1025U, 2048U}}) {
    Bytes block(length, 0x11);
    DataEncoder encoder = DataEncoder::withData(block);
    EXPECT_EQ(encoder.allocatedSize(), size);
    encoder.putInt8(0x22);
    block.push_back(0x22);
    EXPECT_EQ(encoder.data(), block);
  }
}

TEST(DataEncoder, GrowsWhenTheNextValueDoesNotFit) {
  const std::tuple<std::size_t, void (*)(DataEncoder&), std::uint64_t> cases[] = {
      {1023, [](DataEncoder& e) { e.putInt8(1); }, 1024},
      {1024, [](DataEncoder& e) { e.putInt8(1); }, 2048},
      {1023, [](DataEncoder& e) { e.putInt(-200); }, 2048},
      {1017, [](DataEncoder& e) { e.putDouble(0); }, 2048},
      // The prefix of 3 bytes fits and the body is larger than the step: 1003 + 5000, rounded up.
      {1000, [](DataEncoder& e) { e.putData(Bytes(5000)); }, 6144}};
  for (const auto& [written, put, size] : cases) {
    DataEncoder encoder;
    encoder.appendData(Bytes(written, 0x5A));
    put(encoder);
    EXPECT_EQ(encoder.allocatedSize(), size) << written;
    EXPECT_TRUE(encoder.equals(Bytes(written, 0x5A), 0, written)) << "what was written before the growth";
  }
}

TEST(DataEncoder, StepDoublesUpToHalfAMebibyte) {
  DataEncoder encoder;
  for (std::uint64_t step = 1024; step <= 0x80000; step *= 2) {
    encoder.appendData(Bytes(encoder.allocatedSize() - encoder.byteCount()));
    EXPECT_EQ(encoder.increment(), step);
    encoder.expandBuffer(1);
  }
  encoder.expandBuffer(1);
  EXPECT_EQ(encoder.increment(), 0x80000U);
}

}  // namespace
}  // namespace tarvel
