#include <gtest/gtest.h>

#include <tuple>

#include "SampleInput.h"
#include "publish/FieldParsers.h"
#include "publish/ImageHeader.h"

namespace tarvel::publish {
namespace {

template <class Result>
using Accepted = std::initializer_list<std::pair<const char*, Result>>;
using Refused = std::initializer_list<const char*>;

template <class Result, class Parser>
void check(Parser parser, Accepted<Result> accepted, Refused refused) {
  for (const auto& [text, expected] : accepted) EXPECT_EQ(parser(text), expected) << '"' << text << '"';
  for (const char* text : refused) EXPECT_FALSE(parser(text)) << '"' << text << '"';
}

TEST(FieldParsers, DatesTimesAndWeekdays) {
  check<PackedDate>(parseDate,
                    {{"2025-03-02", 0x07E90302},
                     {"2024-02-29", packedDate(2024, 2, 29)},
                     {"2999-12-31", packedDate(2999, 12, 31)}},
                    {"2025-02-29", "2025-04-31", "2025-13-01", "2025-00-10", "1999-12-31", "2025-3-2",
                     "2025-03-02 ", "+025-03-02", ""});
  check<int>(parseTime, {{"0:00", 0}, {"05:30", 330}, {"24:00", 1440}, {"25:30", 1530}, {"47:59", 2879}},
             {"48:00", "12:60", "12:5", "12", "-1:00", "1:00 pm", "100:00"});
  check<int>(parseWeekday, {{"Sunday", 0}, {"wed", 3}, {"SATURDAY", 6}, {"Fri", 5}}, {"Su", "Sundays", ""});
  const auto seconds = [](std::string_view text) -> std::optional<double> {
    const auto instant = parseInstant(text);
    return instant ? std::optional(instant->seconds) : std::nullopt;
  };
  check<double>(seconds,
                {{"2001-01-01", 0.0},
                 {"2001-01-02T00:00:01Z", 86401.0},
                 {"2000-12-31T23:59:59Z", -1.0},
                 {"2026-03-01T17:30:00Z", 794'079'000.0}},
                {"2026-03-01T24:00:00Z", "2026-03-01T17:30:00", "2026-03-01 17:30:00Z", "2026-02-30", ""});
}

TEST(FieldParsers, VersionsAndPhones) {
  check<std::int64_t>(
      parseVersion,
      {{"6.1.0", 0x0006'0001'0000'0000},
       {"6.2.0 Beta 1", 0x0006'0002'0000'0001},
       {"32767.65535.65535 Beta 65535", 0x7FFF'FFFF'FFFF'FFFF},
       {"0.0.0", 0}},
      {"32768.0.0", "6.65536.0", "6.1", "6.1.0.0", "6.1.0 Beta 0", "6.1.0 Beta", "6.1.0 beta 1", "6.1.x"});
  check<std::uint64_t>(parsePhone,
                       {{"", 0},
                        {"555-1234", 0x7000'0000'0555'1234},
                        {"(410) 555-0142", 0xA000'0041'0555'0142},
                        {"4105550142", 0xA000'0041'0555'0142},
                        {"000-0000", 0x7000'0000'0000'0000}},
                       {"555-123", "55-512-345", "1 (410) 555-0142", "+4105550142", "555.1234"});
}

TEST(FieldParsers, Colors) {
  const std::array<double, 4> orange = {1.0, 128 / 255.0, 0.0, 1.0}, faint = {1.0, 128 / 255.0, 0.0, 0.2};
  check<std::array<double, 4>>(parseColor, {{"#FF8000", orange}, {"#ff800033", faint}},
                               {"", "FF8000", "#FF800", "#FF80000", "#FG8000", "#+F8000", "red"});
}

TEST(FieldParsers, WebAddressesAndSafePaths) {
  check<bool>(isWebAddress,
              {{"http://a", true}, {"https://a.example.org/x?y=1#z", true}, {"http://127.0.0.1:8462", true}},
              {"", "http://", "http:///x", "http://:80", "ftp://a", "file:///etc/passwd", "javascript:x",
               "HTTP//a", "http://a b", "http://a\"", "http://a\n", "http://caf\xC3\xA9"});
  check<bool>(isSafePath, {{"a", true}, {"rinks/cedar-hollow", true}, {"A_1/b.c-d", true}},
              {"", "/", "/a", "a/", "a//b", ".", "..", "a/../b", ".hidden", "a/.b", "a b", "a\\b", "a%2f"});
}

TEST(ImageHeader, ReadsSizesOfBothFormats) {
  // A Huffman table, whose marker lies among those of the frames, and a marker without a segment stand before
  // the frame's header.
  Bytes more = {0xFF, 0xD8, 0xFF, 0xC4, 0, 9, 0xFF, 0xC0, 0, 8, 8, 0, 1, 0xFF, 0x01};
  const Bytes rest = jpegImage(20, 10);
  more.insert(more.end(), rest.begin() + 2, rest.end());
  const std::tuple<Bytes, ImageFormat, int, int> cases[] = {
      {pngImage(70000, 3), ImageFormat::png, 70000, 3},
      {jpegImage(1600, 1067), ImageFormat::jpeg, 1600, 1067},
      {more, ImageFormat::jpeg, 20, 10}};
  for (const auto& [image, format, width, height] : cases) {
    const auto header = readImageHeader(image);
    ASSERT_TRUE(header) << width;
    EXPECT_EQ(std::tie(header->format, header->width, header->height), std::tie(format, width, height));
  }
}

TEST(ImageHeader, RefusesEveryCutAndEmptySizes) {
  for (const Bytes& image : {pngImage(8, 8), jpegImage(8, 8)}) {
    const std::size_t lastNeeded = image[0] == 0x89 ? image.size() : image.size() - 1;
    for (std::size_t length = 0; length < lastNeeded; ++length)
      EXPECT_FALSE(readImageHeader(ByteView(image).first(length))) << length;
  }
  EXPECT_FALSE(readImageHeader(pngImage(0, 8)));
  EXPECT_FALSE(readImageHeader(jpegImage(8, 0)));
  EXPECT_FALSE(readImageHeader(Bytes{'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0, 0}));
  // The picture's data begin before any frame header.
  EXPECT_FALSE(
      readImageHeader(Bytes{0xFF, 0xD8, 0xFF, 0xDA, 0, 4, 1, 2, 0xFF, 0xC0, 0, 8, 8, 0, 1, 0, 1, 3}));
}

}  // namespace
}  // namespace tarvel::publish
