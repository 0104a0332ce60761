#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "simulation/ports/CorruptBytes.h"

namespace tarvel {
namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

Bytes bytesOf(std::string_view text) {
  return Bytes(text.begin(), text.end());
}

std::optional<PropertyList> parsed(const std::string& body) {
  return PropertyList::parse(
      bytesOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>\n"));
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

PropertyList nested(int depth) {
  PropertyList list = Array{};
  for (int i = 1; i < depth; ++i) list = Array{list};
  return list;
}

const Dictionary kSample{
    {"yes", true},
    {"smallest", std::numeric_limits<std::int64_t>::min()},
    {"largest", std::numeric_limits<std::int64_t>::max()},
    {"third", 1.0 / 3},
    {"tiny", 5e-324},
    {"huge", -1.7976931348623157e308},
    {"text", "Größe <&> \"quoted\" \U0001F3D2\n\ttabbed"},
    {"1969", Instant{-978'307'201.0}},
    {"2100", Instant{3'124'224'000.0}},
    {"list", Array{1, "two", 3.5, Array{}, Dictionary{}}},
    {"windows", Dictionary{{"MainWindow", Dictionary{{"frame", "0 0 800 600"}, {"ids", Array{1, 2, 3}}}}}}};

TEST(PropertyList, ComesBackFromXml) {
  const auto back = PropertyList::parse(*PropertyList(kSample).xml());
  ASSERT_TRUE(back);
  for (const auto& [key, value] : kSample) EXPECT_EQ(back->dictionary()->at(key), value) << key;
  EXPECT_EQ(back->dictionary()->size(), kSample.size());
  EXPECT_EQ(PropertyList::parse(*PropertyList(7).xml()), PropertyList(7)) << "a root of any type";
  EXPECT_EQ(PropertyList::parse(*PropertyList(-HUGE_VAL).xml())->real(), -HUGE_VAL);
  EXPECT_EQ(realAt({{"int", 5}}, "int"), 5.0);
  EXPECT_FALSE(integerAt({{"real", 5.0}}, "real") || booleanAt({{"int", 1}}, "int"));
  EXPECT_FALSE(integersAt({{"mixed", Array{1, "2"}}}, "mixed"));
}

TEST(PropertyList, DatesLoseTheirFractionAndStayWithinTheCalendar) {
  const std::pair<double, double> cases[] = {{10.9, 10.0},
                                             {-0.5, -1.0},
                                             {1e300, 252'423'993'599.0},
                                             {-1e300, -63'113'904'000.0},
                                             {std::nan(""), 0.0}};
  for (const auto& [written, read] : cases)
    EXPECT_EQ(*PropertyList::parse(*PropertyList(Instant{written}).xml())->date(), Instant{read}) << written;
  // A damaged file's date before year 1.
  EXPECT_EQ(parsed("<date>0000-01-01T00:00:00Z</date>"), PropertyList(Instant{-63'113'904'000.0}));
}

TEST(PropertyList, RefusesWhatIsNone) {
  const std::string bodies[] = {"",
                                "plain",
                                "<foo/>",
                                "<dict><true/></dict>",
                                "<array><string>x</array>",
                                "<string>\xed\xa0\x80</string>",
                                "<string>a\x01</string>",
                                std::string("<string>a\0b</string>", 20),
                                "<string>&bogus;</string>",
                                repeated("<array>", 40'000),
                                repeated("<array>", 101) + repeated("</array>", 101),
                                repeated("<array>", 1'000'000) + repeated("</array>", 1'000'000),
                                "<array>" + repeated("<dict/>", 50'001) + "</array>"};
  for (const std::string& body : bodies) EXPECT_FALSE(parsed(body)) << body.substr(0, 40);
  EXPECT_TRUE(parsed(repeated("<array>", 100) + repeated("</array>", 100)));
  EXPECT_EQ(parsed("<data>AAAA</data>"), PropertyList(""));
  EXPECT_FALSE(PropertyList("\xff").xml() || PropertyList(Dictionary{{"a\x1f", 1}}).xml());
  EXPECT_FALSE(nested(101).xml());
  EXPECT_TRUE(PropertyList::parse(*nested(100).xml()));
}

TEST(PropertyList, SurvivesAnyBytes) {
  const Bytes xml = *PropertyList(kSample).xml();
  SeededRandom random(7);
  for (std::size_t length = 0; length < xml.size(); ++length) (void)PropertyList::parse(cutAt(xml, length));
  for (int i = 0; i < 3'000; ++i) {
    if (const auto list = PropertyList::parse(corruptSomehow(xml, random))) (void)list->xml();
    Bytes garbage = i % 2 == 0 ? bytesOf("bplist00") : Bytes{};
    for (std::uint64_t n = random.below(200); n > 0; --n)
      garbage.push_back(static_cast<std::uint8_t>(random.next()));
    EXPECT_FALSE(PropertyList::parse(garbage));
  }
}

}  // namespace
}  // namespace tarvel
