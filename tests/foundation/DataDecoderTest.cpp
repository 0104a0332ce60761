#include "foundation/DataDecoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <tuple>

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

}  // namespace
}  // namespace tarvel
