#pragma once
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Problems.h"
#include "platform/FileSystem.h"

namespace tarvel::publish {

enum class Presence { required, optional };

/// The largest integer that every JSON tool keeps exact: 2^53 - 1. No id is larger.
inline constexpr std::int64_t kLargestID = 9'007'199'254'740'991;

/// A value of a description file that knows where it stands. The getters take a member of an object by its
/// key: if the member is missing though it is required, or has another type, range or form than asked for,
/// they note an error with file, field and reason and give an empty value, and the reading goes on to find
/// the next fault. Keys that nobody asked for are noted by `noOtherKeys`: a mistyped key would otherwise be
/// passed over in silence.
///
/// A light value over a document that outlives it.
class InputNode {
 public:
  InputNode(const nlohmann::json& value, std::string file, std::string field, Problems& problems);

  const nlohmann::json& value() const { return *value_; }
  const std::string& file() const { return file_; }
  bool has(const std::string& key) const;

  std::string text(const std::string& key, Presence presence);
  /// A text that is not empty.
  std::string name(const std::string& key);
  std::int64_t integer(const std::string& key, std::int64_t least, std::int64_t most);
  std::int64_t integer(const std::string& key, std::int64_t least, std::int64_t most, std::int64_t ifMissing);
  /// 1 to `kLargestID`; 0 if there is none.
  std::int64_t id(const std::string& key, Presence presence = Presence::required);
  double number(const std::string& key, double least, double most);
  /// The elements of an array; of a missing optional one, none.
  std::vector<InputNode> list(const std::string& key, Presence presence);
  /// None if it is missing or no object.
  std::optional<InputNode> object(const std::string& key, Presence presence);
  std::optional<InputNode> member(const std::string& key, Presence presence);

  /// A text in one of the forms of FieldParsers.h; `form` says in words what is expected.
  template <class Parser>
  auto parsed(const std::string& key, Presence presence, Parser parser, std::string_view form)
      -> decltype(parser(std::string_view())) {
    const std::optional<InputNode> found = member(key, presence);
    if (!found) return std::nullopt;
    return found->parse(parser, form);
  }
  /// The same for this value itself.
  template <class Parser>
  auto parse(Parser parser, std::string_view form) const -> decltype(parser(std::string_view())) {
    if (!value_->is_string()) {
      complain("expected " + std::string(form));
      return std::nullopt;
    }
    const auto& content = value_->get_ref<const std::string&>();
    auto result = parser(std::string_view(content));
    if (!result) complain("\"" + content + "\" is not " + std::string(form));
    return result;
  }
  /// This value as an integer in a range, with `form` in the complaint.
  std::optional<std::int64_t> integerValue(std::int64_t least, std::int64_t most,
                                           std::string_view form) const;

  /// Notes an error of this value, or of the member of that key.
  void complain(const std::string& reason) const;
  void complain(const std::string& key, const std::string& reason) const;
  void warn(const std::string& reason) const;
  /// Notes each key of the object that no getter has been asked for.
  void noOtherKeys() const;

 private:
  std::string fieldOf(const std::string& key) const;

  const nlohmann::json* value_;
  std::string file_;
  std::string field_;
  Problems* problems_;
  std::set<std::string> asked_;
};

/// A description file, parsed. `//` comments are allowed in it.
class InputDocument {
 public:
  /// Reads `folder`/`name`; none, and an error noted with line and column, if it can't be read or is no JSON
  /// object.
  static std::optional<InputDocument> read(FileSystem& files, const Path& folder, const std::string& name,
                                           Problems& problems);
  InputNode root(Problems& problems) const { return {json_, name_, "", problems}; }

 private:
  InputDocument(nlohmann::json json, std::string name) : json_(std::move(json)), name_(std::move(name)) {}
  nlohmann::json json_;
  std::string name_;
};

}  // namespace tarvel::publish
