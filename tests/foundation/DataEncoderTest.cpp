#include "foundation/DataEncoder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <limits>

#include "foundation/DataDecoder.h"

namespace tarvel {
namespace {

std::string hex(const Bytes& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
  return text;
}

TEST(DataEncoder, PackedSignedIntegers) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "00"},
      {1, "01 01"},
      {127, "01 7F"},
      {128, "01 80"},
      {200, "01 C8"},
      {255, "01 FF"},
      {256, "02 00 01"},
      {1000, "02 E8 03"},
      {0x10000, "03 00 00 01"},
      {-1, "FF FF"},
      {-128, "FF 80"},
      {-129, "FF 7F"},
      {-200, "FF 38"},
      {-256, "FF 00"},
      {-257, "FE FF FE"},
      {-1000, "FE 18 FC"},
      {-0x10000, "FE 00 00"},
      {-0x10001, "FD FF FF FE"},
      {std::numeric_limits<std::int64_t>::max(), "08 FF FF FF FF FF FF FF 7F"},
      {std::numeric_limits<std::int64_t>::min(), "F8 00 00 00 00 00 00 00 80"}};
  for (const auto& [value, form] : cases) {
    DataEncoder encoder;
    encoder.putInt(value);
    EXPECT_EQ(hex(encoder.data()), form) << value;
    DataEncoder other;
    other.putInt64(value);
    EXPECT_TRUE(other.equals(encoder.data())) << value;
    EXPECT_EQ(DataDecoder(encoder.data()).getInt(), value);
    EXPECT_EQ(DataDecoder(encoder.data()).getInt64(), value);
  }
}

TEST(DataEncoder, PackedUnsignedIntegers) {
  const std::pair<std::uint64_t, const char*> cases[] = {
      {0, "00"},
      {1, "01 01"},
      {200, "01 C8"},
      {256, "02 00 01"},
      {0xFFFFFFFF, "04 FF FF FF FF"},
      {0x100000000, "05 00 00 00 00 01"},
      {std::uint64_t{1} << 63, "08 00 00 00 00 00 00 00 80"}};
  for (const auto& [value, form] : cases) {
    DataEncoder encoder;
    encoder.putUInt64(value);
    EXPECT_EQ(hex(encoder.data()), form);
    EXPECT_EQ(DataDecoder(encoder.data()).getUInt64(), value);
    if (value > 0xFFFFFFFF) continue;
    DataEncoder narrow;
    narrow.putUInt32(static_cast<std::uint32_t>(value));
    EXPECT_EQ(hex(narrow.data()), form);
    DataDecoder decoder(narrow.data());
    EXPECT_EQ(decoder.getUInt32(), value);
    EXPECT_EQ(decoder.bufferIndex(), narrow.byteCount());
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
}

TEST(DataEncoder, FirstAllocation) {
  const std::pair<std::int64_t, std::uint64_t> capacities[] = {
      {std::numeric_limits<std::int64_t>::min(), 1024}, {0, 1024}, {1, 1024}, {1024, 1024}, {1025, 2048}};
  for (const auto& [capacity, size] : capacities) {
    const DataEncoder encoder = DataEncoder::withCapacity(capacity);
    EXPECT_EQ(encoder.allocatedSize(), size) << capacity;
    EXPECT_EQ(encoder.increment(), 1024U);
    EXPECT_TRUE(encoder.data().empty());
  }
  const std::pair<std::optional<std::size_t>, std::uint64_t> blocks[] = {
      {std::nullopt, 1024}, {0, 0}, {1, 1024}, {1024, 1024}, {1025, 2048}};
  for (const auto& [length, size] : blocks) {
    const Bytes block(length.value_or(0), 0x11);
    DataEncoder encoder = DataEncoder::withData(length ? std::optional<ByteView>(block) : std::nullopt);
    EXPECT_EQ(encoder.allocatedSize(), size);
    EXPECT_EQ(encoder.byteCount(), block.size());
    encoder.putInt8(0x22);
    Bytes expected = block;
    expected.push_back(0x22);
    EXPECT_EQ(encoder.data(), expected);
  }
}

TEST(DataEncoder, GrowsWhenTheNextValueDoesNotFit) {
  using Put = void (*)(DataEncoder&);
  struct {
    std::size_t written;
    Put put;
    std::uint64_t size;  ///< after the write
  } const cases[] = {
      {1023, [](DataEncoder& e) { e.putInt8(1); }, 1024},
      {1024, [](DataEncoder& e) { e.putInt8(1); }, 2048},
      {1023, [](DataEncoder& e) { e.putInt(0); }, 1024},
      {1022, [](DataEncoder& e) { e.putInt(-200); }, 1024},
      {1023, [](DataEncoder& e) { e.putInt(-200); }, 2048},
      {1016, [](DataEncoder& e) { e.putDouble(0); }, 1024},
      {1017, [](DataEncoder& e) { e.putDouble(0); }, 2048},
      {1021, [](DataEncoder& e) { e.putFloat(0); }, 2048},
      {1023, [](DataEncoder& e) { e.putUInt16(0); }, 2048},
      // The prefix of 3 bytes fits and the body is larger than the step: 1003 + 5000, rounded up.
      {1000, [](DataEncoder& e) { e.putData(Bytes(5000)); }, 6144},
      {1000, [](DataEncoder& e) { e.appendData(Bytes(24)); }, 1024}};
  for (const auto& [written, put, size] : cases) {
    DataEncoder encoder;
    encoder.appendData(Bytes(written, 0x5A));
    put(encoder);
    EXPECT_EQ(encoder.allocatedSize(), size) << written;
    EXPECT_EQ(encoder.increment(), size == 1024 ? 1024U : 2048U);
    EXPECT_TRUE(encoder.equals(Bytes(written, 0x5A), 0, written)) << "what was written before the growth";
  }
}

TEST(DataEncoder, StepDoublesUpToHalfAMebibyte) {
  DataEncoder encoder;
  std::uint64_t size = 1024;
  for (std::uint64_t step = 1024; step <= 0x80000; step *= 2) {
    encoder.appendData(Bytes(encoder.allocatedSize() - encoder.byteCount()));
    EXPECT_EQ(encoder.increment(), step);
    encoder.expandBuffer(1);
    EXPECT_EQ(encoder.allocatedSize(), size += step);
  }
  encoder.expandBuffer(1);
  EXPECT_EQ(encoder.increment(), 0x80000U);
}

TEST(DataEncoder, Equality) {
  DataEncoder encoder;
  EXPECT_TRUE(encoder.equals({}));
  const Bytes abc{'a', 'b', 'c'};
  encoder.appendData(abc);
  EXPECT_TRUE(encoder.equals(abc));
  EXPECT_FALSE(encoder.equals(Bytes{'a', 'b'}));
  EXPECT_FALSE(encoder.equals(Bytes{'a', 'b', 'd'}));

  struct {
    Bytes block;
    std::uint64_t location;
    std::uint64_t length;
    bool equal;
  } const ranges[] = {{{'x', 'b', 'c', 'd'}, 1, 2, true},  {{'x', 'b', 'c'}, 0, 2, false},
                      {{'x', 'b', 'c', 'd'}, 1, 3, false}, {{'a', 'b'}, 0, 3, false},
                      {{'x', 'y', 'z'}, 3, 0, true},       {{'a', 'b', 'c'}, 4, 0, false},
                      {{'a', 'b', 'c'}, 2, ~0ULL, false}};
  for (const auto& [block, location, length, equal] : ranges) {
    EXPECT_EQ(encoder.equals(block, location, length), equal) << location << "+" << length;
  }
}

}  // namespace
}  // namespace tarvel
