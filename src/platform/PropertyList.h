#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Bytes.h"
#include "platform/Instant.h"
#include "platform/Result.h"

namespace tarvel {

/// A value of a property list: a boolean, integer, real number, text, date, list or dictionary. What other
/// programs may put into one beside these (raw data, uids) is read as an empty text.
class PropertyList {
 public:
  using Array = std::vector<PropertyList>;
  using Dictionary = std::map<std::string, PropertyList>;

  PropertyList() : value_(Dictionary{}) {}
  PropertyList(bool value) : value_(value) {}
  PropertyList(std::int64_t value) : value_(value) {}
  PropertyList(int value) : value_(std::int64_t{value}) {}
  PropertyList(std::uint32_t value) : value_(std::int64_t{value}) {}
  PropertyList(double value) : value_(value) {}
  PropertyList(std::string value) : value_(std::move(value)) {}
  PropertyList(const char* value) : value_(std::string(value)) {}
  PropertyList(Instant value) : value_(value) {}
  PropertyList(Array value) : value_(std::move(value)) {}
  PropertyList(Dictionary value) : value_(std::move(value)) {}

  /// The value if it is of that very type, else null. `real` alone also takes an integer.
  const bool* boolean() const { return std::get_if<bool>(&value_); }
  const std::int64_t* integer() const { return std::get_if<std::int64_t>(&value_); }
  const std::string* text() const { return std::get_if<std::string>(&value_); }
  const Instant* date() const { return std::get_if<Instant>(&value_); }
  const Array* array() const { return std::get_if<Array>(&value_); }
  const Dictionary* dictionary() const { return std::get_if<Dictionary>(&value_); }
  std::optional<double> real() const;

  friend bool operator==(const PropertyList&, const PropertyList&) = default;

  /// Reads the XML form; none for anything that is not a property list. Never throws, whatever the bytes are.
  static std::optional<PropertyList> parse(ByteView file);
  /// The XML form, UTF-8. It holds dates to the whole second, the fraction dropped, and from year 1 to 9999.
  /// A text that is not UTF-8 or has control characters other than tab and line ends is an error, and so are
  /// lists and dictionaries nested deeper than 100 or more than 50,000 in all, which `parse` takes for none
  /// of ours.
  Result<Bytes> xml() const;

 private:
  std::variant<bool, std::int64_t, double, std::string, Instant, Array, Dictionary> value_;
};

/// Look-ups in a dictionary read from a file that anyone may have edited: a key that is missing, or of
/// another type, gives none.
std::optional<bool> booleanAt(const PropertyList::Dictionary& dictionary, const std::string& key);
std::optional<std::int64_t> integerAt(const PropertyList::Dictionary& dictionary, const std::string& key);
std::optional<double> realAt(const PropertyList::Dictionary& dictionary, const std::string& key);
std::optional<std::string> textAt(const PropertyList::Dictionary& dictionary, const std::string& key);
std::optional<Instant> dateAt(const PropertyList::Dictionary& dictionary, const std::string& key);
const PropertyList::Array* arrayAt(const PropertyList::Dictionary& dictionary, const std::string& key);
const PropertyList::Dictionary* dictionaryAt(const PropertyList::Dictionary& dictionary,
                                             const std::string& key);
/// A list of integers; elements of another type make the whole list count as missing.
std::optional<std::vector<std::int64_t>> integersAt(const PropertyList::Dictionary& dictionary,
                                                    const std::string& key);

}  // namespace tarvel
