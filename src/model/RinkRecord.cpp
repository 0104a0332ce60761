#include "model/RinkRecord.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "foundation/DataDecoder.h"
#include "model/FileDate.h"
#include "model/PhoneNumber.h"

namespace tarvel {

namespace {

/// A row of nine empty texts, no phone and no logo.
constexpr std::uint64_t kLeastRowBytes = 29;

RinkRecord decodeRow(DataDecoder& decoder) {
  RinkRecord row;
  row.rinkID = decoder.getInt();
  row.name = decoder.getString();
  row.street = decoder.getString();
  row.city = decoder.getString();
  row.state = decoder.getString();
  row.zip = decoder.getString();
  row.phone = decoder.getUInt64();
  row.latitude = decoder.getDouble();
  row.longitude = decoder.getDouble();
  row.timeZone = decoder.getString();
  row.websiteUrl = decoder.getString();
  row.serverUrl = decoder.getString();
  row.dataPath = decoder.getString();
  if (decoder.getBool()) {
    row.logoFileDate = getFileDate(decoder);
    row.logoFileSize = decoder.getInt();
  }
  if (decoder.getBool()) {
    row.darkLogoFileDate = getFileDate(decoder);
    row.darkLogoFileSize = decoder.getInt();
  }
  return row;
}

/// The look-ups and the merge walk the rows in ascending order; a list that isn't is put in order first.
void putInOrder(std::vector<RinkRecord>& rows) {
  const auto byID = [](const RinkRecord& a, const RinkRecord& b) { return a.rinkID < b.rinkID; };
  if (!std::is_sorted(rows.begin(), rows.end(), byID)) std::stable_sort(rows.begin(), rows.end(), byID);
}

using Json = nlohmann::json;

/// Reads required keys of one JSON object and remembers whether one was missing or of a wrong type.
class RequiredKeys {
 public:
  explicit RequiredKeys(const Json& object) : object_(object), complete_(object.is_object()) {}

  std::string text(const char* key) {
    const Json* value = find(key);
    return value && check(value->is_string()) ? value->get<std::string>() : std::string();
  }
  std::int64_t integer(const char* key) {
    const Json* value = find(key);
    return value && check(value->is_number_integer()) ? value->get<std::int64_t>() : 0;
  }
  double number(const char* key) {
    const Json* value = find(key);
    return value && check(value->is_number()) ? value->get<double>() : 0.0;
  }
  bool complete() const { return complete_; }

 private:
  const Json* find(const char* key) {
    if (!complete_) return nullptr;
    const auto it = object_.find(key);
    return check(it != object_.end()) ? &*it : nullptr;
  }
  bool check(bool good) {
    complete_ = complete_ && good;
    return good;
  }

  const Json& object_;
  bool complete_;
};

std::optional<RinkRecord> rowOf(const Json& object) {
  RequiredKeys keys(object);
  RinkRecord row;
  row.rinkID = keys.integer("rinkID");
  row.name = keys.text("name");
  row.street = keys.text("street");
  row.city = keys.text("city");
  row.state = keys.text("state");
  row.zip = keys.text("zip");
  row.phone = parsePhone(keys.text("phone")).value_or(0);
  row.latitude = keys.number("latitude");
  row.longitude = keys.number("longitude");
  row.timeZone = keys.text("timeZone");
  row.websiteUrl = keys.text("websiteUrl");
  row.serverUrl = keys.text("serverUrl");
  row.dataPath = keys.text("dataPath");
  row.logoFileDate = Instant{keys.number("logoFileDate")};
  row.logoFileSize = keys.integer("logoFileSize");
  row.darkLogoFileDate = Instant{keys.number("darkLogoFileDate")};
  row.darkLogoFileSize = keys.integer("darkLogoFileSize");
  if (!keys.complete()) return std::nullopt;
  return row;
}

}  // namespace

RinkListFile decodeRinkList(ByteView file) {
  DataDecoder decoder(file);
  RinkListFile list;
  list.fileDate = getFileDate(decoder);
  const std::int64_t count = decoder.getCount(kLeastRowBytes);
  list.rinks.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) list.rinks.push_back(decodeRow(decoder));
  putInOrder(list.rinks);
  return list;
}

RinkListUpdate::RinkListUpdate(RinkListFile list) : fileDate(list.fileDate), rows(std::move(list.rinks)) {
  rinkIDs.reserve(rows.size());
  for (const RinkRecord& row : rows) rinkIDs.push_back(row.rinkID);
}

RinkListUpdate decodeRinkListUpdate(ByteView file,
                                    const std::function<const RinkRecord*(std::int64_t rinkID)>& atHand) {
  DataDecoder decoder(file);
  RinkListUpdate update;
  update.fileDate = getFileDate(decoder);
  const std::int64_t count = decoder.getCount(kLeastRowBytes);
  update.rinkIDs.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    RinkRecord row = decodeRow(decoder);
    // A list out of order has to be held as a whole to be put in order.
    if (i > 0 && row.rinkID <= update.rinkIDs.back()) return decodeRinkList(file);
    update.rinkIDs.push_back(row.rinkID);
    const RinkRecord* known = atHand(row.rinkID);
    if (!known || *known != row) update.rows.push_back(std::move(row));
  }
  return update;
}

std::optional<RinkListFile> decodeRinkListJson(ByteView file) {
  const Json root = Json::parse(file.begin(), file.end(), nullptr, /*allow_exceptions=*/false);
  if (!root.is_object()) return std::nullopt;
  RequiredKeys keys(root);
  RinkListFile list;
  list.fileDate = Instant{keys.number("fileDate")};
  const auto rinks = root.find("rinks");
  if (!keys.complete() || rinks == root.end() || !rinks->is_array()) return std::nullopt;
  for (const Json& element : *rinks) {
    std::optional<RinkRecord> row = rowOf(element);
    if (!row) return std::nullopt;
    list.rinks.push_back(std::move(*row));
  }
  putInOrder(list.rinks);
  return list;
}

}  // namespace tarvel
