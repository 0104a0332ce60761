#include "DemoControl.h"

#include <fmt/format.h>

#include <charconv>
#include <nlohmann/json.hpp>

#include "publish/FieldParsers.h"

namespace tarvel::demo {
namespace {

using nlohmann::json;

ControlReply refusal(const std::string& reason) {
  return {400, json{{"error", reason}}.dump() + "\n"};
}

template <class Number>
Number number(const std::string& text, Number otherwise) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? value : otherwise;
}

}  // namespace

/// One request's parameters, and what it may touch.
struct DemoControl::Call {
  DemoControl& control;
  const Parameters& parameters;
  json reply;

  std::string text(const char* name) const {
    const auto found = parameters.find(name);
    return found == parameters.end() ? "" : found->second;
  }
  std::int64_t id(const char* name) const { return number<std::int64_t>(text(name), 0); }
};

struct DemoControl::Verb {
  enum class After { nothing, publish };
  After after;
  /// False if the parameters are wrong.
  bool (*act)(Call& call);
};

const std::map<std::string, DemoControl::Verb>& DemoControl::verbs() {
  using enum Verb::After;
  static const std::map<std::string, Verb> kVerbs = {
      {"fault",
       {nothing,
        [](Call& call) {
          const auto rule = parseFaultRule(call.text("rule"));
          if (rule) call.control.faults_.add(*rule);
          return rule.has_value();
        }}},
      {"clear-faults",
       {nothing,
        [](Call& call) {
          call.control.faults_.clear();
          return true;
        }}},
      {"clear-requests",
       {nothing,
        [](Call& call) {
          call.control.log_.clear();
          return true;
        }}},
      {"down",
       {nothing,
        [](Call& call) {
          const auto seconds = number<double>(call.text("seconds"), 0.0);
          if (!(seconds > 0.0 && seconds <= 3600.0) || !call.control.goDown) return false;
          call.control.goDown(seconds);
          return true;
        }}},
      {"publish", {publish, [](Call&) { return true; }}},
      {"rename-rink",
       {publish,
        [](Call& call) { return call.control.content_.renameRink(call.id("rink"), call.text("name")); }}},
      {"remove-rink",
       {publish, [](Call& call) { return call.control.content_.removeRink(call.id("rink")); }}},
      {"add-rink",
       {publish,
        [](Call& call) {
          const auto rinkID = call.control.content_.addRink();
          if (rinkID) call.reply["rink"] = *rinkID;
          return rinkID.has_value();
        }}},
      {"drop-venue",
       {publish,
        [](Call& call) { return call.control.content_.dropVenue(call.id("rink"), call.id("venue")); }}},
      {"replace-week",
       {publish,
        [](Call& call) {
          const auto weekOf = publish::parseDate(call.text("week"));
          return weekOf && call.control.content_.replaceWeek(call.id("rink"), call.id("venue"), *weekOf);
        }}},
      {"add-notice",
       {publish,
        [](Call& call) {
          return call.control.content_.addNotice(call.id("rink"), call.text("summary"), call.text("detail"));
        }}},
      {"mismatch",
       {nothing,
        [](Call& call) {
          const DemoRink* rink = call.control.content_.rink(call.id("rink"));
          constexpr double kLater = 60.0;
          if (rink) {
            call.control.faults_.add({FaultKind::shift, kLater, -1, "/rinks/" + rink->folder + "/main.b1"});
          }
          return rink != nullptr;
        }}},
  };
  return kVerbs;
}

DemoControl::DemoControl(DemoContent& content, DemoSite& site, FaultRules& faults, RequestLog& log)
    : content_(content), site_(site), faults_(faults), log_(log) {}

ControlReply DemoControl::handle(const std::string& path, const Parameters& parameters) {
  const std::lock_guard lock(mutex_);
  if (path == "/control/requests") {
    ControlReply reply{200, log_.json().dump(1) + "\n"};
    if (parameters.contains("clear")) log_.clear();
    return reply;
  }
  if (path == "/control/state") return {200, state().dump(1) + "\n"};
  if (path == "/control") return perform(parameters);
  return {404, json{{"error", "there is no such control"}}.dump() + "\n"};
}

ControlReply DemoControl::perform(const Parameters& parameters) {
  const auto name = parameters.find("do");
  if (name == parameters.end()) return refusal("\"do\" is missing");
  const auto verb = verbs().find(name->second);
  if (verb == verbs().end()) return refusal("there is no verb \"" + name->second + "\"");
  Call call{*this, parameters, json{{"done", name->second}}};
  if (!verb->second.act(call)) return refusal("\"" + name->second + "\" can't do that with these parameters");
  if (verb->second.after == Verb::After::nothing) return {200, call.reply.dump() + "\n"};
  return published(std::move(call.reply));
}

ControlReply DemoControl::published(json reply) {
  const auto report = site_.publish(content_);
  if (!report) return {500, json{{"error", report.error().description}}.dump() + "\n"};
  reply["date"] = report->date.seconds;
  reply["written"] = report->written;
  reply["removed"] = report->removed;
  return {200, reply.dump(1) + "\n"};
}

json DemoControl::state() const {
  json rinks = json::array();
  for (const DemoRink& rink : content_.rinks()) {
    json venues = json::array();
    for (const DemoVenue& venue : rink.venues)
      venues.push_back({{"venue", venue.venueID}, {"name", venue.name}});
    rinks.push_back({{"rink", rink.rinkID},
                     {"name", rink.name},
                     {"timeZone", rink.timeZone},
                     {"dataPath", "rinks/" + rink.folder},
                     {"photosFolder", "photos/" + rink.folder},
                     {"venues", venues}});
  }
  json weeks = json::array();
  for (const PackedDate week : content_.weeks()) {
    weeks.push_back(fmt::format("{}-{:02}-{:02}", yearOf(week), monthOf(week), dayOf(week)));
  }
  return {{"rinks", rinks}, {"weeks", weeks}, {"faults", faults_.descriptions()}};
}

}  // namespace tarvel::demo
