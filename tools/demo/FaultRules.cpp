#include "FaultRules.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvel::demo {
namespace {

/// What a rule of a kind needs for a value.
struct KindEntry {
  std::string_view name;
  bool hasValue;
  double least;
  double most;
};

constexpr std::array<KindEntry, 7> kKinds = {{{"latency", true, 0, 3600},
                                              {"cut", true, 0, 1e9},
                                              {"status", true, 200, 599},
                                              {"stale", false, 0, 0},
                                              {"shift", true, -1e9, 1e9},
                                              {"down", false, 0, 0},
                                              {"reset", false, 0, 0}}};

std::optional<double> parseNumber(std::string_view text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

void applyRule(const FaultRule& rule, Misbehaviour& result) {
  switch (rule.kind) {
    case FaultKind::latency:
      result.latency += rule.value;
      break;
    case FaultKind::cut:
      result.cutAfter = static_cast<std::size_t>(rule.value);
      break;
    case FaultKind::status:
      result.status = static_cast<int>(rule.value);
      break;
    case FaultKind::stale:
      result.stale = true;
      break;
    case FaultKind::shift:
      result.shift += rule.value;
      break;
    case FaultKind::down:
      result.down = true;
      break;
    case FaultKind::reset:
      result.reset = true;
      break;
  }
}

}  // namespace

std::optional<FaultRule> parseFaultRule(std::string_view text) {
  const std::size_t colon = text.find(":/");
  if (colon == std::string_view::npos) return std::nullopt;
  FaultRule rule;
  rule.pattern = text.substr(colon + 1);
  std::string_view head = text.substr(0, colon);
  if (const std::size_t star = head.find('*'); star != std::string_view::npos) {
    const auto times = parseNumber(head.substr(star + 1));
    if (!times || *times < 1 || *times > 1e6 || *times != std::floor(*times)) return std::nullopt;
    rule.timesLeft = static_cast<int>(*times);
    head = head.substr(0, star);
  }
  const std::size_t equals = head.find('=');
  const auto kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindEntry& entry) {
    return entry.name == head.substr(0, equals);
  });
  if (kind == kKinds.end() || kind->hasValue != (equals != std::string_view::npos)) return std::nullopt;
  rule.kind = static_cast<FaultKind>(kind - kKinds.begin());
  if (!kind->hasValue) return rule;
  const auto value = parseNumber(head.substr(equals + 1));
  if (!value || *value < kind->least || *value > kind->most) return std::nullopt;
  rule.value = *value;
  return rule;
}

std::string describe(const FaultRule& rule) {
  const KindEntry& kind = kKinds.at(static_cast<std::size_t>(rule.kind));
  return fmt::format("{}{}{}:{}", kind.name, kind.hasValue ? fmt::format("={}", rule.value) : "",
                     rule.timesLeft >= 0 ? fmt::format("*{}", rule.timesLeft) : "", rule.pattern);
}

bool matchesPattern(std::string_view pattern, std::string_view path) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return pattern == path;
  if (!path.starts_with(pattern.substr(0, star))) return false;
  const std::string_view rest = pattern.substr(star + 1);
  for (std::size_t at = star; at <= path.size(); ++at) {
    if (matchesPattern(rest, path.substr(at))) return true;
  }
  return false;
}

void FaultRules::add(FaultRule rule) {
  const std::lock_guard lock(mutex_);
  rules_.push_back(std::move(rule));
}

void FaultRules::clear() {
  const std::lock_guard lock(mutex_);
  rules_.clear();
}

Misbehaviour FaultRules::apply(std::string_view path) {
  const std::lock_guard lock(mutex_);
  Misbehaviour result;
  for (FaultRule& rule : rules_) {
    if (!matchesPattern(rule.pattern, path)) continue;
    applyRule(rule, result);
    if (rule.timesLeft > 0) --rule.timesLeft;
  }
  std::erase_if(rules_, [](const FaultRule& rule) { return rule.timesLeft == 0; });
  return result;
}

std::vector<std::string> FaultRules::descriptions() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> result;
  for (const FaultRule& rule : rules_) result.push_back(describe(rule));
  return result;
}

}  // namespace tarvel::demo
