#include "foundation/DataEncoder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <tuple>

#include "foundation/DataDecoder.h"
#include "foundation/DecodeError.h"

namespace tarvel {
namespace {

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
  for (const auto& [capacity, size] : capacities) {
    EXPECT_EQ(DataEncoder::withCapacity(capacity).allocatedSize(), size) << capacity;
  }
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
