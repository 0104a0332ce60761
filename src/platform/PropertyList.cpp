#include "platform/PropertyList.h"

#include <date/date.h>
#include <fmt/format.h>
#include <locale.h>
#include <plist/plist.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace tarvel {

namespace {

// The library walks a file's lists and dictionaries by recursion, also when it only lets go of them. Their
// number is bounded before it sees the file, so that no depth can use up the stack.
constexpr std::size_t kMaxContainers = 50'000;
constexpr int kMaxDepth = 100;
constexpr std::size_t kMaxFileSize = 64 << 20;

struct NodeDeleter {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
using CText = std::unique_ptr<char, FreeDeleter>;

/// The library reads and writes real numbers as the thread's locale has it, where a comma may stand for the
/// point.
class NeutralLocale {
 public:
  NeutralLocale() : previous_(uselocale(neutral())) {}
  ~NeutralLocale() { uselocale(previous_); }
  NeutralLocale(const NeutralLocale&) = delete;
  NeutralLocale& operator=(const NeutralLocale&) = delete;

 private:
  static locale_t neutral() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }
  locale_t previous_;
};

/// The length in bytes of the UTF-8 character at the text's front, 0 if it is none or XML can't hold it.
std::size_t xmlCharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r' ? 1 : 0;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  std::uint32_t character = lead & (0x7F >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    character = character << 6 | (byte(i) & 0x3F);
  }
  const bool overlong = character < (length == 4 ? 0x10000u : length == 3 ? 0x800u : 0x80u);
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  const bool noCharacter = character > 0x10FFFF || character == 0xFFFE || character == 0xFFFF;
  return overlong || surrogate || noCharacter ? 0 : length;
}

bool isXmlText(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const bool printable = byte >= 0x20 && byte < 0x80;  // most of all text, and quick to tell
    const std::size_t length = printable ? 1 : xmlCharacterLength(text.substr(at));
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::size_t countOf(std::string_view tag, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(tag); at != std::string_view::npos; at = text.find(tag, at + tag.size()))
    ++count;
  return count;
}

/// A date that the file's form can hold: whole seconds from year 1 to 9999.
double holdable(double seconds) {
  constexpr double kYear1 = -63'113'904'000.0, kEndOfYear9999 = 252'423'993'599.0;
  const double floored = std::isnan(seconds) ? 0.0 : std::floor(seconds);
  return std::fmin(std::fmax(floored, kYear1), kEndOfYear9999);
}

/// The date as the file's text has it. The library's own way to hand out dates ends in the year 2069.
std::optional<Instant> dateOf(plist_t node) {
  char* memory = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(node, &memory, &length);
  const CText xml(memory);
  const char* text = xml ? std::strstr(xml.get(), "<date>") : nullptr;
  int year = 0;
  unsigned month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (!text ||
      std::sscanf(text, "<date>%5d-%2u-%2uT%2u:%2u:%2uZ", &year, &month, &day, &hour, &minute, &second) != 6)
    return std::nullopt;
  const date::year_month_day calendarDay{date::year{year}, date::month{month}, date::day{day}};
  if (!calendarDay.ok()) return std::nullopt;
  const std::int64_t days = date::sys_days{calendarDay}.time_since_epoch().count();
  const std::int64_t seconds = ((days * 24 + hour) * 60 + minute) * 60 + second;
  return Instant{holdable(static_cast<double>(seconds - kReferenceDateSince1970))};
}

Node parseXml(std::string_view xml) {
  plist_t root = nullptr;
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
  return Node(root);
}

Node dateNode(Instant instant) {
  const auto seconds = static_cast<std::int64_t>(holdable(instant.seconds));
  // The library's own way to take a date is by far the quicker one, but knows the years 1933 to 2068 alone.
  if (std::in_range<std::int32_t>(seconds))
    return Node(plist_new_date(static_cast<std::int32_t>(seconds), 0));
  const date::sys_seconds time{std::chrono::seconds{seconds + kReferenceDateSince1970}};
  const auto midnight = date::floor<date::days>(time);
  const date::year_month_day day{midnight};
  const date::hh_mm_ss clock{time - midnight};
  return parseXml(fmt::format("<plist><date>{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z</date></plist>",
                              int{day.year()}, unsigned{day.month()}, unsigned{day.day()},
                              clock.hours().count(), clock.minutes().count(), clock.seconds().count()));
}

std::optional<PropertyList> valueOf(plist_t node, int depth);

std::optional<PropertyList> arrayOf(plist_t node, int depth) {
  PropertyList::Array array;
  plist_array_iter cursor = nullptr;
  plist_array_new_iter(node, &cursor);
  const std::unique_ptr<void, FreeDeleter> cursorHolder(cursor);
  plist_t item = nullptr;
  for (plist_array_next_item(node, cursor, &item); item; plist_array_next_item(node, cursor, &item)) {
    std::optional<PropertyList> value = valueOf(item, depth);
    if (!value) return std::nullopt;
    array.push_back(std::move(*value));
  }
  return std::make_optional<PropertyList>(std::move(array));
}

std::optional<PropertyList> dictionaryOf(plist_t node, int depth) {
  PropertyList::Dictionary dictionary;
  plist_dict_iter cursor = nullptr;
  plist_dict_new_iter(node, &cursor);
  const std::unique_ptr<void, FreeDeleter> cursorHolder(cursor);
  for (;;) {
    char* keyText = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, cursor, &keyText, &item);
    const CText key(keyText);
    if (!item) return std::make_optional<PropertyList>(std::move(dictionary));
    std::optional<PropertyList> value = valueOf(item, depth);
    if (!value || !key || !isXmlText(key.get())) return std::nullopt;
    dictionary.insert_or_assign(key.get(), std::move(*value));
  }
}

