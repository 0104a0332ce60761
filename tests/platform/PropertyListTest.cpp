#include "platform/PropertyList.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cmath>
#include <fstream>
#include <limits>

#include "support/CorruptBytes.h"
#include "support/TempFolder.h"

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
    {"no", false},
    {"smallest", std::numeric_limits<std::int64_t>::min()},
    {"minus", -5},
    {"largest", std::numeric_limits<std::int64_t>::max()},
    {"real", 795'000'123.015625},
    {"third", 1.0 / 3},
    {"tiny", 5e-324},
    {"huge", -1.7976931348623157e308},
    {"text", "Größe <&> \"quoted\" \U0001F3D2\n\ttabbed"},
    {"", ""},
    {"1969", Instant{-978'307'201.0}},
    {"1999", Instant{-63'158'400.0}},
    {"2026", Instant{795'000'000.0}},
    {"2100", Instant{3'124'224'000.0}},
    {"list", Array{1, "two", 3.5, Array{}, Dictionary{}}},
    {"windows", Dictionary{{"MainWindow", Dictionary{{"frame", "0 0 800 600"}, {"ids", Array{1, 2, 3}}}}}}};

TEST(PropertyList, ComesBackFromXml) {
  const Bytes xml = *PropertyList(kSample).xml();
  const auto back = PropertyList::parse(xml);
  ASSERT_TRUE(back);
  for (const auto& [key, value] : kSample) EXPECT_EQ(back->dictionary()->at(key), value) << key;
  EXPECT_EQ(back->dictionary()->size(), kSample.size());
  for (const PropertyList& root :
       {PropertyList(true), PropertyList(7), PropertyList("x"), PropertyList(Array{1})}) {
    EXPECT_EQ(PropertyList::parse(*root.xml()), root) << "a root of any type";
  }
  const auto infinite = PropertyList::parse(*PropertyList(-HUGE_VAL).xml());
  EXPECT_EQ(infinite->real(), -HUGE_VAL);
}

TEST(PropertyList, DatesLoseTheirFractionAndStayWithinTheCalendar) {
  const std::pair<double, double> cases[] = {{10.9, 10.0},
                                             {-0.5, -1.0},
                                             {1e300, 252'423'993'599.0},
                                             {-1e300, -63'113'904'000.0},
                                             {std::nan(""), 0.0}};
  for (const auto& [written, read] : cases) {
    EXPECT_EQ(*PropertyList::parse(*PropertyList(Instant{written}).xml())->date(), Instant{read}) << written;
  }
}

TEST(PropertyList, LookUpsTakeTheirOwnTypeAlone) {
  const Dictionary values{{"bool", true},
                          {"int", 5},
                          {"real", 2.5},
                          {"text", "x"},
                          {"date", Instant{1.0}},
                          {"ints", Array{1, 2}},
                          {"mixed", Array{1, "2"}},
                          {"dict", Dictionary{}}};
  for (const auto& [key, value] : values) {
    EXPECT_EQ(booleanAt(values, key).has_value(), key == "bool") << key;
    EXPECT_EQ(integerAt(values, key).has_value(), key == "int") << key;
    EXPECT_EQ(realAt(values, key).has_value(), key == "int" || key == "real") << key;
    EXPECT_EQ(textAt(values, key).has_value(), key == "text") << key;
    EXPECT_EQ(dateAt(values, key).has_value(), key == "date") << key;
    EXPECT_EQ(arrayAt(values, key) != nullptr, key == "ints" || key == "mixed") << key;
    EXPECT_EQ(dictionaryAt(values, key) != nullptr, key == "dict") << key;
    EXPECT_EQ(integersAt(values, key).has_value(), key == "ints") << key;
  }
  EXPECT_FALSE(integerAt(values, "missing"));
  EXPECT_EQ(realAt(values, "int"), 5.0);
}

TEST(PropertyList, RefusesWhatIsNone) {
  const std::string many = repeated("<dict/>", 50'001);
  const std::string bodies[] = {"",
                                "plain",
                                "<foo/>",
                                "<dict><true/></dict>",
                                "<array><string>x</array>",
                                "<string>\xff</string>",
                                "<string>\xed\xa0\x80</string>",
                                "<string>a\x01</string>",
                                std::string("<string>a\0b</string>", 20),
                                "<string>&bogus;</string>",
                                repeated("<array>", 1'000'000),
                                repeated("<array>", 40'000),
                                repeated("<array>", 101) + repeated("</array>", 101),
                                repeated("<array>", 1'000'000) + repeated("</array>", 1'000'000),
                                "<array>" + many + "</array>"};
  for (const std::string& body : bodies) EXPECT_FALSE(parsed(body)) << body.substr(0, 40);
  EXPECT_TRUE(parsed(repeated("<array>", 100) + repeated("</array>", 100)));
  EXPECT_FALSE(PropertyList::parse({}));
  EXPECT_EQ(parsed("<data>AAAA</data>"), PropertyList(""));

  EXPECT_FALSE(PropertyList("\xff").xml());
  EXPECT_FALSE(PropertyList(Dictionary{{"a\x1f", 1}}).xml());
  EXPECT_FALSE(PropertyList(std::string("a\0b", 3)).xml());
  EXPECT_FALSE(nested(101).xml());
  EXPECT_TRUE(PropertyList::parse(*nested(100).xml()));
}

TEST(PropertyList, SurvivesAnyBytes) {
  const Bytes xml = *PropertyList(kSample).xml();
  const Bytes binaryHead = bytesOf("bplist00");
  SeededRandom random(7);
  for (std::size_t length = 0; length < xml.size(); ++length) (void)PropertyList::parse(cutAt(xml, length));
  EXPECT_FALSE(PropertyList::parse(cutAt(xml, xml.size() / 2)));
  for (int i = 0; i < 3'000; ++i) {
    const Corruption damaged = corruptSomehow(xml, random);
    if (const auto list = PropertyList::parse(damaged.bytes)) (void)list->xml();
    Bytes garbage = i % 2 == 0 ? binaryHead : Bytes{};
    for (std::uint64_t n = random.below(200); n > 0; --n)
      garbage.push_back(static_cast<std::uint8_t>(random.next()));
    EXPECT_FALSE(PropertyList::parse(garbage));
  }
}

TEST(PropertyList, IsTheSameInEveryLocale) {
  const std::string previous = setlocale(LC_ALL, nullptr);
  const char* withComma = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nb_NO.UTF-8"}) {
    if (!withComma) withComma = setlocale(LC_ALL, name);
  }
  if (!withComma) GTEST_SKIP() << "no locale with a decimal comma is installed";
  EXPECT_EQ(PropertyList::parse(*PropertyList(2.5).xml())->real(), 2.5);
  EXPECT_EQ(parsed("<real>2.5</real>")->real(), 2.5);
  setlocale(LC_ALL, previous.c_str());
}

TEST(PropertyList, AnotherProgramReadsAndWritesTheSame) {
  if (std::system("python3 -c 'import plistlib' 2>/dev/null") != 0) GTEST_SKIP() << "no Python";
  const TempFolder temp;
  const Bytes xml = *PropertyList(kSample).xml();
  std::ofstream(temp.path() + "/ours")
      .write(reinterpret_cast<const char*>(xml.data()), std::streamsize(xml.size()));
  std::ofstream(temp.path() + "/script.py") << R"(
import plistlib, sys, datetime
folder = sys.argv[1]
value = plistlib.load(open(folder + '/ours', 'rb'))
assert value['smallest'] == -2**63 and value['minus'] == -5 and value['largest'] == 2**63 - 1, value
assert value['third'] == 1 / 3 and value['real'] == 795000123.015625 and value['tiny'] == 5e-324, value
assert value['yes'] is True and value['no'] is False
assert value['text'] == 'Gr\u00f6\u00dfe <&> "quoted" \U0001F3D2\n\ttabbed', value['text']
assert value['1969'] == datetime.datetime(1969, 12, 31, 23, 59, 59) and value['2100'].year == 2100, value
assert value['list'] == [1, 'two', 3.5, [], {}]
plistlib.dump(value, open(folder + '/theirs', 'wb'))
)";
  ASSERT_EQ(std::system(("python3 '" + temp.path() + "/script.py' '" + temp.path() + "'").c_str()), 0);
  std::ifstream theirs(temp.path() + "/theirs", std::ios::binary);
  const Bytes back{std::istreambuf_iterator<char>(theirs), {}};
  EXPECT_EQ(PropertyList::parse(back), PropertyList(kSample));
}

}  // namespace
}  // namespace tarvel
