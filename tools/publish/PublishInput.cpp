#include "PublishInput.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "FieldParsers.h"
#include "InputNode.h"
#include "Kinds.h"
#include "RinkReader.h"

namespace tarvel::publish {
namespace {

constexpr const char* kCatalogueName = "catalogue.json";
constexpr std::string_view kVersionForm = "a version such as \"6.1.0\" or \"6.2.0 Beta 1\"";
constexpr std::string_view kDateForm = "a date such as \"2026-03-01\"";
constexpr std::string_view kAddressForm = "an http or https address";

std::optional<std::string> webAddress(std::string_view text) {
  if (!isWebAddress(text)) return std::nullopt;
  return std::string(text);
}

Release readRelease(InputNode node) {
  Release release;
  release.date = node.parsed("date", Presence::required, parseDate, kDateForm).value_or(kNoDate);
  release.appVersion = node.parsed("version", Presence::required, parseVersion, kVersionForm).value_or(0);
  release.osMinimumVersion =
      node.parsed("osMinimumVersion", Presence::required, parseVersion, kVersionForm).value_or(0);
  release.url = node.parsed("url", Presence::required, webAddress, kAddressForm).value_or("");
  node.noOtherKeys();
  return release;
}

void readReleases(InputNode& application, Catalogue& catalogue) {
  if (application.has("releases")) {
    auto& releases = catalogue.releases.emplace();
    for (const InputNode& node : application.list("releases", Presence::required)) {
      releases.push_back(readRelease(node));
      if (releases.size() > 1 && releases.back().appVersion <= releases[releases.size() - 2].appVersion) {
        node.complain("releases stand from the oldest version to the newest");
      }
    }
  }
  if (!application.has("beta")) return;
  if (const auto beta = application.object("beta", Presence::required)) catalogue.beta = readRelease(*beta);
  if (!catalogue.releases) application.complain("beta", "needs \"releases\" beside it");
}

void readApplication(InputNode node, Catalogue& catalogue) {
  catalogue.applicationWebsiteURL =
      node.parsed("website", Presence::required, webAddress, kAddressForm).value_or("");
  catalogue.currentVersion =
      node.parsed("currentVersion", Presence::required, parseVersion, kVersionForm).value_or(0);
  catalogue.minimumVersion =
      node.parsed("minimumVersion", Presence::required, parseVersion, kVersionForm).value_or(0);
  if (catalogue.minimumVersion > catalogue.currentVersion) {
    node.complain("minimumVersion", "is newer than currentVersion, so no release could read the data");
  }
  node.member("releases", Presence::optional);
  node.member("beta", Presence::optional);
  readReleases(node, catalogue);
  node.noOtherKeys();
}

void readSessions(InputNode& root, Catalogue& catalogue) {
  std::map<int, SessionDefinition> found;
  for (InputNode node : root.list("sessions", Presence::required)) {
    const auto kind = node.parsed("kind", Presence::required, sessionKind, "one of " + sessionKindList());
    SessionDefinition definition;
    definition.name = node.name("name");
    const auto color = node.parsed("color", Presence::required, parseColor, "a colour such as \"#8AFA90\"");
    if (color) {
      definition.red = color->at(0);
      definition.green = color->at(1);
      definition.blue = color->at(2);
      definition.alpha = color->at(3);
    }
    node.noOtherKeys();
    if (kind && !found.emplace(*kind, definition).second) node.complain("kind", "stands here twice");
  }
  if (!root.has("sessions")) return;
  for (int kind = 0; kind < kSessionKinds; ++kind) {
    if (!found.contains(kind)) {
      root.complain("sessions", fmt::format("has no entry for \"{}\"", sessionKindName(kind)));
    }
    catalogue.sessions.push_back(found[kind]);
  }
}

/// Whatever two rinks must not share, and what the second of them would overwrite.
class Unshared {
 public:
  void check(const InputNode& node, const std::string& what, const std::string& value) {
    if (value.empty()) return;
    const auto [first, isNew] = seen_.emplace(what + " " + value, node.value().get<std::string>());
    if (!isNew) node.complain(fmt::format("has the {} {} of \"{}\"", what, value, first->second));
  }

 private:
  std::map<std::string, std::string> seen_;
};

void readRinks(FileSystem& files, const Path& folder, InputNode& root, PublishInput& input) {
  const RinkDefaults defaults{
      root.parsed("serverUrl", Presence::optional, webAddress, kAddressForm).value_or("")};
  Unshared unshared;
  for (const InputNode& node : root.list("rinks", Presence::required)) {
    const auto name = node.parse(
        [](std::string_view text) {
          const bool fine = isSafePath(text) && text.find('/') == std::string_view::npos;
          return fine ? std::optional(std::string(text)) : std::nullopt;
        },
        "the name of a folder below \"rinks\"");
    if (!name) continue;
    const auto rink = readRink(files, folder, "rinks/" + *name, defaults, input.problems);
    if (!rink) continue;
    unshared.check(node, "rinkID", std::to_string(rink->rinkID));
    unshared.check(node, "dataPath", rink->dataPath);
    unshared.check(node, "photosFolder", rink->photosFolder);
    input.catalogue.rinks.push_back(*rink);
  }
  std::sort(input.catalogue.rinks.begin(), input.catalogue.rinks.end(),
            [](const Rink& a, const Rink& b) { return a.rinkID < b.rinkID; });
}

}  // namespace

PublishInput readPublishInput(FileSystem& files, const Path& folder) {
  PublishInput input;
  const auto document = InputDocument::read(files, folder, kCatalogueName, input.problems);
  if (!document) return input;
  InputNode root = document->root(input.problems);
  if (const auto application = root.object("application", Presence::required)) {
    readApplication(*application, input.catalogue);
  }
  readSessions(root, input.catalogue);
  readRinks(files, folder, root, input);
  root.noOtherKeys();
  return input;
}

}  // namespace tarvel::publish
