#include "InputNode.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tarvel::publish {

InputNode::InputNode(const nlohmann::json& value, std::string file, std::string field, Problems& problems)
    : value_(&value), file_(std::move(file)), field_(std::move(field)), problems_(&problems) {}

bool InputNode::has(const std::string& key) const {
  return value_->contains(key);
}

std::string InputNode::fieldOf(const std::string& key) const {
  return field_.empty() ? key : field_ + "." + key;
}

void InputNode::complain(const std::string& reason) const {
  problems_->errors.push_back({file_, field_, reason});
}

void InputNode::complain(const std::string& key, const std::string& reason) const {
  problems_->errors.push_back({file_, fieldOf(key), reason});
}

void InputNode::warn(const std::string& reason) const {
  problems_->warnings.push_back({file_, field_, reason});
}

std::optional<InputNode> InputNode::member(const std::string& key, Presence presence) {
  asked_.insert(key);
  if (!value_->is_object()) return std::nullopt;  // noted where the object was asked for
  const auto found = value_->find(key);
  if (found == value_->end()) {
    if (presence == Presence::required) complain(key, "is missing");
    return std::nullopt;
  }
  return InputNode(*found, file_, fieldOf(key), *problems_);
}

std::string InputNode::text(const std::string& key, Presence presence) {
  const auto found = member(key, presence);
  if (!found) return {};
  if (found->value_->is_string()) return found->value_->get<std::string>();
  found->complain("expected a text");
  return {};
}

std::string InputNode::name(const std::string& key) {
  std::string result = text(key, Presence::required);
  if (has(key) && value_->at(key).is_string() && result.empty()) complain(key, "must not be empty");
  return result;
}

std::optional<std::int64_t> InputNode::integerValue(std::int64_t least, std::int64_t most,
                                                    std::string_view form) const {
  // The parser keeps what lies beyond the signed range as an unsigned number.
  const bool fits = value_->is_number_integer() && (!value_->is_number_unsigned() ||
                                                    value_->get<std::uint64_t>() <= std::uint64_t{INT64_MAX});
  if (fits) {
    const auto number = value_->get<std::int64_t>();
    if (number >= least && number <= most) return number;
  }
  if (!value_->is_number()) {
    complain(fmt::format("expected {}", form));
  } else {
    complain(fmt::format("{} is not {}", value_->dump(), form));
  }
  return std::nullopt;
}

std::int64_t InputNode::integer(const std::string& key, std::int64_t least, std::int64_t most) {
  const auto found = member(key, Presence::required);
  if (!found) return least;
  return found->integerValue(least, most, fmt::format("a whole number from {} to {}", least, most))
      .value_or(least);
}

std::int64_t InputNode::integer(const std::string& key, std::int64_t least, std::int64_t most,
                                std::int64_t ifMissing) {
  if (has(key)) return integer(key, least, most);
  asked_.insert(key);
  return ifMissing;
}

std::int64_t InputNode::id(const std::string& key, Presence presence) {
  const auto found = member(key, presence);
  if (!found) return 0;
  return found->integerValue(1, kLargestID, fmt::format("a whole number from 1 to {}", kLargestID))
      .value_or(0);
}

double InputNode::number(const std::string& key, double least, double most) {
  const auto found = member(key, Presence::required);
  if (!found) return least;
  if (found->value_->is_number()) {
    const auto number = found->value_->get<double>();
    if (number >= least && number <= most) return number;
    found->complain(fmt::format("{} is not a number from {} to {}", found->value_->dump(), least, most));
  } else {
    found->complain(fmt::format("expected a number from {} to {}", least, most));
  }
  return least;
}

std::vector<InputNode> InputNode::list(const std::string& key, Presence presence) {
  const auto found = member(key, presence);
  if (!found) return {};
  if (!found->value_->is_array()) {
    found->complain("expected a list");
    return {};
  }
  std::vector<InputNode> elements;
  for (std::size_t i = 0; i < found->value_->size(); ++i) {
    elements.emplace_back(found->value_->at(i), file_, fmt::format("{}[{}]", found->field_, i), *problems_);
  }
  return elements;
}

std::optional<InputNode> InputNode::object(const std::string& key, Presence presence) {
  auto found = member(key, presence);
  if (!found || found->value_->is_object()) return found;
  found->complain("expected an object");
  return std::nullopt;
}

void InputNode::noOtherKeys() const {
  if (!value_->is_object()) {
    complain("expected an object");
    return;
  }
  for (const auto& [key, unused] : value_->items()) {
    if (!asked_.contains(key)) complain(key, "is not a key that is known here");
  }
}

namespace {

std::string placeOf(ByteView content, std::size_t byte) {
  const auto end =
      content.begin() + static_cast<std::ptrdiff_t>(std::min(byte > 0 ? byte - 1 : 0, content.size()));
  const auto line = std::count(content.begin(), end, std::uint8_t{'\n'}) + 1;
  const auto lineStart =
      std::find(std::make_reverse_iterator(end), content.rend(), std::uint8_t{'\n'}).base();
  return fmt::format("line {}, column {}", line, end - lineStart + 1);
}

}  // namespace

std::optional<InputDocument> InputDocument::read(FileSystem& files, const Path& folder,
                                                 const std::string& name, Problems& problems) {
  const Result<Bytes> content = files.read(join(folder, name));
  if (!content) {
    problems.errors.push_back({name, "", "can't be read: " + content.error().description});
    return std::nullopt;
  }
  try {
    constexpr bool kThrow = true;
    constexpr bool kIgnoreComments = true;
    auto json = nlohmann::json::parse(content->begin(), content->end(), nullptr, kThrow, kIgnoreComments);
    if (json.is_object()) return InputDocument(std::move(json), name);
    problems.errors.push_back({name, "", "expected an object"});
  } catch (const nlohmann::json::parse_error& error) {
    problems.errors.push_back({name, "", "is no JSON, see " + placeOf(*content, error.byte)});
  }
  return std::nullopt;
}

}  // namespace tarvel::publish
