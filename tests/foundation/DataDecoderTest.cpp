#include "foundation/DataDecoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

#include "foundation/DataEncoder.h"
#include "foundation/DecodeError.h"

namespace tarvel {
namespace {

ByteView bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// One value of each form.
Bytes sample() {
  DataEncoder encoder;
  encoder.putInt(-70000);
  encoder.putUInt64(~0ULL);
  encoder.putUInt32(0xABCDEF);
  encoder.putInt16(-300);
  encoder.putUInt16(65000);
  encoder.putInt8(-5);
  encoder.putUInt8(250);
  encoder.putBool(true);
  encoder.putDouble(-0.0);
  encoder.putFloat(1.25F);
  encoder.putString("\u00DCbung");
  encoder.putData(Bytes{1, 2, 3});
  return encoder.data();
}

void readSample(DataDecoder& decoder) {
  EXPECT_EQ(decoder.getInt(), -70000);
  EXPECT_EQ(decoder.getUInt64(), ~0ULL);
  EXPECT_EQ(decoder.getUInt32(), 0xABCDEFU);
  EXPECT_EQ(decoder.getInt16(), -300);
  EXPECT_EQ(decoder.getUInt16(), 65000);
  EXPECT_EQ(decoder.getInt8(), -5);
  EXPECT_EQ(decoder.getUInt8(), 250);
  EXPECT_TRUE(decoder.getBool());
  EXPECT_TRUE(std::signbit(decoder.getDouble()));
  EXPECT_EQ(decoder.getFloat(), 1.25F);
  EXPECT_EQ(decoder.getString(), "\u00DCbung");
  EXPECT_EQ(decoder.getData(), (Bytes{1, 2, 3}));
}

TEST(DataDecoder, ReadsWhatTheEncoderWroteAgainAfterReset) {
  const Bytes bytes = sample();
  DataDecoder decoder(bytes);
  for (int pass = 0; pass < 2; ++pass) {
    readSample(decoder);
    EXPECT_EQ(decoder.bufferIndex(), bytes.size());
    EXPECT_EQ(decoder.remaining(), 0U);
    decoder.reset();
  }
}

TEST(DataDecoder, EveryCutIsFound) {
  const Bytes bytes = sample();
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    DataDecoder decoder(ByteView(bytes).first(length));
    EXPECT_THROW(readSample(decoder), DecodeError) << length;
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
  struct {
    Bytes bytes;
    std::string text;
    std::uint64_t index;  ///< after the read
  } const cases[] = {
      {{0x00, 'x'}, "", 1},
      {{0xFF, 0xFE, 'x'}, "", 2},                           // a length of -2
      {{0x01, 0x02, 'o', 'k', 'x'}, "ok", 4},               //
      {{0x01, 0x02, 'o', 0xFF, 'x'}, "", 4},                // no UTF-8
      {{0x01, 0x03, 'a', 0x00, 'b'}, {"a\0b", 3}, 5},       //
      {{0x01, 0x03, 0xEF, 0xBB, 0xBF}, "\xEF\xBB\xBF", 5},  // a byte order mark is text like any other
  };
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
  struct {
    std::int64_t count;
    std::uint64_t leastBytesEach;
    std::size_t left;
    bool allowed;
  } const cases[] = {
      {0, 9, 0, true}, {1, 1, 0, false}, {3, 9, 27, true}, {3, 9, 26, false}, {INT64_MAX, 16, 100, false}};
  for (const auto& [count, leastBytesEach, left, allowed] : cases) {
    DataEncoder encoder;
    encoder.putInt(count);
    encoder.appendData(Bytes(left));
    DataDecoder decoder(encoder.data());
    if (allowed) {
      EXPECT_EQ(decoder.getCount(leastBytesEach), count);
    } else {
      EXPECT_THROW(decoder.getCount(leastBytesEach), DecodeError) << count << " x " << leastBytesEach;
    }
  }
}

TEST(DataDecoderDeathTest, NegativeCount) {
  const Bytes minusOne{0xFF, 0xFF};
  EXPECT_DEATH(DataDecoder(minusOne).getCount(1), "Fatal error");
}

TEST(Utf8, WellFormed) {
  const std::pair<std::string_view, bool> cases[] = {
      {"", true},
      {"plain", true},
      {"\x7F", true},
      {"\xC2\x80\xDF\xBF", true},
      {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", true},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", true},
      {"\x80", false},              // begins with a continuation
      {"\xC0\x80", false},          // overlong
      {"\xC1\xBF", false},          //
      {"\xE0\x9F\xBF", false},      //
      {"\xF0\x8F\xBF\xBF", false},  //
      {"\xED\xA0\x80", false},      // a surrogate
      {"\xF4\x90\x80\x80", false},  // beyond the last code point
      {"\xF5\x80\x80\x80", false},
      {"a\xC3", false},  // cut
      {"\xE2\x82", false},
      {"\xC3(", false},
      {"\xF0\x90\x80x", false}};
  for (const auto& [text, wellFormed] : cases) EXPECT_EQ(isUtf8(bytesOf(text)), wellFormed) << text;
}

}  // namespace
}  // namespace tarvel