/// None for what makes the whole file no property list.
std::optional<PropertyList> valueOf(plist_t node, int depth) {
  const plist_type type = plist_get_node_type(node);
  if (depth >= kMaxDepth && (type == PLIST_ARRAY || type == PLIST_DICT)) return std::nullopt;
  switch (type) {
    case PLIST_BOOLEAN: {
      std::uint8_t value = 0;
      plist_get_bool_val(node, &value);
      return PropertyList(value != 0);
    }
    case PLIST_UINT: {
      std::uint64_t value = 0;  // negative numbers are stored in it, in two's complement
      plist_get_uint_val(node, &value);
      return PropertyList(static_cast<std::int64_t>(value));
    }
    case PLIST_REAL: {
      double value = 0.0;
      plist_get_real_val(node, &value);
      return PropertyList(value);
    }
    case PLIST_STRING: {
      std::uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      if (!text || !isXmlText({text, length})) return std::nullopt;
      return PropertyList(std::string(text, length));
    }
    case PLIST_DATE:
      if (const auto date = dateOf(node)) return PropertyList(*date);
      return std::nullopt;
    case PLIST_ARRAY:
      return arrayOf(node, depth + 1);
    case PLIST_DICT:
      return dictionaryOf(node, depth + 1);
    default:
      return PropertyList(std::string());
  }
}

/// Turns values into the library's tree; remembers what can't be written.
class TreeBuilder {
 public:
  Node build(const PropertyList& value, int depth = 0) {
    if (const bool* truth = value.boolean()) return Node(plist_new_bool(*truth ? 1 : 0));
    if (const std::int64_t* number = value.integer())
      return Node(plist_new_uint(static_cast<std::uint64_t>(*number)));
    if (const std::string* text = value.text()) return Node(plist_new_string(checked(*text).c_str()));
    if (const Instant* date = value.date()) return dateNode(*date);
    if (const auto* array = value.array()) return build(*array, depth);
    if (const auto* dictionary = value.dictionary()) return build(*dictionary, depth);
    return Node(plist_new_real(*value.real()));
  }
  const std::optional<Error>& failure() const { return failure_; }

 private:
  Node build(const PropertyList::Array& array, int depth) {
    Node node(plist_new_array());
    if (!enter(depth)) return node;
    for (const PropertyList& item : array)
      plist_array_append_item(node.get(), build(item, depth + 1).release());
    return node;
  }
  Node build(const PropertyList::Dictionary& dictionary, int depth) {
    Node node(plist_new_dict());
    if (!enter(depth)) return node;
    for (const auto& [key, item] : dictionary) {
      plist_dict_set_item(node.get(), checked(key).c_str(), build(item, depth + 1).release());
    }
    return node;
  }
  bool enter(int depth) {
    if (++containers_ > kMaxContainers || depth >= kMaxDepth) failure_ = Error{"too many lists within lists"};
    return !failure_;
  }
  const std::string& checked(const std::string& text) {
    if (!isXmlText(text)) failure_ = Error{"a text has bytes that are no characters"};
    return text;
  }

  std::size_t containers_ = 0;
  std::optional<Error> failure_;
};

template <class T>
std::optional<T> copyOf(const T* value) {
  return value ? std::optional<T>(*value) : std::nullopt;
}

const PropertyList* at(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

}  // namespace

std::optional<double> PropertyList::real() const {
  if (const auto* number = integer()) return static_cast<double>(*number);
  return copyOf(std::get_if<double>(&value_));
}

std::optional<PropertyList> PropertyList::parse(ByteView file) {
  const std::string_view xml(reinterpret_cast<const char*>(file.data()), file.size());
  if (xml.empty() || xml.size() > kMaxFileSize || !isXmlText(xml)) return std::nullopt;
  if (countOf("<array", xml) + countOf("<dict", xml) > kMaxContainers) return std::nullopt;
  const NeutralLocale locale;
  const Node root = parseXml(xml);
  return root ? valueOf(root.get(), 0) : std::nullopt;
}

Result<Bytes> PropertyList::xml() const {
  const NeutralLocale locale;
  TreeBuilder builder;
  const Node root = builder.build(*this);
  if (builder.failure()) return *builder.failure();
  char* memory = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(root.get(), &memory, &length);
  const CText xml(memory);
  if (!xml) return Error{"out of memory"};
  return Bytes(xml.get(), xml.get() + length);
}

std::optional<bool> booleanAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? copyOf(value->boolean()) : std::nullopt;
}

std::optional<std::int64_t> integerAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? copyOf(value->integer()) : std::nullopt;
}

std::optional<double> realAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? value->real() : std::nullopt;
}

std::optional<std::string> textAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? copyOf(value->text()) : std::nullopt;
}

std::optional<Instant> dateAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? copyOf(value->date()) : std::nullopt;
}

const PropertyList::Array* arrayAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? value->array() : nullptr;
}

const PropertyList::Dictionary* dictionaryAt(const PropertyList::Dictionary& dictionary,
                                             const std::string& key) {
  const PropertyList* value = at(dictionary, key);
  return value ? value->dictionary() : nullptr;
}

std::optional<std::vector<std::int64_t>> integersAt(const PropertyList::Dictionary& dictionary,
                                                    const std::string& key) {
  const PropertyList::Array* array = arrayAt(dictionary, key);
  if (!array) return std::nullopt;
  std::vector<std::int64_t> numbers;
  for (const PropertyList& item : *array) {
    if (!item.integer()) return std::nullopt;
    numbers.push_back(*item.integer());
  }
  return numbers;
}

}  // namespace tarvel
